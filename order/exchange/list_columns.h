#pragma once

#include "tables/table.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace order {

/// Whether the open catalogue has this code, which is in the code page.
using IsCode = std::function<bool(std::string_view code)>;

/// Where the codes and the quantities of a list stand.
struct ListColumns {
    std::size_t code = 0;
    std::optional<std::size_t> quantity{};
    std::size_t firstRow = 0; ///< below the headings
    std::size_t codes = 0;    ///< how many of the rows looked at have a code of the catalogue
    std::size_t looked = 0;   ///< how many rows that were, spread over the list
    std::size_t columns = 0;  ///< of the widest row looked at
};

/// Finds them by what stands in the columns: most codes of the catalogue, numbers, headings.
[[nodiscard]] ListColumns findListColumns(const tables::Table& table, const IsCode& isCode);

/// The code that a cell holds, in the code page.
[[nodiscard]] std::string listedCode(std::string_view utf8);

/// The rows to look at, at most so many, spread over all; calls for each.
void lookAtRows(const tables::Table& table, std::size_t most,
                const std::function<void(std::size_t row, const tables::TableRow& cells)>& look);

}
