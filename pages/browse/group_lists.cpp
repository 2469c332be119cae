#include "pages/browse/group_lists.h"

#include "pages/group_entries.h"

namespace pages {
namespace {

constexpr std::size_t fewestFilled = 2;

// A list has no limit. A group that has no own record could lead nowhere, so it is left out.
std::vector<GroupEntry> groupsFrom(const catalog::Catalog& catalog, std::int32_t first) {
    std::vector<GroupEntry> entries;
    for (const auto number : siblingsFrom(catalog.groups, first)) {
        const auto group = catalog.groups.at(number);
        if (group.headerRecord() != 0)
            entries.push_back({group.name(), group.headerRecord()});
    }
    return entries;
}

std::vector<GroupEntry> productsFrom(const catalog::Catalog& catalog, std::int32_t first) {
    std::vector<GroupEntry> entries;
    const auto group = catalog.products.at(first).group();
    for (auto number = first; number <= catalog.products.count(); ++number) {
        const auto record = catalog.products.at(number);
        if (record.group() != group)
            break;
        entries.push_back({record.descriptionLine(), number});
    }
    return entries;
}

std::vector<GroupEntry> listEntries(const catalog::Catalog& catalog, std::int32_t start) {
    const auto record = catalog.products.at(start);
    return record.isProduct() ? productsFrom(catalog, start) : groupsFrom(catalog, record.group());
}

}

GroupLists::GroupLists(const catalog::Catalog& catalog) : m_catalog(catalog) {
    m_lists.front().entries = groupsFrom(catalog, firstTopGroup);
}

GroupLists::Choice GroupLists::choose(int list, int entry) {
    const auto& chosen = entries(list).at(static_cast<std::size_t>(entry));
    if (chosen.record < 1 || chosen.record > m_catalog.products.count())
        return {};
    const bool prepares = list + 1 < groupListCount && m_catalog.products.at(chosen.record).flag() == 'N';
    if (prepares) {
        auto& next = m_lists.at(at(list + 1));
        next.entries = {{pleaseSelect, 0}};
        next.start = chosen.record + 1;
    }
    return {chosen.record, prepares};
}

bool GroupLists::enter(int list) {
    auto& entered = m_lists.at(at(list));
    if (entered.entries.size() >= fewestFilled || !entered.start)
        return false;
    entered.entries = listEntries(m_catalog, *entered.start);
    return true;
}

}
