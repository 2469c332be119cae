#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "catalog/template_names.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "pages/browse/group_lists.h"
#include "pages/catalog_pages.h"
#include "ui/grid_cells.h"
#include "ui/grid_columns.h"
#include "ui/product_search.h"

#include <algorithm>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t wholeParameters = catalog::ParameterHeader::length * catalog::Parameters::recordCount;
constexpr std::int32_t mostRecords = 8; // of which one input shows the pages

// A file that is too short is refused before anything is read of it, so there is nothing to find.
std::string whole(std::string_view parameters) {
    std::string bytes(parameters);
    bytes.resize(std::max(bytes.size(), wholeParameters), ' ');
    return bytes;
}

std::size_t readRecord(const catalog::Catalog& catalog, std::int32_t number) {
    const auto product = catalog.products.at(number);
    const auto memo = catalog.memos.text(product.memoPosition(), product.memoLength());
    fuzz::require(memo.size() <= INT16_MAX, "a long description is too long");
    fuzz::require(product.price() == product.price(), "a price is not a number");
    const auto found = catalog.codes.find(product.code());
    return memo.size() + catalog.groupName(product.group()).size() + static_cast<std::size_t>(found);
}

std::size_t readRow(const catalog::Catalog& catalog, std::int32_t number) {
    std::size_t sum = readRecord(catalog, number);
    for (const auto& column : ui::productColumns(catalog.parameters))
        sum += ui::productCell(catalog.products.at(number), {}, column.field).size();
    return sum;
}

// From before the first record to behind the last one.
template <typename Visit>
void forRecords(const catalog::Catalog& catalog, Visit visit) {
    const auto count = catalog.products.count();
    for (std::int32_t number = -1; number <= std::min(count, mostRecords); ++number)
        visit(number);
    visit(count + 1);
}

void readRows(const catalog::Catalog& catalog) {
    forRecords(catalog, [&](std::int32_t number) { static_cast<void>(readRow(catalog, number)); });
}

// True where the page was a small one, so that there is time for another.
bool showPage(pages::CatalogPages& pages, std::int32_t number) {
    constexpr std::size_t small = 100'000;
    const std::string taxed(pages.page(number, pages::TaxStatus::taxed));
    if (taxed.size() >= small)
        return false;
    static_cast<void>(pages.page(number, pages::TaxStatus::exempt));
    fuzz::require(pages.page(number, pages::TaxStatus::taxed) == taxed, "a page depends on the one before");
    return true;
}

void showPages(const catalog::Catalog& catalog, const fs::path& folder) {
    pages::CatalogPages pages(catalog, {folder, folder, folder}, {"75", "3", "4"}, false);
    static_cast<void>(pages.banner(1, pages::TaxStatus::taxed));
    bool goOn = true;
    forRecords(catalog, [&](std::int32_t number) { goOn = goOn && showPage(pages, number); });
}

void chooseGroups(const catalog::Catalog& catalog) {
    pages::GroupLists lists(catalog);
    for (int list = 0; list < pages::groupListCount; ++list) {
        lists.enter(list);
        const auto entries = static_cast<int>(lists.entries(list).size());
        for (int entry = 0; entry < std::min(entries, 4); ++entry)
            static_cast<void>(lists.choose(list, entry));
    }
}

void search(const catalog::Catalog& catalog, std::string_view phrase) {
    using ui::Direction;
    const auto last = catalog.products.count() - 1;
    const auto down = ui::searchProducts(catalog.products, phrase, {true, true, true}, 0, Direction::down);
    const auto up = ui::searchProducts(catalog.products, phrase, {true, true, true}, last, Direction::up);
    fuzz::require(down.has_value() == up.has_value(), "found in one direction only");
    fuzz::require(!down || (*down >= 0 && *down <= *up && *up <= last), "a row outside the grid");
}

void writeFiles(const fs::path& folder, const std::array<std::string_view, 7>& texts) {
    const auto& [parameters, products, groups, index, memos, page, phrase] = texts;
    base::overwriteFile(folder / catalog::parametersFile, whole(parameters));
    base::overwriteFile(folder / catalog::productsFile, products);
    base::overwriteFile(folder / catalog::groupsFile, groups);
    base::overwriteFile(folder / catalog::indexFile, index);
    base::overwriteFile(folder / catalog::memosFile, memos);
    for (const auto name : {catalog::productTemplate, catalog::firstGroupTemplate,
                            catalog::secondGroupTemplate, catalog::bannerTemplate})
        base::overwriteFile(folder / name, page);
}

void checkPassword(const fs::path& folder, std::string_view parameters) {
    constexpr std::string_view stored = "FUZZ     ";
    catalog::storeCatalogPassword(folder / catalog::parametersFile, "fuzz");
    const auto field = catalog::ParameterHeader::catalogPasswordField;
    fuzz::require(base::readFile(folder / catalog::parametersFile) ==
                      whole(parameters).replace(field.offset, field.width, stored),
                  "the password changed other bytes");
}

}

// Five data files, a template for all pages and a phrase to search for: everything is read that a person
// could get to see, and only a damaged template ends it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::ScratchFolder scratch;
    const auto texts = fuzz::sections<7>(data, size);
    writeFiles(scratch.path(), texts);
    const auto catalog = catalog::openCatalog(scratch.path());
    readRows(catalog);
    chooseGroups(catalog);
    search(catalog, texts.back());
    try {
        showPages(catalog, scratch.path());
    } catch (const base::DamagedFile&) {
        // the template is
    }
    checkPassword(scratch.path(), texts.front());
    return 0;
}
