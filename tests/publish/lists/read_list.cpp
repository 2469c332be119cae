#include "tests/publish/lists/read_list.h"

#include "base/code_page.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "tests/support/test_folder.h"

namespace support {
namespace {

std::string lineOf(const publish::Product& product, const std::vector<std::string>& path) {
    std::string line;
    for (const auto& name : path)
        line.append(line.empty() ? "" : "/").append(name);
    line += ": " + product.code + " | " + product.description + " | " + base::textOf(product.price);
    if (product.taxRate != 0)
        line += " | " + base::textOf(product.taxRate) + "%";
    for (const auto& text : {product.other, product.picture, product.longDescription})
        line += text.empty() ? "" : " | " + text;
    return base::toUtf8(line);
}

}

std::vector<std::string> ReadList::rules() const {
    std::vector<std::string> rules;
    for (const auto& [weight, place, text, rule] : complaints)
        rules.push_back(place.file + ":" + std::to_string(place.row) + " " + rule);
    return rules;
}

ReadList readList(const std::filesystem::path& file, const publish::ListMapping& mapping) {
    ReadList read;
    const publish::ProductList list(file, file.filename().string(), mapping, read.complaints);
    publish::Product product;
    std::vector<std::string> path;
    for (std::size_t row = 0; row < list.count(); ++row) {
        list.readGroup(row, path);
        list.read(row, product, read.complaints);
        read.products.push_back(lineOf(product, path));
    }
    read.summary = list.summary();
    read.mapping = list.mapping();
    return read;
}

ReadList readListOf(const std::string& bytes, const publish::ListMapping& mapping, const std::string& name) {
    const auto file = testFolder(name) / name;
    base::overwriteFile(file, bytes);
    return readList(file, mapping);
}

}
