#pragma once

#include "platform/message_box.h"
#include "ui/product_search.h"
#include "ui/searched_grid.h"

#include <cstdint>
#include <string>

namespace ui {

/// What to search for, as typed, and where.
struct SearchQuery {
    std::string phrase;
    SearchedColumns columns;
};

/// Moves the grid's current row to the next match. Where there is none it says so and leaves the grid as it
/// was. Either way the keyboard focus goes to the grid. Products, grid and messages must outlive it.
class Search {
public:
    Search(const catalog::ProductTable& products, SearchedGrid& grid, platform::MessageBox& messages)
        : m_products(products), m_grid(grid), m_messages(messages) {}

    /// From the first row on.
    void first(const SearchQuery& query);
    /// From the row below the current one on.
    void next(const SearchQuery& query);
    /// Upwards from the row above the current one.
    void previous(const SearchQuery& query);

private:
    void run(const SearchQuery& query, std::int32_t start, Direction direction);

    const catalog::ProductTable& m_products;
    SearchedGrid& m_grid;
    platform::MessageBox& m_messages;
};

}
