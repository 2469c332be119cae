#include "base/code_page.h"
#include "base/errors.h"
#include "base/numbers.h"
#include "publish/catalog_source.h"
#include "publish/existing/export/source_texts.h"
#include "publish/existing/own_records.h"
#include "publish/existing/readable_text.h"
#include "publish/existing/shown_numbers.h"
#include "publish/source/group_tree.h"

#include <algorithm>
#include <fstream>
#include <limits>

namespace publish {
namespace fs = std::filesystem;

namespace {

// Damaged catalogues may have a small file of texts and a hundred thousand products that share them.
constexpr std::size_t sharedTextsLimit = 64U << 20U;
constexpr std::size_t mostCopies = 4;

class TableFile {
public:
    explicit TableFile(const fs::path& path) : m_path(path), m_file(path, std::ios::binary) {}

    void write(std::string& row) {
        row.back() = '\n'; // in place of the last comma
        m_file.write(row.data(), static_cast<std::streamsize>(row.size()));
        row.clear();
    }

    void close() {
        m_file.close();
        if (!m_file)
            throw base::FileError("Cannot write " + base::textOf(m_path) +
                                  "\nPlease check that the disk is not full and that you may write there");
    }

private:
    fs::path m_path;
    std::ofstream m_file;
};

class TableWriter {
public:
    TableWriter(const catalog::Catalog& catalog, const fs::path& folder)
        : m_catalog(catalog),
          m_folder(folder),
          m_tree(catalog.groups),
          m_own(ownRecordsOf(catalog, m_tree)),
          m_textsLeft(catalog.memos.file().bytes().size() * mostCopies + sharedTextsLimit) {
        for (auto group = GroupPaths::root; group <= m_tree.count(); ++group)
            m_paths.push_back(readableLine(m_tree.path(group)));
    }

    LeftOut run() {
        writeGroups();
        writeProducts();
        return m_left;
    }

private:
    void writeGroups() {
        const auto order = groupsInOrder();
        m_hasNames =
            std::any_of(order.begin(), order.end(), [&](auto group) { return !nameOf(group).empty(); });
        TableFile file(m_folder / groupsSource);
        m_row = m_hasNames ? "group,name,code,description,other,picture,details,"
                           : "group,code,description,other,picture,details,";
        file.write(m_row);
        for (const auto group : order) {
            writeGroup(group);
            file.write(m_row);
        }
        file.close();
    }

    void writeGroup(std::int32_t group) {
        put(pathOf(group));
        if (m_hasNames)
            put(nameOf(group));
        const auto number = m_own.at(static_cast<std::size_t>(group));
        if (number == 0) {
            put(noText);
            m_row += ",,,,";
            return;
        }
        const auto record = m_catalog.products.at(number);
        putOrNone(record.code());
        putOrNone(record.descriptionLine());
        putEntry(record, [] {});
    }

    void writeProducts() {
        TableFile file(m_folder / productsSource);
        m_row = "group,code,description,other,price,tax,picture,details,";
        file.write(m_row);
        const auto& products = m_catalog.products;
        auto group = GroupPaths::root; // an unknown one counts as that of the product before
        for (std::int32_t number = 1; number <= products.count(); ++number) {
            const auto record = products.at(number);
            if (!record.isProduct()) {
                if (!std::binary_search(m_sortedOwn.begin(), m_sortedOwn.end(), number))
                    ++m_left.strayRecords;
                continue;
            }
            const std::int32_t wanted = record.group() == 0 ? GroupPaths::root : record.group();
            group = m_tree.holds(wanted) ? wanted : group;
            writeProduct(record, group);
            file.write(m_row);
        }
        file.close();
    }

    void writeProduct(const catalog::ProductRecord& record, std::int32_t group) {
        put(pathOf(group));
        put(readableLine(record.code()));
        put(readableLine(record.descriptionLine()));
        putEntry(record, [&] {
            put(priceText(record.price()));
            put(base::textOf(record.taxRate()));
        });
    }

    // What products and groups have in common behind the description.
    template <typename PutNumbers>
    void putEntry(const catalog::ProductRecord& record, PutNumbers putNumbers) {
        put(readableLines(record.other()));
        putNumbers();
        put(readableLine(record.pictureName()));
        put(readableLines(detailsOf(record)));
    }

    std::string_view detailsOf(const catalog::ProductRecord& record) {
        const auto text = m_catalog.memos.text(record.memoPosition(), record.memoLength());
        if (text.size() > m_textsLeft) {
            ++m_left.longDescriptions;
            return {};
        }
        m_textsLeft -= text.size();
        return text;
    }

    void put(std::string_view utf8) {
        appendField(m_row, utf8);
        m_row += ',';
    }

    void putOrNone(std::string_view text) {
        const auto readable = readableLine(text);
        put(readable.empty() ? noText : readable);
    }

    [[nodiscard]] const std::string& pathOf(std::int32_t group) const {
        return m_paths.at(static_cast<std::size_t>(group) - 1);
    }

    // Where it cannot stand in the path.
    [[nodiscard]] std::string nameOf(std::int32_t group) const {
        const auto name = readableLine(m_catalog.groupName(group));
        if (group > m_catalog.groups.count() || name == readableLine(m_tree.step(group)))
            return {};
        return name.empty() ? noText : name;
    }

    // Parents before children, siblings as their records come.
    [[nodiscard]] std::vector<std::int32_t> groupsInOrder() const {
        std::vector<std::vector<std::int32_t>> children(m_own.size());
        for (auto group = m_tree.count(); group > GroupPaths::root; --group)
            children[static_cast<std::size_t>(m_tree.parent(group))].push_back(group);
        std::vector<std::int32_t> order;
        std::vector<std::int32_t> waiting{GroupPaths::root};
        while (!waiting.empty()) {
            order.push_back(waiting.back());
            waiting.pop_back();
            auto& next = children[static_cast<std::size_t>(order.back())];
            std::stable_sort(next.begin(), next.end(), [&](auto a, auto b) {
                return placeOf(a) > placeOf(b);
            }); // the last goes on first
            waiting.insert(waiting.end(), next.begin(), next.end());
        }
        return order;
    }

    [[nodiscard]] std::int32_t placeOf(std::int32_t group) const {
        const auto own = m_own.at(static_cast<std::size_t>(group));
        return own == 0 ? std::numeric_limits<std::int32_t>::max() : own;
    }

    const catalog::Catalog& m_catalog;
    fs::path m_folder;
    GroupPaths m_tree;
    std::vector<std::int32_t> m_own;
    std::vector<std::int32_t> m_sortedOwn = [this] {
        auto sorted = m_own;
        std::sort(sorted.begin(), sorted.end());
        return sorted;
    }();
    std::vector<std::string> m_paths; // by group number - 1, UTF-8
    std::size_t m_textsLeft;
    bool m_hasNames = false;
    std::string m_row;
    LeftOut m_left;
};

}

LeftOut writeTables(const catalog::Catalog& catalog, const fs::path& sourceFolder) {
    return TableWriter(catalog, sourceFolder).run();
}

}
