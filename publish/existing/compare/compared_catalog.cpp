#include "publish/existing/compare/compared_catalog.h"

#include "base/code_page.h"
#include "base/text.h"
#include "publish/existing/catalog_files.h"
#include "publish/existing/own_records.h"
#include "publish/existing/readable_text.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace publish {
namespace {

using Key = std::array<char, catalog::IndexRecord::keyField.width>;

struct KeyedRecord {
    Key key;
    std::int32_t record;
};

// A product without a code goes by the beginning of its description, which no code can equal.
Key keyOf(const catalog::ProductRecord& record) {
    const auto code = record.code();
    return code.empty() ? catalog::indexKey("\n" + std::string(record.descriptionLine()))
                        : catalog::indexKey(code);
}

// Ascending by key, equal ones in the order of their records.
std::vector<KeyedRecord> productsByKey(const catalog::Catalog& catalog) {
    std::vector<KeyedRecord> keyed;
    keyed.reserve(static_cast<std::size_t>(catalog.products.count()));
    for (std::int32_t number = 1; number <= catalog.products.count(); ++number)
        if (const auto record = catalog.products.at(number); record.isProduct())
            keyed.push_back({keyOf(record), number});
    std::sort(keyed.begin(), keyed.end(), [](const KeyedRecord& a, const KeyedRecord& b) {
        return a.key != b.key ? a.key < b.key : a.record < b.record;
    });
    return keyed;
}

// What only the older one has goes to the end.
void sortByNewer(Pairs& pairs) {
    std::sort(pairs.begin(), pairs.end(), [](const auto& a, const auto& b) {
        const bool aIsGone = a.second == 0;
        const bool bIsGone = b.second == 0;
        return aIsGone != bIsGone ? bIsGone : aIsGone ? a.first < b.first : a.second < b.second;
    });
}

std::map<std::string, std::int32_t> byPath(const ComparedCatalog& catalog) {
    std::map<std::string, std::int32_t> groups;
    for (auto group = GroupPaths::root; group <= catalog.groups().count(); ++group)
        groups.emplace(catalog.groups().path(group), group);
    return groups;
}

std::string ownCode(const ComparedCatalog& catalog, std::int32_t group) {
    return base::upper(catalog.catalog().products.at(catalog.ownRecord(group)).code());
}

// Groups that have no fellow yet, by the code of their own record; the first of each code.
std::map<std::string, std::int32_t> singlesByCode(const ComparedCatalog& catalog,
                                                  const std::vector<std::int32_t>& fellows) {
    std::map<std::string, std::int32_t> groups;
    for (auto group = GroupPaths::root; group <= catalog.groups().count(); ++group)
        if (fellows[static_cast<std::size_t>(group)] == 0)
            groups.emplace(ownCode(catalog, group), group);
    groups.erase("");
    return groups;
}

std::vector<std::int32_t> noFellows(const ComparedCatalog& catalog) {
    return std::vector<std::int32_t>(static_cast<std::size_t>(catalog.groups().count()) + 1);
}

template <typename Value>
void pairEqual(const std::map<std::string, Value>& older, const std::map<std::string, Value>& newer,
               std::vector<std::int32_t>& ofOlder, std::vector<std::int32_t>& ofNewer) {
    for (const auto& [key, group] : newer)
        if (const auto found = older.find(key); found != older.end()) {
            ofOlder[static_cast<std::size_t>(found->second)] = group;
            ofNewer[static_cast<std::size_t>(group)] = found->second;
        }
}

}

ComparedCatalog::ComparedCatalog(const std::filesystem::path& folder)
    : m_folder(folder),
      m_catalog(openedCatalog(folder)),
      m_groups(m_catalog.groups),
      m_own(ownRecordsOf(m_catalog, m_groups)) {}

std::int32_t ComparedCatalog::groupOf(std::int32_t record) const {
    const std::int32_t group = m_catalog.products.at(record).group();
    return group == 0 ? GroupPaths::root : m_groups.holds(group) ? group : 0;
}

std::string ComparedCatalog::groupPath(std::int32_t group) const {
    return group == 0 ? std::string() : readableLine(m_groups.path(group));
}

Named ComparedCatalog::named(std::int32_t record) const {
    const auto bytes = m_catalog.products.at(record);
    return {readableLine(bytes.code()), readableLine(bytes.descriptionLine()), groupPath(groupOf(record))};
}

Pairs pairedProducts(const catalog::Catalog& older, const catalog::Catalog& newer) {
    const auto before = productsByKey(older);
    const auto after = productsByKey(newer);
    Pairs pairs;
    pairs.reserve(std::max(before.size(), after.size()));
    auto a = before.begin();
    auto b = after.begin();
    while (a != before.end() || b != after.end()) {
        const bool takesA = b == after.end() || (a != before.end() && a->key <= b->key);
        const bool takesB = a == before.end() || (b != after.end() && b->key <= a->key);
        pairs.emplace_back(takesA ? a->record : 0, takesB ? b->record : 0);
        a += takesA ? 1 : 0;
        b += takesB ? 1 : 0;
    }
    sortByNewer(pairs);
    return pairs;
}

Pairs pairedGroups(const ComparedCatalog& older, const ComparedCatalog& newer) {
    auto ofOlder = noFellows(older);
    auto ofNewer = noFellows(newer);
    pairEqual(byPath(older), byPath(newer), ofOlder, ofNewer);
    pairEqual(singlesByCode(older, ofOlder), singlesByCode(newer, ofNewer), ofOlder, ofNewer);
    Pairs pairs;
    for (auto group = GroupPaths::root; group <= newer.groups().count(); ++group)
        pairs.emplace_back(ofNewer[static_cast<std::size_t>(group)], group);
    for (auto group = GroupPaths::root; group <= older.groups().count(); ++group)
        if (ofOlder[static_cast<std::size_t>(group)] == 0)
            pairs.emplace_back(group, 0);
    return pairs;
}

}
