#include "base/text.h"
#include "catalog/catalog.h"
#include "publish/existing/data_tables.h"
#include "publish/existing/readable_text.h"

#include <algorithm>
#include <array>

namespace publish {
namespace {

using Key = std::array<char, catalog::IndexRecord::keyField.width>;

struct KeyedRecord {
    Key key;
    std::int32_t record;
};

std::string_view textOf(const Key& key) {
    return {key.data(), key.size()};
}

std::string quoted(std::string_view code) {
    return "\"" + readableLine(code) + "\"";
}

// The entries that the index should have, and equal codes behind each other.
std::vector<KeyedRecord> codesOf(const catalog::ProductTable& products) {
    std::vector<KeyedRecord> codes;
    codes.reserve(static_cast<std::size_t>(products.count()));
    for (std::int32_t number = 1; number <= products.count(); ++number)
        if (const auto code = products.at(number).code(); !code.empty())
            codes.push_back({catalog::indexKey(code), number});
    std::sort(codes.begin(), codes.end(), [](const KeyedRecord& a, const KeyedRecord& b) {
        const int order = textOf(a.key).compare(textOf(b.key));
        return order != 0 ? order < 0 : a.record < b.record;
    });
    return codes;
}

void checkEntries(const DataTables& tables, Findings& findings) {
    for (std::int32_t number = 1; number <= tables.index.count(); ++number) {
        const auto entry = tables.index.at(number);
        const auto add = [&](const char* rule, const std::string& text) {
            findings.error(catalog::indexFile, number, rule, "the entry " + quoted(entry.key()) + " " + text);
        };
        if (number > 1 && entry.key() < tables.index.at(number - 1).key())
            add("index-order",
                "stands behind a greater one; links to some products say that they are missing");
        if (!tables.holdsProduct(entry.product()))
            add("index-number",
                "names a record that does not exist; links to it say that the product is missing");
        else if (textOf(catalog::indexKey(tables.products.at(entry.product()).code())) != entry.key())
            add("index-wrong", "names a record with another code; links to it lead to the wrong product");
    }
}

}

void checkIndex(const DataTables& tables, Findings& findings) {
    checkEntries(tables, findings);
    const auto codes = codesOf(tables.products);
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const auto& [key, record] = codes[i];
        const auto code = quoted(textOf(key));
        if (i > 0 && codes[i - 1].key == key)
            findings.warning(catalog::productsFile, record, "code-twice",
                             "the code " + code +
                                 " was used before; links to it lead to one of the products only");
        else if (tables.codes.find(textOf(key)) == 0)
            findings.error(catalog::productsFile, record, "index-missing",
                           "the index does not lead to the code " + code +
                               "; links to it say that the product "
                               "is missing");
    }
}

}
