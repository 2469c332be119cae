#include "order/news/catalog_news.h"

#include "base/code_page.h"
#include "base/errors.h"

#include <algorithm>
#include <string_view>

namespace order {
namespace {

using catalog::IndexRecord;
using catalog::ProductRecord;
using catalog::ProductTable;
using Index = catalog::Table<IndexRecord>;
using Key = std::array<char, IndexRecord::keyField.width>;

std::string_view viewOf(const Key& key) {
    return {key.data(), key.size()};
}

[[noreturn]] void refuseDamaged(const base::MappedFile& file) {
    throw base::FileError("What is new cannot be told, since " + base::textOf(file.path()) +
                          " is damaged\nIt can be told again after your supplier's next catalogue");
}

/// Goes through an index, one entry a key. Throws where the keys do not ascend.
class Keys {
public:
    explicit Keys(const Index& index) : m_index(index) {
        m_index.readAhead();
        read();
    }

    [[nodiscard]] bool atEnd() const { return m_number > m_index.count(); }

    [[nodiscard]] std::string_view key() const { return m_key; }

    [[nodiscard]] std::int32_t product() const { return m_index.at(m_number).product(); }

    void goOn() {
        const auto last = m_key;
        while (++m_number <= m_index.count()) {
            read();
            if (m_key > last)
                return;
            if (m_key < last)
                refuseDamaged(m_index.file());
        }
    }

private:
    void read() { m_key = m_index.at(m_number).key(); }

    const Index& m_index;
    std::int32_t m_number = 1;
    std::string_view m_key;
};

/// The codes that were ordered as keys, asked for in ascending order.
class OrderedKeys {
public:
    explicit OrderedKeys(std::span<const std::string> codes) {
        m_keys.reserve(codes.size());
        for (const auto& code : codes)
            m_keys.push_back(catalog::indexKey(code));
        std::sort(m_keys.begin(), m_keys.end(),
                  [](const Key& a, const Key& b) { return viewOf(a) < viewOf(b); });
    }

    [[nodiscard]] bool holds(std::string_view key) {
        while (m_at < m_keys.size() && viewOf(m_keys[m_at]) < key)
            ++m_at;
        return m_at < m_keys.size() && viewOf(m_keys[m_at]) == key;
    }

private:
    std::vector<Key> m_keys;
    std::size_t m_at = 0;
};

/// The records of an article; 0 where a catalogue does not have it.
struct Records {
    std::int32_t before;
    std::int32_t now;
};

/// All news of one kind are counted, and those that come first are kept.
class Collected {
public:
    void add(const Records& records, bool ordered) {
        ++m_count;
        const Item item{!ordered, records.now != 0 ? records.now : records.before, records};
        if (m_first.size() == mostShownNews) {
            if (!(item < m_first.front()))
                return;
            std::pop_heap(m_first.begin(), m_first.end());
            m_first.pop_back();
        }
        m_first.push_back(item);
        std::push_heap(m_first.begin(), m_first.end());
    }

    [[nodiscard]] NewsOfAKind take(const ProductTable& before, const ProductTable& now) {
        std::sort_heap(m_first.begin(), m_first.end());
        NewsOfAKind news{m_count, {}};
        for (const auto& item : m_first) {
            const auto shown = item.records.now != 0 ? now.at(item.place) : before.at(item.place);
            news.first.push_back({std::string(shown.code()), std::string(shown.descriptionLine()),
                                  before.at(item.records.before).price(), now.at(item.records.now).price(),
                                  !item.comesLater, item.place});
        }
        return news;
    }

private:
    struct Item {
        bool comesLater;
        std::int32_t place;
        Records records;

        bool operator<(const Item& other) const {
            return comesLater != other.comesLater ? other.comesLater : place < other.place;
        }
    };

