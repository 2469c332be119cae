#pragma once

#include "publish/lists/product_list.h"

#include <filesystem>
#include <string>
#include <vector>

namespace support {

/// What a product list became; texts are UTF-8.
struct ReadList {
    std::string summary;
    std::vector<std::string>
        products; ///< "Bolts/Hex: B-1 | Hex bolt | 1.5"; further fields that are not empty behind
    publish::ListMapping mapping;
    publish::Complaints complaints;

    /// "list.csv:3 number-unreadable", one for each complaint.
    [[nodiscard]] std::vector<std::string> rules() const;
};

[[nodiscard]] ReadList readList(const std::filesystem::path& file, const publish::ListMapping& mapping = {});

/// Of a file with these bytes in the test's folder.
[[nodiscard]] ReadList readListOf(const std::string& bytes, const publish::ListMapping& mapping = {},
                                  const std::string& name = "list.csv");

}
