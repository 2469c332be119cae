#pragma once

#include "publish/product_rows.h"

#include <memory>
#include <string>
#include <vector>

namespace support {

/// A group with its products, as a test writes it down.
struct GroupWithProducts {
    std::string name = {};
    publish::Product header = {};
    std::vector<GroupWithProducts> groups = {};
    std::vector<publish::Product> products = {};
};

/// Products in memory. Row r stands on line r + 2 of "products.csv".
class MemoryRows final : public publish::ProductRows {
public:
    std::vector<publish::Product> products;

    [[nodiscard]] std::size_t count() const override { return products.size(); }

    void readGroup(std::size_t, std::vector<std::string>& path) const override { path = {"Group"}; }

    void read(std::size_t row, publish::Product& product, publish::Complaints&) const override {
        product = products.at(row);
    }

    [[nodiscard]] publish::Place placeOf(std::size_t row, std::string_view field) const override {
        return {.file = publish::productsSource, .row = row + 2, .column = std::string(field)};
    }
};

inline publish::Group groupOf(const GroupWithProducts& from, MemoryRows& rows) {
    publish::Group group{.name = from.name, .header = from.header};
    for (const auto& product : from.products) {
        group.rows.push_back(static_cast<std::uint32_t>(rows.products.size()));
        rows.products.push_back(product);
    }
    for (const auto& child : from.groups)
        group.groups.push_back(groupOf(child, rows));
    return group;
}

/// A whole source of a tree of groups.
inline publish::CatalogSource sourceOf(const GroupWithProducts& contents,
                                       const catalog::ParameterValues& parameters = {}) {
    auto rows = std::make_shared<MemoryRows>();
    auto group = groupOf(contents, *rows);
    return {.parameters = parameters, .contents = std::move(group), .products = std::move(rows)};
}

}
