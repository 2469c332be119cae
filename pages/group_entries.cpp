#include "pages/group_entries.h"

#include "base/text.h"

namespace pages {
namespace {

constexpr std::string_view tableOfContents = "TABLE OF CONTENTS";

// Group number 0 means group 1.
std::int32_t groupOf(const catalog::ProductRecord& record) {
    return record.group() == 0 ? 1 : record.group();
}

using RecordNumbers = std::vector<std::int32_t>;

RecordNumbers ownRecordsFrom(const catalog::GroupTable& groups, std::int32_t first) {
    auto numbers = siblingsFrom(groups, first, mostGroupEntries);
    for (auto& number : numbers)
        number = groups.at(number).headerRecord();
    return numbers;
}

RecordNumbers productsBehind(const catalog::ProductTable& products, std::int32_t header) {
    RecordNumbers numbers;
    if (header < 1)
        return numbers;
    const auto group = products.at(header).group();
    for (auto number = header; number < products.count() && numbers.size() < mostGroupEntries; ++number) {
        // Deliberate: the first record behind the header is listed whatever its group.
        if (!numbers.empty() && products.at(number + 1).group() != group)
            break;
        numbers.push_back(number + 1);
    }
    return numbers;
}

}

std::string_view groupDescription(const catalog::Catalog& catalog, const catalog::ProductRecord& record) {
    const auto group = groupOf(record);
    return catalog.groupName(record.isProduct() ? group : catalog.groups.at(group).parent());
}

std::vector<std::int32_t> siblingsFrom(const catalog::GroupTable& groups, std::int32_t first,
                                       std::size_t most) {
    RecordNumbers numbers;
    if (first < 1)
        return numbers;
    const auto parent = groups.at(first).parent();
    for (auto group = first; group <= groups.count() && numbers.size() < most; ++group) {
        if (groups.at(group).parent() != parent)
            break;
        numbers.push_back(group);
    }
    return numbers;
}

std::vector<std::int32_t> groupEntries(const catalog::Catalog& catalog, std::int32_t recordNumber) {
    const auto group = catalog.groups.at(groupOf(catalog.products.at(recordNumber)));
    if (base::equalIgnoringCase(group.name(), tableOfContents))
        return ownRecordsFrom(catalog.groups, firstTopGroup);
    if (group.firstChild() >= 1)
        return ownRecordsFrom(catalog.groups, group.firstChild());
    return productsBehind(catalog.products, recordNumber);
}

}
