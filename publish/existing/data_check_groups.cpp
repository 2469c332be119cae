#include "catalog/catalog.h"
#include "pages/browse/group_lists.h"
#include "pages/group_entries.h"
#include "publish/existing/data_tables.h"
#include "publish/existing/readable_text.h"

#include <string>

namespace publish {
namespace {

constexpr std::int32_t root = 1;

class GroupCheck {
public:
    GroupCheck(const DataTables& tables, Findings& findings) : m_tables(tables), m_findings(findings) {}

    void run() {
        countEntries();
        findCircles();
        for (std::int32_t number = root; number <= m_tables.groups.count(); ++number)
            checkGroup(number);
        for (std::int32_t number = 1; number <= m_tables.products.count(); ++number)
            checkPlace(number);
    }

private:
    void countEntries() {
        const auto size = static_cast<std::size_t>(m_tables.groups.count()) + 1;
        m_entries.resize(size);
        m_isOwn.resize(static_cast<std::size_t>(m_tables.products.count()) + 1);
        for (std::int32_t number = root; number <= m_tables.groups.count(); ++number) {
            const auto group = m_tables.groups.at(number);
            if (number > root && m_tables.holdsGroup(group.parent()))
                ++m_entries[index(group.parent())];
            if (m_tables.holdsProduct(group.headerRecord()))
                m_isOwn[index(group.headerRecord())] = true;
        }
        for (std::int32_t number = 1; number <= m_tables.products.count(); ++number)
            if (const auto record = m_tables.products.at(number);
                record.isProduct() && m_tables.holdsGroup(groupOf(record)))
                ++m_entries[index(groupOf(record))];
    }

    // Walks up from every group, marking the way; who meets its own mark is in a circle.
    void findCircles() {
        std::vector<std::int32_t> walk(m_entries.size()); // the group from which each was passed first
        m_levels.resize(m_entries.size());
        for (std::int32_t start = root + 1; start <= m_tables.groups.count(); ++start) {
            std::vector<std::int32_t> way;
            auto at = start;
            for (; at > root && m_tables.holdsGroup(at) && walk[index(at)] == 0; at = parent(at)) {
                walk[index(at)] = start;
                way.push_back(at);
            }
            if (at > root && m_tables.holdsGroup(at) && walk[index(at)] == start)
                error(at, "group-circle",
                      "leads back to itself through the groups above it; no list reaches it");
            for (; !way.empty(); way.pop_back())
                m_levels[index(way.back())] = levelOf(parent(way.back())) + 1;
        }
    }

    void checkGroup(std::int32_t number) {
        const auto group = m_tables.groups.at(number);
        if (group.name().empty())
            warning(number, "group-name-empty", "has no name; the lists show an empty line");
        if (m_entries[index(number)] > pages::mostGroupEntries)
            warning(number, "group-large",
                    "has " + std::to_string(m_entries[index(number)]) +
                        " entries; its page lists the first 50");
        if (m_levels[index(number)] == pages::groupListCount)
            warning(number, "group-deep",
                    "lies too deep; the viewer has four lists, so none is left for what it "
                    "holds");
        checkOwnRecord(number, group);
        checkLinks(number, group);
    }

    void checkOwnRecord(std::int32_t number, const catalog::GroupRecord& group) {
        const auto own = group.headerRecord();
        if (own == 0) {
            if (number != root)
                warning(number, "group-without-record", "has no record of its own; the lists leave it out");
            return;
        }
        if (!m_tables.holdsProduct(own))
            return error(number, "group-record",
                         "has the own record " + std::to_string(own) +
                             ", which does not exist; choosing it does nothing");
        const auto record = m_tables.products.at(own);
        if (record.isProduct())
            error(number, "group-record-product",
                  "has a product as its own record; choosing it opens no list");
        else if (groupOf(record) != number)
            error(number, "group-record-other",
                  "has the own record of another group; its page lists what that "
                  "one holds");
        else
            checkContents(number, group);
    }

