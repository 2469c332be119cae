#include "base/files.h"
#include "catalog/catalog.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "pages/catalog_pages.h"
#include "publish/product_rows.h"
#include "publish/source/source_folder.h"
#include "publish/templates/content_file_check.h"
#include "publish/templates/page_check.h"
#include "publish/templates/preview.h"
#include "publish/templates/template_check.h"

#include <array>
#include <iostream>
#include <map>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 9> templates{"Banner.Ect",    "Catalog.Ect", "GroupI.Ect",
                                                    "GroupT.Ect",    "Welcome.ECT", "EmlOrd.ect",
                                                    "EmlOrd_NT.ect", "PrtOrd.ect",  "PrtOrd_NT.ect"};

void writeTemplates(const fs::path& folder, std::string_view page) {
    for (const auto name : templates)
        base::overwriteFile(folder / name, page);
}

void writeSource(const fs::path& folder, const std::array<std::string_view, 5>& texts) {
    const auto& [parameters, products, groups, description, page] = texts;
    fs::create_directories(folder / "descriptions");
    base::overwriteFile(folder / publish::parametersSource, parameters);
    base::overwriteFile(folder / publish::productsSource, products);
    base::overwriteFile(folder / publish::groupsSource, groups);
    base::overwriteFile(folder / "descriptions" / "T1.txt", description);
    base::overwriteFile(folder / "t1.jpg", "picture");
    writeTemplates(folder, page);
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

// The templates of which nothing is said that would stop a catalogue.
std::set<std::string, std::less<>> soundTemplates(const fs::path& folder, std::string_view page) {
    const auto files = publish::CatalogFiles::in(folder);
    publish::Complaints complaints;
    for (const auto name : templates)
        publish::checkTemplate(name, page, files, complaints);
    publish::checkPages(folder, files, complaints);
    std::set<std::string, std::less<>> sound(templates.begin(), templates.end());
    for (const auto& complaint : complaints)
        if (complaint.weight == publish::Complaint::Weight::error)
            sound.erase(complaint.place.file);
    return sound;
}

template <typename Show>
void requireShown(bool isSound, Show show) {
    try {
        if (isSound)
            static_cast<void>(show());
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        fuzz::require(false, "a template that has passed ends the viewer");
    }
}

// What has passed every check ends no viewer, whatever the catalogue holds.
void checkPages(const fs::path& folder, std::string_view page) {
    const auto sound = soundTemplates(folder, page);
    const auto catalog = catalog::openCatalog(folder);
    const std::string end = catalog.parameters.chargesTax() ? ".ect" : "_NT.ect";
    const std::pair<const char*, bool> named[] = {
        {"banner", sound.contains("Banner.Ect")},
        {"welcome", sound.contains("Welcome.ECT")},
        {"order", sound.contains("PrtOrd" + end)},
        {"mail", sound.contains("EmlOrd" + end)},
    };
    for (const auto& [what, isSound] : named)
        requireShown(isSound, [&, name = what] { return publish::preview(folder, name); });
    pages::CatalogPages pages(catalog, {folder, folder, folder}, {"50", "2", "3"}, false);
    const auto* const group =
        catalog.parameters.header().groupPageStyle() == 'I' ? "GroupI.Ect" : "GroupT.Ect";
    for (std::int32_t number = 1; number <= catalog.products.count(); ++number)
        requireShown(sound.contains(catalog.products.at(number).isProduct() ? "Catalog.Ect" : group),
                     [&] { return pages.page(number, pages::TaxStatus::taxed); });
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
    const auto page = fuzz::sections<5>(data, size).back();
    const auto source = publish::readSourceFolder(folder, {}, complaints);
    publish::writeDataFiles(source, catalogFolder, complaints);
    for (const auto* const name : {"a.css", "sub/a.htm", "Catalog.Ect", "PrtOrd.ect"}) {
        publish::Complaints found;
        publish::checkTemplate(name, page, publish::CatalogFiles({}), found);
        publish::checkContentFile(name, page, publish::CatalogFiles({}), found);
        fuzz::require(found.size() <= 300, "there is no end of complaints");
    }
    for (const auto& complaint : complaints)
        fuzz::require(!textOf(complaint).empty(), "a complaint says nothing");
    if (publish::holdsError(complaints))
        return 0;
    Records seen;
    checkGroup(source.catalog.contents, *source.catalog.products, catalog::openCatalog(catalogFolder), seen);
    writeTemplates(catalogFolder, page);
    checkPages(catalogFolder, page);
    return 0;
}
