#include "publish/data_files.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"

#include <algorithm>
#include <limits>

namespace publish {
namespace {

constexpr std::size_t mostGroups = std::numeric_limits<std::int16_t>::max();
constexpr std::int64_t memoFileLimit = std::numeric_limits<std::int32_t>::max();

std::ofstream created(const std::filesystem::path& path) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file)
        throw base::FileError("Cannot write " + base::textOf(path));
    return file;
}

template <std::size_t Length>
void append(std::ofstream& file, const std::array<std::byte, Length>& bytes) {
    file.write(reinterpret_cast<const char*>(bytes.data()), Length);
}

void close(std::ofstream& file, const std::filesystem::path& path) {
    file.close();
    if (!file)
        throw base::FileError("Cannot write " + base::textOf(path));
}

}

DataFiles::DataFiles(const std::filesystem::path& folder, const catalog::ParameterValues& parameters,
                     const Group& contents)
    : m_folder(folder) {
    std::filesystem::create_directories(folder);
    m_products = created(folder / catalog::productsFile);
    m_memos = created(folder / catalog::memosFile);
    auto parameterFile = created(folder / catalog::parametersFile);
    publish::append(parameterFile, catalog::encode(parameters));
    close(parameterFile, folder / catalog::parametersFile);
    number(contents);
    m_waiting.push_back(&contents);
}

// Level by level, so that siblings get consecutive numbers.
void DataFiles::number(const Group& contents) {
    m_groups.push_back({&contents, 0});
    for (std::size_t at = 0; at < m_groups.size(); ++at) {
        const auto ownNumber = static_cast<std::int32_t>(at + 1);
        m_numbers.emplace(m_groups[at].group, ownNumber);
        if (m_groups[at].group->groups.empty())
            continue;
        m_groups[at].firstChild = static_cast<std::int32_t>(m_groups.size() + 1);
        for (const Group& child : m_groups[at].group->groups)
            m_groups.push_back({&child, ownNumber});
    }
    if (m_groups.size() > mostGroups)
        throw base::FileError("A catalogue holds at most 32767 groups");
}

const Group* DataFiles::nextGroup() {
    if (m_waiting.empty())
        return nullptr;
    const Group* group = m_waiting.back();
    m_waiting.pop_back();
    const auto ownNumber = m_numbers.at(group);
    m_group = static_cast<std::int16_t>(ownNumber);
    append(group->header, false);
    m_groups[static_cast<std::size_t>(ownNumber - 1)].headerRecord = m_record;
    for (std::size_t i = group->groups.size(); i-- > 0;)
        m_waiting.push_back(&group->groups[i]);
    return group;
}

void DataFiles::add(const Product& product) {
    append(product, true);
}

void DataFiles::append(const Product& product, bool isProduct) {
    m_text.assign(product.code)
        .append(1, '\n')
        .append(product.description)
        .append(1, '\n')
        .append(product.other);
    const auto memo = appendMemo(product);
    publish::append(
        m_products,
        catalog::encode({.isProduct = isProduct,
                         .group = m_group,
                         .text = m_text,
                         .taxRate = product.taxRate,
                         .price = product.price,
                         .picture = product.picture,
                         .memoPosition = memo,
                         .memoLength = static_cast<std::int16_t>(product.longDescription.size())}));
    ++m_record;
    if (!product.code.empty())
        m_index.push_back({catalog::indexKey(product.code), m_record});
}

std::int32_t DataFiles::appendMemo(const Product& product) {
    if (product.longDescription.empty())
        return 0;
    const auto position = m_memoEnd + 1;
    m_memoEnd += static_cast<std::int64_t>(product.longDescription.size());
    if (m_memoEnd > memoFileLimit)
        throw base::FileError("The long descriptions are larger than 2 GiB");
    m_memos.write(product.longDescription.data(),
                  static_cast<std::streamsize>(product.longDescription.size()));
    return static_cast<std::int32_t>(position);
}

void DataFiles::finish() {
    close(m_products, m_folder / catalog::productsFile);
    close(m_memos, m_folder / catalog::memosFile);
    writeGroups();
    writeIndex();
}

void DataFiles::writeGroups() {
    auto file = created(m_folder / catalog::groupsFile);
    for (const auto& group : m_groups)
        publish::append(file, catalog::encode({.name = group.group->name,
                                               .headerRecord = group.headerRecord,
                                               .firstChild = group.firstChild,
                                               .parent = group.parent}));
    close(file, m_folder / catalog::groupsFile);
}

// Ascending by byte; of equal keys only the first record's stays.
void DataFiles::writeIndex() {
    const auto text = [](const IndexEntry& entry) {
        return std::string_view(entry.key.data(), entry.key.size());
    };
    std::sort(m_index.begin(), m_index.end(), [&](const IndexEntry& a, const IndexEntry& b) {
        const int order = text(a).compare(text(b));
        return order != 0 ? order < 0 : a.record < b.record;
    });
    auto file = created(m_folder / catalog::indexFile);
    const IndexEntry* first = nullptr;
    for (const auto& entry : m_index)
        if (first != nullptr && first->key == entry.key) {
            m_repeated.push_back({entry.key, entry.record, first->record});
        } else {
            publish::append(file, catalog::encodeIndex(entry.key, entry.record));
            first = &entry;
        }
    std::sort(m_repeated.begin(), m_repeated.end(),
              [](const RepeatedCode& a, const RepeatedCode& b) { return a.record < b.record; });
    close(file, m_folder / catalog::indexFile);
}

}
