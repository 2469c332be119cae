#pragma once

#include "tables/table.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace publish {

/// What stands in a column, as far as some hundred rows tell.
struct ColumnStats {
    std::size_t rows = 0; ///< that were looked at
    std::size_t filled = 0;
    std::size_t numbers = 0;
    std::size_t decimals = 0;
    std::size_t rates = 0; ///< numbers with "%"
    std::size_t pictures = 0;
    std::size_t different = 0;
    std::size_t changes = 0; ///< filled cells that are not as the filled cell above
    std::size_t longest = 0;
    std::size_t length = 0; ///< of all cells
    bool holdsLines = false;

    [[nodiscard]] bool isFilled(std::size_t percent) const {
        return rows > 0 && filled * 100 >= rows * percent;
    }

    /// The share of the filled cells.
    [[nodiscard]] bool isMostly(std::size_t cells, std::size_t percent = 90) const {
        return filled > 0 && cells * 100 >= filled * percent;
    }
};

/// Looks at rows from the first one on, spread over the table. Rows with a single filled cell do not count.
[[nodiscard]] std::vector<ColumnStats> lookAtColumns(const tables::Table& table, std::size_t firstRow);

}
