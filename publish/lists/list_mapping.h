#pragma once

#include "publish/complaint.h"
#include "tables/table.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// What a column of a product list can mean.
enum class ListField { code, description, other, price, tax, picture, details };

inline constexpr std::size_t listFieldCount = 7;

/// The value that stands for no column, no heading row, no separator.
inline constexpr const char* noColumnName = "none";

/// What the mapping file says for a key.
struct MappingValue {
    std::string text = {}; ///< UTF-8; empty: to be found by itself
    std::size_t line = 0;  ///< of the mapping file; 0 where it does not stand there
};

/// How a product list is to be read: "list.ini" beside it, or what was guessed. A column is named by its
/// heading, or as "column 3" where it has none or shares it; "none" stands for no column.
struct ListMapping {
    MappingValue file;
    MappingValue sheet;
    MappingValue encoding;
    MappingValue delimiter;
    MappingValue headingRow; ///< the row or line of the headings, or "none"
    std::array<MappingValue, listFieldCount> columns;
    std::vector<MappingValue> groups; ///< columns of the levels, from the top down
    MappingValue groupSeparator;      ///< between the names of a path in one column
    MappingValue groupRows;           ///< "yes": a row with one text between products names a group
    MappingValue decimalMark;         ///< "," or "."
    bool isOwn = false;               ///< our own products.csv: fixed columns, numbers with a point

    [[nodiscard]] MappingValue& column(ListField field) { return columns[static_cast<std::size_t>(field)]; }

    [[nodiscard]] const MappingValue& column(ListField field) const {
        return columns[static_cast<std::size_t>(field)];
    }
};

/// The name of the mapping file in a source folder.
inline constexpr const char* mappingFileName = "list.ini";

/// The field's key in the mapping file, which is also its column in our own products.csv: "code".
[[nodiscard]] const char* nameOf(ListField field);

/// How the list's file is to be read.
[[nodiscard]] tables::TableForm formOf(const ListMapping& mapping);

/// Puts in what was found by opening the file.
void noteForm(ListMapping& mapping, const tables::TableForm& form);

/// Whether a text can be a value that names something.
[[nodiscard]] bool isWritable(std::string_view text);

/// Reads a mapping file, UTF-8. Unknown keys and values that make no sense are complained of by line.
[[nodiscard]] ListMapping readMapping(std::string_view text, Complaints& complaints);

/// The mapping file, with comments that say what each key is for.
[[nodiscard]] std::string textOf(const ListMapping& mapping);

/// The columns that products.csv always has (docs/publishing.md, "The products"): nothing is guessed.
[[nodiscard]] ListMapping ownColumns();

}
