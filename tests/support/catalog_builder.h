#pragma once

#include "catalog/parameters.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// Small catalogues made by tests.
namespace support {

/// A record of Prdlst.dat; the defaults make a product without a picture name and a long description.
struct Product {
    std::string text = {}; ///< code, description and other text, separated by line feeds
    float price = 0;
    float taxRate = 0;
    std::int16_t group = 1;
    std::string memo = {};    ///< long description; empty means none
    std::string picture = {}; ///< empty means that the code names it
    char flag = 'Y';          ///< 'Y' a product, 'N' a group's own record

    /// Written in place of the memo's own position and length, for damaged files.
    struct Place {
        std::int32_t position;
        std::int16_t length;
    };

    std::optional<Place> memoPlace = std::nullopt;
};

/// A record of GrpIdx.idx.
struct Group {
    std::string name = {};
    std::int32_t headerRecord = 0; ///< in Prdlst.dat
    std::int32_t firstChild = 0;   ///< below 1 means none
    std::int32_t parent = 0;
};

/// Fill in what the test needs, then write. Records are numbered from 1 in the order given.
struct CatalogBuilder {
    std::map<catalog::ParameterText, std::string> texts;
    std::string catalogPassword;
    std::string resetPassword;
    std::string version = "00001";
    char groupPageStyle = 'I';
    char taxSwitch = 'Y';
    bool orderGridHasOtherColumn = false;
    std::uint8_t quantityDecimals = 0;
    char otherColumnAlignment = 'L';
    std::vector<Product> products;
    std::vector<Group> groups;

    /// Writes the five data files, replacing old ones. The folder is made if need be. The product index
    /// holds the products that have a code, ascending; of equal codes the first record wins.
    void writeTo(const std::filesystem::path& folder) const;
};

}