    std::size_t m_count = 0;
    std::vector<Item> m_first; // a heap with the last of them on top
};

/// An entry may name any record, so it counts only where that has its key.
bool holdsArticle(const ProductRecord& record, std::string_view key) {
    return record.isProduct() && !record.code().empty() && viewOf(catalog::indexKey(record.code())) == key;
}

class Comparison {
public:
    Comparison(const ProductTable& before, const ProductTable& now, std::span<const std::string> ordered)
        : m_before(before), m_now(now), m_ordered(ordered) {}

    // Most articles are what they were, which their prices tell.
    void look(std::string_view key, Records records) {
        const auto before = m_before.at(records.before);
        const auto now = m_now.at(records.now);
        if (before.isProduct() && now.isProduct() && before.price() == now.price())
            return;
        if (!holdsArticle(before, key))
            records.before = 0;
        if (!holdsArticle(now, key))
            records.now = 0;
        if (records.before != 0 || records.now != 0)
            kindOf(records, before.price(), now.price()).add(records, m_ordered.holds(key));
    }

    [[nodiscard]] CatalogNews take() {
        return {m_up.take(m_before, m_now), m_down.take(m_before, m_now), m_added.take(m_before, m_now),
                m_gone.take(m_before, m_now)};
    }

private:
    [[nodiscard]] Collected& kindOf(const Records& records, float before, float now) {
        if (records.before == 0)
            return m_added;
        if (records.now == 0)
            return m_gone;
        return now > before ? m_up : m_down;
    }

    const ProductTable& m_before;
    const ProductTable& m_now;
    OrderedKeys m_ordered;
    Collected m_up;
    Collected m_down;
    Collected m_added;
    Collected m_gone;
};

/// False when it was stopped.
bool walk(Keys before, Keys now, Comparison& comparison, const std::stop_token& stop) {
    constexpr unsigned stepsBetweenQuestions = 4096;
    for (unsigned step = 0; !before.atEnd() || !now.atEnd(); ++step) {
        if (step % stepsBetweenQuestions == 0 && stop.stop_requested())
            return false;
        const bool takesBefore = !before.atEnd() && (now.atEnd() || before.key() <= now.key());
        const bool takesNow = !now.atEnd() && (before.atEnd() || now.key() <= before.key());
        comparison.look(takesBefore ? before.key() : now.key(),
                        {takesBefore ? before.product() : 0, takesNow ? now.product() : 0});
        if (takesBefore)
            before.goOn();
        if (takesNow)
            now.goOn();
    }
    return true;
}

// Only a catalogue without codes has none; else every article would be new or gone.
void requireEntries(const Index& index, const ProductTable& products) {
    for (std::int32_t record = 1; index.count() == 0 && record <= products.count(); ++record)
        if (const auto product = products.at(record); product.isProduct() && !product.code().empty())
            refuseDamaged(index.file());
}

}

std::array<const base::MappedFile*, 2> EarlierArticles::openFiles() const {
    return {&products.file(), &codes.file()};
}

EarlierArticles openEarlier(const std::filesystem::path& folder) {
    try {
        return {ProductTable(folder / catalog::productsFile), Index(folder / catalog::indexFile)};
    } catch (const base::MissingFile&) {
        throw base::FileError("What is new cannot be told, since files in " + base::textOf(folder) +
                              " cannot be read\nIt can be told again after your supplier's next catalogue");
    }
}

std::optional<CatalogNews> newsOf(const catalog::Catalog& now, const EarlierArticles& earlier,
                                  std::span<const std::string> ordered, const std::stop_token& stop) {
    requireEntries(earlier.codes, earlier.products);
    requireEntries(now.codes.entries(), now.products);
    now.products.readAhead();
    earlier.products.readAhead();
    Comparison comparison(earlier.products, now.products, ordered);
    if (!walk(Keys(earlier.codes), Keys(now.codes.entries()), comparison, stop))
        return std::nullopt;
    auto news = comparison.take();
    now.requireWhole();
    for (const auto* file : earlier.openFiles())
        if (!file->isWhole())
            refuseDamaged(*file);
    return news;
}

}
