#include "base/files.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "publish/data_files.h"
#include "publish/source_check.h"
#include "publish/source_folder.h"

#include <array>
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

void checkProduct(const publish::Product& product, const catalog::Catalog& catalog) {
    const auto record = catalog.products.at(catalog.codes.find(product.code));
    fuzz::require(base::trim(record.code()) == product.code, "a product is not found under its code");
    fuzz::require(record.descriptionLine() == product.description, "a description reads otherwise");
    fuzz::require(record.price() == product.price, "a price reads otherwise");
    fuzz::require(catalog.memos.text(record.memoPosition(), record.memoLength()).size() >=
                      product.longDescription.size(),
                  "a long description was cut");
}

void checkGroup(const publish::Group& group, const catalog::Catalog& catalog) {
    for (const auto& product : group.products)
        checkProduct(product, catalog);
    for (const auto& child : group.groups)
        checkGroup(child, catalog);
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
    for (const auto& complaint : complaints)
        fuzz::require(!textOf(complaint).empty(), "a complaint says nothing");
    if (publish::holdsError(complaints))
        return 0;
    publish::writeDataFiles(source.catalog, catalogFolder);
    checkGroup(source.catalog.contents, catalog::openCatalog(catalogFolder));
    return 0;
}
