#pragma once

#include "catalog/record_file.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace ui {

/// Which columns of the product grid a search looks into.
struct SearchedColumns {
    bool code = false;
    bool description = false;
    bool other = false;

    friend bool operator==(const SearchedColumns&, const SearchedColumns&) = default;
};

enum class Direction { down, up };

/// The first row of the product grid, from `start` on in the given direction and without beginning again at
/// the other end, that has the phrase in one of the columns. Rows count from 0; a start outside the grid
/// finds none. Letter case and blanks around the phrase do not count. An empty phrase stands in every cell
/// that is not empty. The texts are those that the cells show, searched where they lie in the file.
[[nodiscard]] std::optional<std::int32_t> searchProducts(const catalog::ProductTable& products,
                                                         std::string_view phrase, SearchedColumns columns,
                                                         std::int32_t start, Direction direction);

/// The same downwards among the rows from `start` on and before `end`, for whoever searches a part at a time.
/// Nothing for an empty phrase.
[[nodiscard]] std::optional<std::int32_t> searchRows(const catalog::ProductTable& products,
                                                     std::string_view phrase, SearchedColumns columns,
                                                     std::int32_t start, std::int32_t end);

}
