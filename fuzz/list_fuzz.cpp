#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "publish/lists/product_list.h"
#include "tests/support/zip_builder.h"

#include <cmath>
#include <optional>

namespace {

namespace fs = std::filesystem;

constexpr const char* types = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

std::string relation(const std::string& id, const std::string& type, const std::string& target) {
    return "<Relationship Id='" + id + "' Type='" + types + type + "' Target='" + target + "'/>";
}

void writeXlsx(const fs::path& file, std::string_view strings, std::string_view styles,
               std::string_view sheet) {
    support::ZipBuilder()
        .add("[Content_Types].xml", "<Types/>")
        .add("_rels/.rels", "<r>" + relation("r", "officeDocument", "xl/w.xml") + "</r>")
        .add("xl/w.xml", "<workbook><sheet name='A' r:id='r1'/></workbook>")
        .add("xl/_rels/w.xml.rels", "<r>" + relation("r1", "worksheet", "s.xml") +
                                        relation("r2", "sharedStrings", "t.xml") +
                                        relation("r3", "styles", "u.xml") + "</r>")
        .add("xl/t.xml", std::string(strings))
        .add("xl/u.xml", std::string(styles))
        .add("xl/s.xml", std::string(sheet))
        .writeTo(file);
}

void writeList(const fs::path& file, std::string_view kind, std::string_view list) {
    const auto strings = kind == "xlsx" ? fuzz::takeSection(list) : std::string_view();
    const auto styles = kind == "xlsx" ? fuzz::takeSection(list) : std::string_view();
    if (kind == "xlsx")
        writeXlsx(file, strings, styles, list);
    else if (kind == "ods")
        support::ZipBuilder()
            .add("META-INF/manifest.xml", "<m/>")
            .add("content.xml", std::string(list))
            .writeTo(file);
    else
        base::overwriteFile(file, list);
}

void checkProduct(const publish::Product& product) {
    fuzz::require(std::isfinite(product.price) && product.price >= 0, "a price is no price");
    fuzz::require(std::isfinite(product.taxRate) && product.taxRate >= 0, "a tax rate is none");
}

std::vector<publish::Product> productsOf(const publish::ProductList& list, publish::Complaints& complaints) {
    std::vector<publish::Product> products(list.count());
    std::vector<std::string> path;
    for (std::size_t row = 0; row < list.count(); ++row) {
        list.readGroup(row, path);
        list.read(row, products[row], complaints);
        products[row].picture.append(path.empty() ? "" : path.back());
        checkProduct(products[row]);
        fuzz::require(list.placeOf(row, {}).row > 0, "a row has no number");
    }
    fuzz::require(base::isUtf8(list.summary()), "a summary is not UTF-8");
    return products;
}

bool areSame(const publish::Product& a, const publish::Product& b) {
    return a.code == b.code && a.description == b.description && a.price == b.price &&
           a.taxRate == b.taxRate && a.longDescription == b.longDescription && a.other == b.other &&
           a.picture == b.picture;
}

// What was found is written down and reads the same list.
void checkMapping(const fs::path& file, const publish::ProductList& list,
                  const std::vector<publish::Product>& products) {
    publish::Complaints complaints;
    const auto mapping = publish::readMapping(textOf(list.mapping()), complaints);
    fuzz::require(complaints.empty(), "the mapping makes no sense");
    const publish::ProductList again(file, "list", mapping, complaints);
    const auto reread = productsOf(again, complaints);
    fuzz::require(std::equal(products.begin(), products.end(), reread.begin(), reread.end(), areSame),
                  "the mapping reads another list");
}

}

// A mapping file and a list of some kind: complained of, refused, or read as the mapping says that was found.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::ScratchFolder scratch;
    const auto file = scratch.path() / "list";
    auto input = fuzz::textOf(data, size);
    const auto mappingText = fuzz::takeSection(input);
    const auto kind = fuzz::takeSection(input);
    writeList(file, kind, input);
    publish::Complaints complaints;
    const auto mapping =
        mappingText == "own" ? publish::ownColumns() : publish::readMapping(mappingText, complaints);
    try {
        const publish::ProductList list(file, "list", mapping, complaints);
        const auto products = productsOf(list, complaints);
        for (const auto& complaint : complaints)
            fuzz::require(!complaint.rule.empty() && base::isUtf8(textOf(complaint)), "a complaint is none");
        if (!products.empty() && !mapping.isOwn)
            checkMapping(file, list, products);
    } catch (const base::FileError&) {
        return 0; // refused in words
    }
    return 0;
}
