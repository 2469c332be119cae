#pragma once

#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <filesystem>
#include <string>

namespace counted {

constexpr int few = 1'000;
constexpr int many = 100'000;

/// Codes of the same length in both catalogues, so that nothing but the number of records differs.
inline std::string codeOf(int product) {
    return "A-" + std::to_string(1'000'000 + product);
}

/// A folder with a catalogue of so many products in the first of as many groups.
inline std::filesystem::path catalogOf(int products) {
    support::CatalogBuilder builder;
    for (int product = 1; product <= products; ++product) {
        builder.products.push_back(
            {.text = codeOf(product) + "\nHexagon bolt\nBox", .price = 1.25F, .taxRate = 20});
        builder.groups.push_back({.name = "Bolts", .headerRecord = product, .firstChild = 0, .parent = 1});
    }
    // Names of one length: a path, too, takes memory.
    const auto folder = support::testFolder(std::to_string(1'000'000 + products));
    builder.writeTo(folder);
    return folder;
}

}
