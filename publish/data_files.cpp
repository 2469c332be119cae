#include "publish/data_files.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"

#include <algorithm>
#include <limits>
#include <system_error>
#include <utility>

namespace publish {
namespace {

constexpr std::size_t mostGroups = std::numeric_limits<std::int16_t>::max();
constexpr std::int64_t memoFileLimit = std::numeric_limits<std::int32_t>::max();

// Calls of the system cost more than copying into a buffer.
constexpr std::size_t bufferSize = std::size_t{256} << 10U;

[[noreturn]] void failWriting(const std::filesystem::path& path) {
    throw base::FileError("Cannot write " + base::textOf(path) +
                          "\nPlease check that the disk is not full and that you may write there");
}

const std::filesystem::path& made(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder, error))
        failWriting(folder);
    return folder;
}

template <typename Number>
Number bigEndian(std::string_view bytes) {
    Number number = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        number = static_cast<Number>((number << 8U) | static_cast<unsigned char>(bytes[i]));
    return number;
}

template <typename Number>
void putBigEndian(Number number, char* end) {
    for (std::size_t i = 0; i < sizeof(Number); ++i, number >>= 8U)
        *--end = static_cast<char>(number & 0xFFU);
}

}

DataFiles::File::File(std::filesystem::path path)
    : m_path(std::move(path)), m_file(m_path, std::ios::binary | std::ios::trunc) {
    if (!m_file)
        failWriting(m_path);
    m_waiting.reserve(bufferSize);
}

void DataFiles::File::append(std::string_view bytes) {
    if (m_waiting.size() + bytes.size() > bufferSize)
        write();
    m_waiting.append(bytes);
}

void DataFiles::File::write() {
    if (!m_file.write(m_waiting.data(), static_cast<std::streamsize>(m_waiting.size())))
        failWriting(m_path);
    m_waiting.clear();
}

void DataFiles::File::close() {
    write();
    m_file.close();
    if (!m_file)
        failWriting(m_path);
}

DataFiles::IndexEntry DataFiles::indexEntry(std::string_view code, std::int32_t record) {
    const auto key = catalog::indexKey(code);
    const std::string_view text(key.data(), key.size());
    return {{bigEndian<std::uint64_t>(text), bigEndian<std::uint64_t>(text.substr(8))},
            bigEndian<std::uint32_t>(text.substr(16)),
            record};
}

std::array<char, catalog::IndexRecord::keyField.width> DataFiles::keyOf(const IndexEntry& entry) {
    std::array<char, catalog::IndexRecord::keyField.width> key{};
    putBigEndian(entry.first16[0], key.data() + 8);
    putBigEndian(entry.first16[1], key.data() + 16);
    putBigEndian(entry.last4, key.data() + 20);
    return key;
}

DataFiles::DataFiles(const std::filesystem::path& folder, const catalog::ParameterValues& parameters,
                     const Group& contents)
    : m_folder(folder),
      m_products(made(folder) / catalog::productsFile),
      m_memos(folder / catalog::memosFile) {
    File file(folder / catalog::parametersFile);
    file.append(catalog::encode(parameters));
    file.close();
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
    m_products.append(
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
        m_index.push_back(indexEntry(product.code, m_record));
}

std::int32_t DataFiles::appendMemo(const Product& product) {
    if (product.longDescription.empty())
        return 0;
    const auto position = m_memoEnd + 1;
    m_memoEnd += static_cast<std::int64_t>(product.longDescription.size());
    if (m_memoEnd > memoFileLimit)
        throw base::FileError("The long descriptions are larger than 2 GiB");
    m_memos.append(product.longDescription);
    return static_cast<std::int32_t>(position);
}

void DataFiles::finish() {
    m_products.close();
    m_memos.close();
    writeGroups();
    writeIndex();
}

void DataFiles::writeGroups() {
    File file(m_folder / catalog::groupsFile);
    for (const auto& group : m_groups)
        file.append(catalog::encode({.name = group.group->name,
                                     .headerRecord = group.headerRecord,
                                     .firstChild = group.firstChild,
                                     .parent = group.parent}));
    file.close();
}

// Ascending by byte; of equal keys only the first record's stays.
void DataFiles::writeIndex() {
    std::sort(m_index.begin(), m_index.end());
    File file(m_folder / catalog::indexFile);
    const IndexEntry* first = nullptr;
    for (const auto& entry : m_index)
        if (first != nullptr && first->hasKeyOf(entry)) {
            m_repeated.push_back({entry.record, first->record});
        } else {
            file.append(catalog::encodeIndex(keyOf(entry), entry.record));
            first = &entry;
        }
    std::sort(m_repeated.begin(), m_repeated.end(),
              [](const RepeatedCode& a, const RepeatedCode& b) { return a.record < b.record; });
    file.close();
}

}
