#include "tests/support/catalog_builder.h"

#include "base/bytes.h"
#include "base/files.h"
#include "catalog/catalog.h"

#include <string_view>

namespace support {
namespace {

/// Record bytes with blanks where nothing is set.
template <std::size_t Length>
struct Bytes {
    std::string bytes = std::string(Length, ' ');

    [[nodiscard]] std::span<std::byte> span() { return std::as_writable_bytes(std::span(bytes)); }

    void put(std::size_t offset, char character) { bytes[offset] = character; }

    void put(catalog::TextField field, std::string_view text) {
        base::writeText(span(), field.offset, field.width, text);
    }
};

std::string parametersOf(const CatalogBuilder& catalog) {
    using Header = catalog::ParameterHeader;
    Bytes<Header::length * catalog::Parameters::recordCount> file;
    base::writeNumber<std::int32_t>(file.span(), 0, 0);
    file.put(Header::catalogPasswordField, catalog.catalogPassword);
    file.put(Header::resetPasswordField, catalog.resetPassword);
    file.put(Header::versionField, catalog.version);
    file.put(22, catalog.groupPageStyle);
    file.put(24, catalog.taxSwitch);
    base::writeNumber<std::uint8_t>(file.span(), 27, catalog.orderGridHasOtherColumn ? 1 : 0);
    base::writeNumber<std::uint8_t>(file.span(), 28, catalog.quantityDecimals);
    file.put(35, catalog.otherColumnAlignment);
    for (const auto& [which, text] : catalog.texts)
        file.put({(static_cast<std::size_t>(which) - 1) * Header::length, Header::length}, text);
    return file.bytes;
}

// Appends the product's long description to the memo file.
std::string recordOf(const Product& product, std::string& memos) {
    Product::Place memo{0, 0};
    if (!product.memo.empty())
        memo = {static_cast<std::int32_t>(memos.size() + 1), static_cast<std::int16_t>(product.memo.size())};
    memos += product.memo;
    memo = product.memoPlace.value_or(memo);

    Bytes<catalog::ProductRecord::length> record;
    record.put(1, product.flag);
    base::writeNumber(record.span(), 2, product.group);
    record.put(catalog::ProductRecord::textField, product.text);
    base::writeSingle(record.span(), 104, product.taxRate);
    base::writeSingle(record.span(), 108, product.price);
    record.put(catalog::ProductRecord::pictureField, product.picture);
    base::writeNumber(record.span(), 132, memo.position);
    base::writeNumber(record.span(), 136, memo.length);
    return record.bytes;
}

std::string recordOf(const Group& group) {
    Bytes<catalog::GroupRecord::length> record;
    record.put(catalog::GroupRecord::nameField, group.name);
    base::writeNumber(record.span(), 60, group.headerRecord);
    base::writeNumber(record.span(), 64, group.firstChild);
    base::writeNumber(record.span(), 68, group.parent);
    return record.bytes;
}

// By unsigned byte, as the index is sorted: char_traits compares so.
using Index = std::map<std::string, std::int32_t>;

std::string bytesOf(const Index& index) {
    std::string file;
    for (const auto& [key, product] : index) {
        Bytes<catalog::IndexRecord::length> record;
        record.put(catalog::IndexRecord::keyField, key);
        base::writeNumber(record.span(), 20, product);
        file += record.bytes;
    }
    return file;
}

}

void CatalogBuilder::writeTo(const std::filesystem::path& folder) const {
    std::string productBytes;
    std::string groupBytes;
    std::string memoBytes;
    Index index;
    for (const auto& product : products) {
        const auto record = recordOf(product, memoBytes);
        productBytes += record;
        const auto code = catalog::ProductRecord(std::as_bytes(std::span(record))).code();
        const auto key = catalog::indexKey(code);
        if (!code.empty())
            index.try_emplace(std::string(key.begin(), key.end()),
                              static_cast<std::int32_t>(productBytes.size() / record.size()));
    }
    for (const auto& group : groups)
        groupBytes += recordOf(group);

    std::filesystem::create_directories(folder);
    base::replaceFile(folder / catalog::parametersFile, parametersOf(*this));
    base::replaceFile(folder / catalog::productsFile, productBytes);
    base::replaceFile(folder / catalog::groupsFile, groupBytes);
    base::replaceFile(folder / catalog::indexFile, bytesOf(index));
    base::replaceFile(folder / catalog::memosFile, memoBytes);
}

}
