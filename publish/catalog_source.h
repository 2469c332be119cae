#pragma once

#include "catalog/record_codec.h"

#include <cstddef>
#include <string>
#include <vector>

namespace publish {

/// What a supplier offers, in the order of the catalogue. Texts are Windows-1252.
struct Product {
    std::string code = {};
    std::string description = {};
    std::string other = {};           ///< the Other column
    std::string picture = {};         ///< file name; empty means the code with ".Jpg"
    std::string longDescription = {}; ///< lines separated by line feeds; empty means none
    float taxRate = 0;                ///< percent
    float price = 0;                  ///< without tax
    std::size_t line = 0;             ///< of the file that it was read from; 0 where it was not read
};

/// A group holds groups or products, never both.
struct Group {
    std::string name = {};
    Product header = {}; ///< the group's own record: its code, description, other text and picture
    std::vector<Group> groups = {};
    std::vector<Product> products = {};
};

/// The name by which the first group's page lists the top-level groups.
inline constexpr const char* contentsName = "Table of Contents";

struct CatalogSource {
    catalog::ParameterValues parameters = {};
    Group contents = {.name = contentsName};
};

}
