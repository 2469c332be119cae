#include "base/code_page.h"
#include "base/errors.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "fuzz/written_list.h"
#include "publish/lists/product_list.h"

#include <cmath>
#include <optional>

namespace {

namespace fs = std::filesystem;

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
    fuzz::writeList(file, kind, input);
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
