#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

/// A folder in which each data file holds the same bytes, however little sense they make.
std::filesystem::path folderWith(std::string_view bytes) {
    static const auto folder = [] {
        auto path = std::filesystem::temp_directory_path() / "tavorine-fuzz";
        std::filesystem::create_directories(path);
        return path;
    }();
    for (const auto name : {catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                            catalog::indexFile, catalog::memosFile})
        base::overwriteFile(folder / name, bytes);
    return folder;
}

std::size_t readAll(const catalog::Catalog& catalog) {
    auto sum = catalog.parameters.header().catalogPassword().size();
    for (std::int32_t number = -1; number <= catalog.products.count() + 1; ++number) {
        const auto product = catalog.products.at(number);
        sum +=
            product.description().size() + product.other().size() + catalog.groupName(product.group()).size();
        const auto memo = catalog.memos.text(product.memoPosition(), product.memoLength());
        fuzz::require(memo.size() <= INT16_MAX, "a long description is too long");
        fuzz::require(product.price() == product.price(), "a price is not a number");
        sum += memo.size() + static_cast<std::size_t>(catalog.codes.find(product.code()));
    }
    return sum;
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto folder = folderWith(bytes);
    constexpr std::size_t wholeParameters =
        catalog::ParameterHeader::length * catalog::Parameters::recordCount;
    try {
        static_cast<void>(readAll(catalog::openCatalog(folder)));
        catalog::storeCatalogPassword(folder / catalog::parametersFile, "fuzz");
        fuzz::require(size >= wholeParameters, "a short parameters file was read");
        fuzz::require(base::readFile(folder / catalog::parametersFile) ==
                          std::string(bytes).replace(4, 9, "FUZZ     "),
                      "the password changed other bytes");
    } catch (const base::DamagedFile&) {
        fuzz::require(size < wholeParameters, "a whole parameters file was refused");
    }
    return 0;
}
