#include "base/files.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "fuzz/sections.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/zip_builder.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string joined(const std::vector<std::string>& texts) {
    std::string out = texts.front();
    for (std::size_t i = 1; i < texts.size(); ++i)
        out.append(fuzz::sectionEnd).append(texts[i]);
    return out;
}

void write(const fs::path& seed, std::string_view bytes) {
    fs::create_directories(seed.parent_path());
    base::replaceFile(seed, bytes);
}

/// A small catalogue of every kind of record, described with texts of this product list.
support::CatalogBuilder smallCatalog(char groupPageStyle) {
    using catalog::ParameterText;
    support::CatalogBuilder builder;
    builder.groupPageStyle = groupPageStyle;
    builder.quantityDecimals = 2;
    builder.texts = {{ParameterText::supplierName, "Smith & Sons"},
                     {ParameterText::taxName, "VAT%"},
                     {ParameterText::codeCaption, "Code"},
                     {ParameterText::otherCaption, "Size"},
                     {ParameterText::currency, "EUR"}};
    builder.products = {
        {.text = "ALL\nContents\n", .flag = 'N'},
        {.text = "TOOLS\nTools\n", .group = 2, .memo = "All tools", .flag = 'N'},
        {.text = "H1\nHammer\n300 g",
         .price = 10.5F,
         .taxRate = 20,
         .group = 2,
         .memo = "Good for {DESC}, see {CODE}"},
        {.text = "H2\nMallet\n", .price = -4, .group = 2, .picture = "mallet.png"},
        {.text = "NAILS\nNails {{{CODE}}}\n", .group = 3, .flag = 'N'},
        {.text = "N1\nNail\n10 mm", .price = 1e9F, .taxRate = 7.5F, .group = 3, .memoPlace = {{5, 400}}}};
    builder.groups = {{"Contents", 1, 2, 0}, {"Tools", 2, 0, 1}, {"Nails", 5, 0, 1}};
    return builder;
}

/// All data files of a small catalogue.
std::vector<std::string> dataFiles(const fs::path& scratch, char groupPageStyle) {
    smallCatalog(groupPageStyle).writeTo(scratch);
    std::vector<std::string> texts;
    for (const auto name : {catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                            catalog::indexFile, catalog::memosFile})
        texts.push_back(base::readFile(scratch / name).value());
    return texts;
}

/// The same with this template for its pages.
std::string recordSeed(const fs::path& scratch, char groupPageStyle, const std::string& page) {
    auto texts = dataFiles(scratch, groupPageStyle);
    texts.push_back(page);
    texts.emplace_back("hammer");
    return joined(texts);
}

support::ZipBuilder catalogZip(const fs::path& scratch, const std::string& marker,
                               const std::string& version) {
    auto builder = smallCatalog('I');
    builder.version = version;
    builder.writeTo(scratch);
    support::ZipBuilder zip;
    zip.add(marker, "ACME|ACME Ltd\r\n").add("pics/").add("pics/a.jpg", "picture").add("logo.jpg", "logo");
    for (const auto name : {catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                            catalog::indexFile, catalog::memosFile})
        zip.add(std::string(name), base::readFile(scratch / name).value());
    return zip;
}

void makeArchives(const fs::path& folder, const fs::path& scratch) {
    fs::create_directories(folder);
    catalogZip(scratch, "ACME.sup", "00001").writeTo(folder / "whole");
    catalogZip(scratch, "acme.SUP", "00002")
        .add("User.ini", "theirs")
        .add("Tmp.htm")
        .writeTo(folder / "update");
    catalogZip(scratch, "ACME.sup", "00003")
        .addLink("link", "/etc/passwd")
        .add("../x", "x")
        .writeTo(folder / "paths");
    catalogZip(scratch, "ACME.sup", "00004").addEncrypted("secret", "x").writeTo(folder / "encrypted");
    catalogZip(scratch, "OTHER.sup", "00004").addStored("stored", "x").writeTo(folder / "other");
}

std::string firstLines(const std::string& text, std::size_t count) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < count && end < text.size(); ++i)
        end = std::min(text.find('\n', end), text.size() - 1) + 1;
    return text.substr(0, end);
}

/// The first products of a sample, and the groups that they name.
std::string publishSeed(const fs::path& sample, const std::string& page) {
    constexpr std::size_t lines = 8;
    const auto read = [&](const char* name) { return base::readFile(sample / name).value_or(""); };
    return joined({read("catalog.ini"), firstLines(read("products.csv"), lines),
                   firstLines(read("groups.csv"), lines), "A long description", page});
}

void makeFromSample(const fs::path& sample, const fs::path& out, const fs::path& scratch) {
    const auto name = sample.filename().string() + "-";
    for (const auto& file : base::filesEndingWith(sample, ".ect")) {
        const auto page = base::readFile(file).value();
        const auto seed = name + file.filename().string();
        const bool isOrder = seed.find("Ord") != std::string::npos;
        write(out / "record_pages" / seed, recordSeed(scratch, isOrder ? 'I' : 'T', page));
        write(out / "template" / seed,
              joined({"\x02\x02\x05", page, "value", "", "<b>{A}</b>", "long\r\ntext"}));
        write(out / "html_text" / seed, page);
        if (isOrder)
            write(out / "order" / seed,
                  joined({page, "detail", "a\r\nb", "1|H1|Hammer|steel|12.50|10.00|2.50|22.50\n2|H2", "7",
                          "a@b.example"}));
    }
    if (fs::exists(sample / "products.csv")) // the other's list is a spreadsheet
        write(out / "publish" / name, publishSeed(sample, "{{x {CODE} }} {DESC}"));
}

}

// make_seeds SAMPLES OUT: what the fuzzers begin with, besides what stands in fuzz/corpus, made of the
// samples' templates and tables and of a small catalogue.
int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "make_seeds SAMPLES OUT\n";
        return 2;
    }
    const fs::path samples = argv[1];
    const fs::path out = argv[2];
    const auto scratch = out / "scratch";
    makeArchives(out / "archive", scratch);
    write(out / "export" / "small",
          joined(dataFiles(scratch, 'I')) + std::string(fuzz::sectionEnd) + "Exact 1\n");
    for (const auto* sample : {"ORRENDALE", "SONDERHAVEN"})
        makeFromSample(samples / sample, out, scratch);
    fs::remove_all(scratch);
    return 0;
}
