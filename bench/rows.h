#pragma once

#include <string>
#include <vector>

namespace bench {

/// What a row of the product grid needs of its record.
struct Row {
    std::string code;
    std::string description;
    std::string other;
    float taxRate;
    float price;

    friend bool operator==(const Row&, const Row&) = default;
};

using Rows = std::vector<Row>;

}
