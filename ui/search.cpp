#include "ui/search.h"

namespace ui {

void Search::first(const SearchQuery& query) {
    run(query, 0, Direction::down);
}

void Search::next(const SearchQuery& query) {
    run(query, m_grid.currentRow() + 1, Direction::down);
}

void Search::previous(const SearchQuery& query) {
    run(query, m_grid.currentRow() - 1, Direction::up);
}

void Search::run(const SearchQuery& query, std::int32_t start, Direction direction) {
    const auto row = searchProducts(m_products, query.phrase, query.columns, start, direction);
    m_products.requireWhole();
    if (row)
        m_grid.setCurrentRow(*row);
    else
        m_messages.show(platform::Icon::information, "Search", query.phrase + " not found.");
    m_grid.takeFocus();
}

}
