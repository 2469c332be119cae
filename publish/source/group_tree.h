#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"

#include <string>
#include <vector>

namespace publish {

class ProductRows;

/// What groups.csv says for the name, code or description of a group that shall have none.
inline constexpr const char* noText = "(none)";

/// A group's row in groups.csv.
struct GroupRow {
    std::vector<std::string> path; ///< names from the top down; Windows-1252
    std::string name = {};         ///< where it is not the last one of the path
    Product header = {};
    std::size_t line = 0;
};

/// The groups that the products' paths name, in the order in which they come, each with the rows of its
/// products, and after them those that only groups.csv names. A group for which there is no row gets its name
/// as its description, and a code made of its name. Complaints name row and column.
[[nodiscard]] Group groupTree(const ProductRows& products, const std::vector<GroupRow>& groups,
                              Complaints& complaints);

}
