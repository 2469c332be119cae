#include "publish/existing/compare/diff.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/mapped_file.h"
#include "base/numbers.h"
#include "base/text.h"
#include "publish/existing/catalog_files.h"
#include "publish/existing/compare/compared_catalog.h"
#include "publish/existing/compare/parameters_diff.h"
#include "publish/existing/readable_text.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace publish {
namespace {

constexpr std::string_view templateEnding = ".ect";

bool readSame(std::string_view before, std::string_view after) {
    return base::trim(before) == base::trim(after) || readableLine(before) == readableLine(after);
}

std::string beginningOf(std::string_view longDescription) {
    return readableLines(longDescription.substr(0, longestShownDetails));
}

class Comparison {
public:
    Comparison(const std::filesystem::path& older, const std::filesystem::path& newer)
        : m_old(older), m_new(newer) {}

    CatalogDiff run() {
        m_diff.parameters = changedParameters(m_old, m_new);
        compareGroups();
        for (const auto& [before, after] : pairedProducts(m_old.catalog(), m_new.catalog()))
            if (before == 0)
                m_diff.products.added.push_back(m_new.named(after));
            else if (after == 0)
                m_diff.products.gone.push_back(m_old.named(before));
            else
                compareProducts(before, after);
        for (auto* prices : {&m_diff.up, &m_diff.down})
            std::stable_sort(prices->begin(), prices->end(), [](const PriceChange& a, const PriceChange& b) {
                return std::fabs(a.percent()) > std::fabs(b.percent());
            });
        return std::move(m_diff);
    }

private:
    void compareGroups() {
        m_newGroup.resize(static_cast<std::size_t>(m_old.groups().count()) + 1);
        const auto pairs = pairedGroups(m_old, m_new);
        for (const auto& [before, after] : pairs)
            m_newGroup[static_cast<std::size_t>(before)] = after;
        m_newGroup[0] = 0;
        for (const auto& [before, after] : pairs)
            if (before == 0)
                m_diff.groups.added.push_back(m_new.groupPath(after));
            else if (after == 0)
                m_diff.groups.gone.push_back(m_old.groupPath(before));
            else
                compareGroup(before, after);
    }

    void compareGroup(std::int32_t before, std::int32_t after) {
        const auto oldName = readableLine(m_old.catalog().groupName(before));
        const auto newName = readableLine(m_new.catalog().groupName(after));
        const auto newParent = m_newGroup[static_cast<std::size_t>(m_old.groups().parent(before))];
        const auto own = std::pair(m_old.ownRecord(before), m_new.ownRecord(after));
        if (before == GroupPaths::root && oldName != newName)
            m_diff.regrouped.push_back({{}, "group", oldName, newName});
        else if (oldName != newName || newParent != m_new.groups().parent(after))
            m_diff.regrouped.push_back({{}, "group", m_old.groupPath(before), m_new.groupPath(after)});
        if (own.first != 0 && own.second != 0)
            compareTexts(own.first, own.second);
    }

    void compareProducts(std::int32_t before, std::int32_t after) {
        const auto a = m_old.catalog().products.at(before);
        const auto b = m_new.catalog().products.at(after);
        if (a.price() != b.price())
            (b.price() > a.price() ? m_diff.up : m_diff.down)
                .push_back({m_new.named(after), a.price(), b.price()});
        if (a.taxRate() != b.taxRate())
            m_diff.taxes.push_back(
                {m_new.named(after), "tax", base::textOf(a.taxRate()), base::textOf(b.taxRate())});
        const auto group = m_new.groupOf(after);
        if (m_newGroup[static_cast<std::size_t>(m_old.groupOf(before))] != group)
            m_diff.moved.push_back({m_new.named(after), "group", m_old.groupPath(m_old.groupOf(before)),
                                    m_new.groupPath(group)});
        compareTexts(before, after);
    }

    void compareTexts(std::int32_t before, std::int32_t after) {
        const auto a = m_old.catalog().products.at(before);
        const auto b = m_new.catalog().products.at(after);
        const auto compare = [&](const char* what, std::string_view x, std::string_view y) {
            if (!readSame(x, y))
                m_diff.texts.push_back({m_new.named(after), what, readableLine(x), readableLine(y)});
        };
        if (a.text() != b.text()) {
            compare("code", a.code(), b.code());
            compare("description", a.descriptionLine(), b.descriptionLine());
            compare("other", a.other(), b.other());
        }
        compare("picture", a.pictureName(), b.pictureName());
        compareDetails(after, a, b);
    }

    void compareDetails(std::int32_t after, const catalog::ProductRecord& a,
                        const catalog::ProductRecord& b) {
        const auto oldText = m_old.catalog().memos.text(a.memoPosition(), a.memoLength());
        const auto newText = m_new.catalog().memos.text(b.memoPosition(), b.memoLength());
        if (oldText != newText && !readSameLines(oldText, newText)) // line ends may be all
            m_diff.texts.push_back(
                {m_new.named(after), "details", beginningOf(oldText), beginningOf(newText)});
    }

    ComparedCatalog m_old;
    ComparedCatalog m_new;
    std::vector<std::int32_t> m_newGroup; // by group of the older catalogue; 0 for none
    CatalogDiff m_diff;
};

bool haveSameBytes(const ContentFile& a, const ContentFile& b) {
    try {
        const base::MappedFile first(a.path);
        const base::MappedFile second(b.path);
        return std::equal(first.bytes().begin(), first.bytes().end(), second.bytes().begin(),
                          second.bytes().end());
    } catch (const base::MissingFile&) {
        throw base::FileError("Cannot compare " + base::textOf(a.path) + " and " + base::textOf(b.path) +
                              "\nPlease check that you may read them");
    }
}

std::map<std::string, ContentFile> filesByName(const std::filesystem::path& folder) {
    std::map<std::string, ContentFile> files;
    for (auto& file : otherFilesOf(folder))
        files.emplace(base::upper(base::fromUtf8(file.name)), std::move(file));
    return files;
}

void compareFiles(const std::filesystem::path& older, const std::filesystem::path& newer, CatalogDiff& diff) {
    const auto before = filesByName(older);
    const auto after = filesByName(newer);
    const auto listFor = [&diff](const std::string& name) -> FileChanges& {
        return base::endsIgnoringCase(name, templateEnding) ? diff.templates : diff.files;
    };
    for (const auto& [key, file] : after)
        if (const auto found = before.find(key); found == before.end())
            listFor(file.name).added.push_back(file.name);
        else if (!haveSameBytes(found->second, file))
            listFor(file.name).changed.push_back(file.name);
    for (const auto& [key, file] : before)
        if (!after.contains(key))
            listFor(file.name).gone.push_back(file.name);
}

}

double PriceChange::percent() const {
    return before == 0 ? 0 : (double{after} - double{before}) / std::fabs(double{before}) * 100;
}

bool CatalogDiff::isEmpty() const {
    return up.empty() && down.empty() && taxes.empty() && products.added.empty() && products.gone.empty() &&
           texts.empty() && moved.empty() && groups.added.empty() && groups.gone.empty() &&
           regrouped.empty() && parameters.empty() && templates.count() == 0 && files.count() == 0;
}

CatalogDiff compareData(const std::filesystem::path& older, const std::filesystem::path& newer) {
    return Comparison(older, newer).run();
}

CatalogDiff compareCatalogs(const std::filesystem::path& older, const std::filesystem::path& newer) {
    auto diff = compareData(older, newer);
    compareFiles(older, newer, diff);
    return diff;
}

}
