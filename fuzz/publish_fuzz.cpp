#include "base/files.h"
#include "catalog/catalog.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "publish/product_rows.h"
#include "publish/source/source_folder.h"

#include <array>
#include <map>
#include <string>

namespace {

namespace fs = std::filesystem;

void writeSource(const fs::path& folder, const std::array<std::string_view, 5>& texts) {
    const auto& [parameters, products, groups, description, page] = texts;
    fs::create_directories(folder / "descriptions");
    base::overwriteFile(folder / publish::parametersSource, parameters);
    base::overwriteFile(folder / publish::productsSource, products);
    base::overwriteFile(folder / publish::groupsSource, groups);
    base::overwriteFile(folder / "descriptions" / "T1.txt", description);
    base::overwriteFile(folder / "t1.jpg", "picture");
    for (const auto* name : {"Banner.Ect", "Catalog.Ect", "GroupI.Ect", "GroupT.Ect", "Welcome.ECT",
                             "EmlOrd.ect", "EmlOrd_NT.ect", "PrtOrd.ect", "PrtOrd_NT.ect"})
        base::overwriteFile(folder / name, page);
}

void checkProduct(const publish::Product& product, catalog::ProductRecord record) {
    fuzz::require(record.descriptionLine() == product.description, "a description reads otherwise");
    fuzz::require(record.other() == product.other, "another text reads otherwise");
    fuzz::require(record.price() == product.price, "a price reads otherwise");
    fuzz::require(record.taxRate() == product.taxRate, "a tax rate reads otherwise");
    fuzz::require(record.memoLength() >= static_cast<std::int64_t>(product.longDescription.size()),
                  "a long description was cut");
}

using Records =
    std::map<std::string, std::int32_t, std::less<>>; // by key; of equal codes the first one counts

void checkEntry(const publish::Product& product, const catalog::Catalog& catalog, Records& seen) {
    const auto record = catalog.codes.find(product.code);
    fuzz::require(record >= 1 && record <= catalog.products.count(), "a code is not found");
    const auto key = catalog::indexKey(product.code);
    if (seen.try_emplace({key.begin(), key.end()}, record).second)
        checkProduct(product, catalog.products.at(record));
}

void checkGroup(const publish::Group& group, const publish::ProductRows& products,
                const catalog::Catalog& catalog, Records& seen) {
    checkEntry(group.header, catalog, seen);
    for (const auto& child : group.groups)
        checkGroup(child, products, catalog, seen);
    publish::Product product;
    publish::Complaints ignored;
    for (const auto row : group.rows) {
        products.read(row, product, ignored);
        checkEntry(product, catalog, seen);
    }
}

}

// A supplier's tables, parameters, a description and templates: complained of, or written as a catalogue that
// reads as it was meant.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::ScratchFolder scratch;
    const auto folder = scratch.path() / "source";
    const auto catalogFolder = scratch.path() / "catalog";
    writeSource(folder, fuzz::sections<5>(data, size));
    publish::Complaints complaints;
    const auto source = publish::readSourceFolder(folder, {}, complaints);
    publish::writeDataFiles(source, catalogFolder, complaints);
    for (const auto& complaint : complaints)
        fuzz::require(!textOf(complaint).empty(), "a complaint says nothing");
    if (publish::holdsError(complaints))
        return 0;
    Records seen;
    checkGroup(source.catalog.contents, *source.catalog.products, catalog::openCatalog(catalogFolder), seen);
    return 0;
}