    // The lists go by the record behind the group's own one.
    void checkContents(std::int32_t number, const catalog::GroupRecord& group) {
        const auto behind = group.headerRecord() + 1;
        const auto next = m_tables.products.at(behind);
        const bool holdsGroups = group.firstChild() >= 1 || number == root;
        if (!holdsGroups && (!m_tables.holdsProduct(behind) || !next.isProduct() || groupOf(next) != number))
            warning(number, "group-empty",
                    "has no product behind its own record; its page and list show what "
                    "follows there, if anything");
        if (holdsGroups && next.isProduct())
            warning(number, "group-mixed",
                    "holds groups, but a product stands behind its own record; its page "
                    "lists the groups only, its list the products only");
        else if (number != root && group.firstChild() >= 1 && groupOf(next) != group.firstChild())
            error(number, "group-list",
                  "is not followed by the own record of its first group; its list begins "
                  "with another one and lacks those before");
    }

    void checkLinks(std::int32_t number, const catalog::GroupRecord& group) {
        const auto child = group.firstChild();
        if (child >= 1 && !m_tables.holdsGroup(child))
            error(number, "group-child", "has a first group that does not exist; its page lists nothing");
        else if (child >= 1 && parent(child) != number)
            error(number, "group-child",
                  "has the group of another one as its first; its page lists that one's");
        if (number == root)
            return;
        if (group.parent() != 0 && !m_tables.holdsGroup(group.parent()))
            error(number, "group-parent",
                  "lies in the group " + std::to_string(group.parent()) +
                      ", which does not exist; its page names no group");
        const bool isFirst =
            number == pages::firstTopGroup || m_tables.groups.at(group.parent()).firstChild() == number;
        if (!isFirst && parent(number - 1) != group.parent())
            error(number, "group-apart",
                  "does not stand with the other groups of the one in which it lies; no "
                  "list and no page shows it");
    }

    // Products stand behind their group's own record or behind each other.
    void checkPlace(std::int32_t number) {
        const auto record = m_tables.products.at(number);
        if (!record.isProduct()) {
            if (!m_isOwn[index(number)])
                m_findings.warning(
                    catalog::productsFile, number, "record-stray",
                    "it is neither a product nor the own record of a group; it is a row of the "
                    "list, and no group leads to it");
            return;
        }
        const bool follows = number > 1 && groupOf(m_tables.products.at(number - 1)) == groupOf(record);
        if (!follows && m_tables.holdsGroup(groupOf(record)))
            m_findings.error(
                catalog::productsFile, number, "product-apart",
                "it does not stand with the other products of its group; no list and no page of a "
                "group shows it");
    }

    [[nodiscard]] int levelOf(std::int32_t group) const {
        return group > root && m_tables.holdsGroup(group) ? m_levels[index(group)] : 0;
    }

    [[nodiscard]] std::int32_t parent(std::int32_t group) const { return m_tables.groups.at(group).parent(); }

    static std::size_t index(std::int32_t number) { return static_cast<std::size_t>(number); }

    [[nodiscard]] std::string named(std::int32_t group) const {
        return "the group \"" + readableLine(m_tables.groups.at(group).name()) + "\" ";
    }

    void error(std::int32_t group, const char* rule, const std::string& text) {
        m_findings.error(catalog::groupsFile, group, rule, named(group) + text);
    }

    void warning(std::int32_t group, const char* rule, const std::string& text) {
        m_findings.warning(catalog::groupsFile, group, rule, named(group) + text);
    }

    const DataTables& m_tables;
    Findings& m_findings;
    std::vector<std::size_t> m_entries; // groups and products in each group
    std::vector<int> m_levels;          // below the root
    std::vector<bool> m_isOwn;          // by record: of a group
};

}

void checkGroups(const DataTables& tables, Findings& findings) {
    GroupCheck(tables, findings).run();
}

}
