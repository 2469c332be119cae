#include "bench/large_catalog.h"

#include "base/bytes.h"
#include "bench/temp_folder.h"
#include "catalog/catalog.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <numeric>
#include <random>

namespace bench {
namespace fs = std::filesystem;

namespace {

using catalog::GroupRecord;
using catalog::IndexRecord;
using catalog::ParameterHeader;
using catalog::Parameters;
using catalog::ProductRecord;

constexpr std::string_view memo = "Zinc plated, DIN 931,\nsold in boxes";

template <std::size_t Length>
struct Bytes : std::array<std::byte, Length> {
    Bytes() { this->fill(std::byte{' '}); }

    void put(catalog::TextField field, std::string_view text) {
        base::writeText(*this, field.offset, field.width, text);
    }

    void appendTo(std::ofstream& file) const {
        file.write(reinterpret_cast<const char*>(this->data()), static_cast<std::streamsize>(Length));
    }
};

std::ofstream newFile(const fs::path& folder, std::string_view name) {
    return std::ofstream(folder / name, std::ios::binary);
}

Bytes<ProductRecord::length> product(std::int32_t number) {
    Bytes<ProductRecord::length> record;
    record[1] = std::byte{'Y'};
    base::writeNumber<std::int16_t>(record, 2, 1);
    record.put(ProductRecord::textField,
               codeOf(number) + "\nHexagon bolt M" + std::to_string(number % 40) + "\nBox of 100");
    base::writeSingle(record, 104, 20.0F);
    base::writeSingle(record, 108, 0.25F * static_cast<float>(number % 1000));
    base::writeNumber<std::int32_t>(record, 132, 1);
    base::writeNumber<std::int16_t>(record, 136, memo.size());
    return record;
}

Bytes<IndexRecord::length> indexEntry(std::int32_t number) {
    Bytes<IndexRecord::length> record;
    record.put(IndexRecord::keyField, codeOf(number));
    base::writeNumber(record, 20, number);
    return record;
}

void writeFiles(const fs::path& folder, std::int32_t count) {
    newFile(folder, catalog::memosFile) << memo;
    auto groups = newFile(folder, catalog::groupsFile);
    Bytes<GroupRecord::length>().appendTo(groups);
    auto parameters = newFile(folder, catalog::parametersFile);
    Bytes<ParameterHeader::length * Parameters::recordCount>().appendTo(parameters);
    auto products = newFile(folder, catalog::productsFile);
    auto index = newFile(folder, catalog::indexFile);
    for (std::int32_t number = 1; number <= count; ++number) {
        product(number).appendTo(products);
        indexEntry(number).appendTo(index);
    }
}

struct Folder : TempFolder {
    explicit Folder(std::int32_t count) : TempFolder(std::to_string(count)) { writeFiles(path(), count); }
};

}

std::string codeOf(std::int32_t record) {
    const auto digits = std::to_string(record);
    return "P" + std::string(7 - digits.size(), '0') + digits;
}

const fs::path& largeCatalog(std::int32_t products) {
    static std::map<std::int32_t, Folder> folders;
    return folders.try_emplace(products, products).first->second.path();
}

std::vector<std::int32_t> shuffledRecords(std::int32_t products) {
    std::vector<std::int32_t> records(static_cast<std::size_t>(products));
    std::iota(records.begin(), records.end(), 1);
    std::shuffle(records.begin(), records.end(), std::mt19937(1));
    return records;
}

}
