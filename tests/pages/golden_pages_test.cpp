#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "pages/catalog_pages.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

/// Each folder of golden/ is a template, what is shown with it and the bytes that must come out.
/// Columns of the text files are separated by " | "; lines that begin with "#" are remarks.
namespace {

namespace fs = std::filesystem;
using catalog::ParameterText;
using Columns = std::vector<std::string>;

const fs::path goldenFolder = fs::path(TAVORINE_TEST_DATA) / "golden";

std::vector<Columns> linesOf(const fs::path& path) {
    std::vector<Columns> lines;
    const auto text = base::readFile(path).value();
    for (const auto line : base::split(text, '\n')) {
        if (line.empty() || line.starts_with('#'))
            continue;
        auto& columns = lines.emplace_back();
        for (const auto column : base::split(line, '|'))
            columns.push_back(base::replaceAll(base::trim(column), "\\n", "\n"));
    }
    return lines;
}

ParameterText parameterNamed(const std::string& tag) {
    static const std::map<std::string, ParameterText> named{
        {"SUPNAME", ParameterText::supplierName}, {"SUPFAX", ParameterText::supplierFax},
        {"SUPWEB", ParameterText::supplierWeb},   {"CATNAME", ParameterText::catalogName},
        {"CODENAME", ParameterText::codeCaption}, {"DESCNAME", ParameterText::descriptionCaption},
        {"TAXNAME", ParameterText::taxName},      {"PRICENAME", ParameterText::priceCaption},
        {"CUR", ParameterText::currency}};
    return named.at(tag);
}

template <typename Number>
Number numberIn(const std::string& text) {
    return static_cast<Number>(base::parseNumber(text));
}

support::CatalogBuilder catalogIn(const fs::path& path) {
    support::CatalogBuilder builder;
    for (const auto& line : linesOf(path)) {
        if (line[0] == "style")
            builder.groupPageStyle = line.at(1).at(0);
        else if (line[0] == "text")
            builder.texts[parameterNamed(line.at(1))] = line.at(2);
        else if (line[0] == "group")
            builder.groups.push_back({line.at(1), numberIn<std::int32_t>(line.at(2)),
                                      numberIn<std::int32_t>(line.at(3)),
                                      numberIn<std::int32_t>(line.at(4))});
        else
            builder.products.push_back({line.at(5), numberIn<float>(line.at(3)), numberIn<float>(line.at(4)),
                                        numberIn<std::int16_t>(line.at(2)), line.at(6), line.at(7),
                                        line.at(1).at(0)});
    }
    return builder;
}

// The catalogue of the case with the templates of the case.
fs::path install(const fs::path& folder) {
    const auto target = support::testFolder();
    const auto own = folder / "catalog.txt";
    catalogIn(fs::exists(own) ? own : goldenFolder / "catalog.txt").writeTo(target);
    for (const auto& path : base::filesEndingWith(folder, ".ect"))
        fs::copy(path, target);
    return target;
}

class GoldenPages : public testing::TestWithParam<std::string> {};

TEST_P(GoldenPages, AreByteForByteAsExpected) {
    const auto folder = goldenFolder / GetParam();
    const auto dataFolder = install(folder);
    const auto catalog = catalog::openCatalog(dataFolder);
    pages::CatalogPages pages(catalog, {"program", dataFolder, dataFolder}, {"50", "2", "3"}, false);

    const auto show = linesOf(folder / "show.txt").at(0);
    const auto record = numberIn<std::int32_t>(show.at(1));
    const auto tax = show.size() > 2 ? pages::TaxStatus::exempt : pages::TaxStatus::taxed;
    const auto shown = [&] {
        return show[0] == "banner" ? pages.banner(record, tax) : pages.page(record, tax);
    };
    const auto expected = base::readFile(folder / "page.expected").value();
    EXPECT_EQ(shown(), expected);
    EXPECT_EQ(shown(), expected) << "when shown again";
}

std::vector<std::string> cases() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(goldenFolder))
        if (entry.is_directory())
            names.push_back(entry.path().filename().string());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Case, GoldenPages, testing::ValuesIn(cases()),
                         [](const auto& chosen) { return chosen.param; });

}
