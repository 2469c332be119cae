#pragma once

#include "catalog/parameters.h"
#include "catalog/records.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The records of the data files made from values; the inverse of the views in records.h, with which
/// they share every offset. Texts longer than their field are cut, so check lengths before.
namespace catalog {

template <typename Record>
using Bytes = std::array<std::byte, Record::length>;

struct ParameterValues {
    std::string catalogPassword;
    std::string resetPassword;
    char groupPageStyle = 'I';
    bool chargesTax = true;
    bool orderGridHasOtherColumn = true;
    int quantityDecimals = 0;
    std::string version;
    char otherColumnAlignment = 'L';
    std::array<std::string, Parameters::recordCount + 1> texts; ///< by record number; 0 and 1 unused

    [[nodiscard]] std::string& text(ParameterText which) { return texts.at(static_cast<std::size_t>(which)); }

    [[nodiscard]] const std::string& text(ParameterText which) const {
        return texts.at(static_cast<std::size_t>(which));
    }
};

struct ProductValues {
    bool isProduct = true; ///< else a group's header record
    std::int16_t group = 0;
    std::string_view text; ///< code, description and other text, separated by line feeds
    float taxRate = 0;
    float price = 0;
    std::string_view picture;
    std::int32_t memoPosition = 0; ///< from 1; 0 for none
    std::int16_t memoLength = 0;
};

struct GroupValues {
    std::string_view name;
    std::int32_t headerRecord = 0;
    std::int32_t firstChild = 0;
    std::int32_t parent = 0;
};

/// The whole of PrdPrm.dat.
[[nodiscard]] std::array<std::byte, Parameters::recordCount * ParameterHeader::length>
encode(const ParameterValues& values);

[[nodiscard]] Bytes<ProductRecord> encode(const ProductValues& values);
[[nodiscard]] Bytes<GroupRecord> encode(const GroupValues& values);
[[nodiscard]] Bytes<IndexRecord> encodeIndex(const std::array<char, IndexRecord::keyField.width>& key,
                                             std::int32_t product);

}
