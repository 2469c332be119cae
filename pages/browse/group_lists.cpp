#include "pages/browse/group_lists.h"

namespace pages {
namespace {

constexpr std::int32_t firstTopGroup = 2;
constexpr std::size_t fewestFilled = 2;

// The groups from this one on that share its parent, without those that have no own record.
std::vector<GroupEntry> siblingsFrom(const catalog::Catalog& catalog, std::int32_t first) {
    std::vector<GroupEntry> entries;
    if (first < 1 || first > catalog.groups.count())
        return entries;
    const auto parent = catalog.groups.at(first).parent();
    for (auto number = first; number <= catalog.groups.count(); ++number) {
        const auto group = catalog.groups.at(number);
        if (group.parent() != parent)
            break;
        if (group.headerRecord() != 0)
            entries.push_back({group.name(), group.headerRecord()});
    }
    return entries;
}

std::string_view withoutLineEnd(std::string_view description) {
    if (description.ends_with('\n'))
        description.remove_suffix(1);
    return base::trim(description);
}

std::vector<GroupEntry> productsFrom(const catalog::Catalog& catalog, std::int32_t first) {
    std::vector<GroupEntry> entries;
    const auto group = catalog.products.at(first).group();
    for (auto number = first; number <= catalog.products.count(); ++number) {
        const auto record = catalog.products.at(number);
        if (record.group() != group)
            break;
        entries.push_back({withoutLineEnd(record.description()), number});
    }
    return entries;
}

struct EntriesOf {
    const catalog::Catalog& catalog;

    std::vector<GroupEntry> operator()(std::monostate) const { return {}; }

    std::vector<GroupEntry> operator()(FromRecord start) const {
        const auto record = catalog.products.at(start.record);
        return record.isProduct() ? productsFrom(catalog, start.record)
                                  : siblingsFrom(catalog, record.group());
    }

    std::vector<GroupEntry> operator()(FromParentOf start) const {
        const auto parent = catalog.groups.at(start.group).parent();
        return siblingsFrom(catalog, catalog.groups.at(parent).firstChild());
    }
};

}

std::vector<GroupEntry> listEntries(const catalog::Catalog& catalog, const ListStart& start) {
    return std::visit(EntriesOf{catalog}, start);
}

std::vector<GroupEntry> firstListEntries(const catalog::Catalog& catalog) {
    return siblingsFrom(catalog, firstTopGroup);
}

GroupLists::GroupLists(const catalog::Catalog& catalog) : m_catalog(catalog) {
    m_lists.front().entries = firstListEntries(catalog);
}

GroupLists::Choice GroupLists::choose(int list, int entry) {
    const auto& chosen = entries(list).at(static_cast<std::size_t>(entry));
    if (chosen.record < 1 || chosen.record > m_catalog.products.count())
        return {};
    const bool prepares = list + 1 < groupListCount && m_catalog.products.at(chosen.record).flag() == 'N';
    if (prepares) {
        auto& next = m_lists.at(at(list + 1));
        next.entries = {{pleaseSelect, 0}};
        next.start = FromRecord{chosen.record + 1};
    }
    return {chosen.record, prepares};
}

bool GroupLists::enter(int list) {
    auto& entered = m_lists.at(at(list));
    if (entered.entries.size() >= fewestFilled || std::holds_alternative<std::monostate>(entered.start))
        return false;
    entered.entries = listEntries(m_catalog, entered.start);
    return true;
}

}
