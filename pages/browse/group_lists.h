#pragma once

#include "catalog/catalog.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace pages {

/// An entry of a group list: what it says, and the record in Prdlst.dat for which it stands. The text
/// lives as long as the catalogue's files.
struct GroupEntry {
    std::string_view text;
    std::int32_t record = 0;
};

/// What stands in a list that a choice has prepared and nobody has opened yet. It selects nothing.
inline constexpr std::string_view pleaseSelect = "Please Select";

inline constexpr int groupListCount = 4;

/// The row of group lists `GDB(0)` to `GDB(3)`, numbered from 0. Groups that have no own record are left out.
/// Damaged files end every walk. The catalogue must outlive it.
class GroupLists {
public:
    /// Fills the first list.
    explicit GroupLists(const catalog::Catalog& catalog);

    [[nodiscard]] const std::vector<GroupEntry>& entries(int list) const {
        return m_lists.at(at(list)).entries;
    }

    /// The user has chosen an entry: its record number, or 0 where the entry selects nothing. Choosing a
    /// group prepares the next list, which then holds "Please Select" only.
    struct Choice {
        std::int32_t record = 0;
        bool preparedNext = false;
    };

    Choice choose(int list, int entry);

    /// The user enters or opens a list: one with fewer than two entries is filled. True when it changed.
    bool enter(int list);

private:
    struct List {
        std::vector<GroupEntry> entries;
        std::optional<std::int32_t> start = std::nullopt; // the record that it starts at
    };

    static std::size_t at(int list) { return static_cast<std::size_t>(list); }

    const catalog::Catalog& m_catalog;
    std::array<List, groupListCount> m_lists;
};

}
