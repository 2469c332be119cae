#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"

#include <string>
#include <string_view>

namespace publish {

/// What groups.csv says for the name, code or description of a group that shall have none.
inline constexpr const char* noText = "(none)";

/// Reads products.csv and groups.csv, both UTF-8 (docs/publishing.md, "The products", "The groups"):
/// the groups are those that the products' paths name, in the order in which they come. A group for
/// which groups.csv has no row gets its name as its description, and a code made of its name. The group
/// `contentsName` is the root itself. A group that groups.csv alone names is complained of and stands behind
/// the one that groups.csv has before it.
/// Complaints name line and column.
[[nodiscard]] Group readProducts(std::string_view productsCsv, std::string_view groupsCsv,
                                 Complaints& complaints);

/// The price or rate that a text holds: digits with at most one point, a minus sign in
/// front of them perhaps, and the same as a single, to the
/// last digit. Otherwise says what is wrong and gives 0.
[[nodiscard]] float readSingleNumber(std::string_view text, std::string& wrong);

}
