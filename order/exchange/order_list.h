#pragma once

#include "order/exchange/list_columns.h"
#include "order/wanted_line.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace order {

/// What a list of codes and quantities says.
struct OrderList {
    std::vector<WantedLine> lines = {};
    std::size_t passedOver = 0; ///< rows with a code and no quantity, or 0, where others have one
    std::string summary = {};   ///< what was read, and which columns were taken for what
};

/// Reads delimited text, .xlsx or .ods (`tables::openTables`), of a spreadsheet the sheet with most codes.
/// Which column is what is found by what stands in them. A list without quantities orders one piece of each;
/// so does a line of text with a code alone. A file that is no table throws base::FileError with a sentence.
[[nodiscard]] OrderList readOrderList(const std::filesystem::path& file, const IsCode& isCode);

/// The same of a text, as it comes from the clipboard.
[[nodiscard]] OrderList readOrderText(std::string_view utf8, const IsCode& isCode);

}
