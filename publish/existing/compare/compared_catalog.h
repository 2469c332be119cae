#pragma once

#include "catalog/catalog.h"
#include "publish/existing/compare/diff.h"
#include "publish/existing/group_paths.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace publish {

/// A catalogue that is compared with another one.
class ComparedCatalog {
public:
    explicit ComparedCatalog(const std::filesystem::path& folder);

    [[nodiscard]] const catalog::Catalog& catalog() const { return m_catalog; }

    [[nodiscard]] const GroupPaths& groups() const { return m_groups; }

    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder; }

    /// Of the product in this record; 0 where there is none.
    [[nodiscard]] std::int32_t groupOf(std::int32_t record) const;

    /// UTF-8; empty for 0.
    [[nodiscard]] std::string groupPath(std::int32_t group) const;

    /// The record that is the group's own; 0 where there is none.
    [[nodiscard]] std::int32_t ownRecord(std::int32_t group) const {
        return m_own.at(static_cast<std::size_t>(group));
    }

    /// How people call what the record stands for.
    [[nodiscard]] Named named(std::int32_t record) const;

private:
    std::filesystem::path m_folder;
    catalog::Catalog m_catalog;
    GroupPaths m_groups;
    std::vector<std::int32_t> m_own; // by group
};

/// Numbers of the older catalogue beside those of the newer one that stand for the same; 0 where one has
/// nothing. In the order of the newer one, what only the older one has behind that in its own order.
using Pairs = std::vector<std::pair<std::int32_t, std::int32_t>>;

/// Records of products.
[[nodiscard]] Pairs pairedProducts(const catalog::Catalog& older, const catalog::Catalog& newer);

/// Groups.
[[nodiscard]] Pairs pairedGroups(const ComparedCatalog& older, const ComparedCatalog& newer);

}
