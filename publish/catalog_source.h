#pragma once

#include "catalog/record_codec.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace publish {

class ProductRows;

/// What a supplier offers, in the order of the catalogue. Texts are Windows-1252.
struct Product {
    std::string code = {};
    std::string description = {};
    std::string other = {};           ///< the Other column
    std::string picture = {};         ///< file name; empty means the code with ".Jpg"
    std::string longDescription = {}; ///< lines separated by line feeds; empty means none
    float taxRate = 0;                ///< percent
    float price = 0;                  ///< without tax
};

/// A group holds groups or products, never both.
struct Group {
    std::string name = {};
    Product header = {};  ///< the group's own record
    std::size_t line = 0; ///< of groups.csv; 0 where the group has none
    std::vector<Group> groups = {};
    std::vector<std::uint32_t> rows = {}; ///< its products, as rows of `CatalogSource::products`
};

/// The name by which the first group's page lists the top-level groups.
inline constexpr const char* contentsName = "Table of Contents";

struct CatalogSource {
    catalog::ParameterValues parameters = {};
    Group contents = {.name = contentsName};
    std::shared_ptr<const ProductRows> products = {}; ///< none where there is no list
};

/// A template, picture or other file that goes into the zip as it is.
struct ContentFile {
    std::string name;           ///< in the zip: UTF-8, folders separated by "/"
    std::filesystem::path path; ///< where its bytes are
};

/// The files of a source folder that complaints name.
inline constexpr const char* parametersSource = "catalog.ini";
inline constexpr const char* productsSource = "products.csv";
inline constexpr const char* groupsSource = "groups.csv";

}
