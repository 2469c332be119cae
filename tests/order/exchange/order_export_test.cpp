#include "base/errors.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "order/exchange/order_list.h"
#include "order/exchange/order_text.h"
#include "order/exchange/order_xlsx.h"
#include "tables/table.h"
#include "tests/order/sample_order.h"
#include "tests/support/full_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

std::string randomCode(std::mt19937& random) {
    const std::string characters = "AB09 =+-@'\";,.\t\xC4\xE9\x80<&|";
    std::string code;
    for (auto length = 1 + random() % 12; code.size() < length;)
        code += characters[random() % characters.size()];
    return std::string(base::trim(base::replaceAll(code, "\t", "T")));
}

/// An order of codes that are hard to write and quantities of up to four decimals.
order::OrderContents randomOrder(std::mt19937& random, std::map<std::string, std::string>& quantities) {
    order::OrderContents contents;
    for (int i = 0; i < 60; ++i) {
        const auto code = randomCode(random);
        const auto quantity =
            base::textOf(static_cast<float>(1 + random() % 90'000) / (i % 2 == 0 ? 1.F : 1e3F));
        if (code.empty() || !quantities.emplace(code, quantity).second)
            continue;
        contents.rows.push_back({quantity, code, "=1+1", "", "20.00", "1.00", "0.2", "1.2", 1.2345F});
    }
    return contents;
}

TEST(OrderExport, WhatIsSavedReadsAsTheSameLines) {
    std::mt19937 random(1); // NOLINT: the same each time
    SampleOrder sample;
    for (int round = 0; round < 40; ++round) {
        std::map<std::string, std::string> quantities;
        const auto contents = randomOrder(random, quantities);
        const auto table = order::orderTable(contents, sample.parameters());
        order::writeOrderCsv(sample.folder / "a.csv", table);
        const auto isCode = [&](std::string_view code) { return quantities.count(std::string(code)) > 0; };
        std::vector lists{order::readOrderList(sample.folder / "a.csv", isCode),
                          order::readOrderText(order::orderAsTableText(table), isCode)};
        if (order::canWriteXlsx()) {
            order::writeOrderXlsx(sample.folder / "a.xlsx", table, contents.totals);
            lists.push_back(order::readOrderList(sample.folder / "a.xlsx", isCode));
        }
        for (const auto& list : lists) {
            ASSERT_EQ(list.lines.size(), contents.rows.size()) << list.summary;
            for (std::size_t i = 0; i < list.lines.size(); ++i) {
                EXPECT_EQ(list.lines[i].code, contents.rows[i].code);
                EXPECT_EQ(base::parseNumber(list.lines[i].quantity),
                          base::parseNumber(contents.rows[i].quantity));
                EXPECT_EQ(list.lines[i].unclear, "");
            }
        }
    }
}

TEST(OrderExport, TextsAreNoFormulasAndNumbersAreNumbers) {
    SampleOrder sample;
    sample.contents.rows = {
        {"2", "H1", "=HYPERLINK(\"x\")", "<b>", "12.50", "10.00", "2.5", "22.5", 10.125F}};
    const auto table = order::orderTable(sample.contents, sample.parameters());
    order::writeOrderCsv(sample.folder / "a.csv", table);
    EXPECT_EQ(base::readFile(sample.folder / "a.csv"),
              "\xEF\xBB\xBF\"No.\";\"Code\";\"Description\";\"\";\"Quantity\";\"Price\";\"VAT%\";\"VAT\";"
              "\"Total\"\r\n"
              "1;\"H1\";\"'=HYPERLINK(\"\"x\"\")\";\"<b>\";2;10.125;12.5;2.50;22.50\r\n");
    const auto html = order::orderAsTableHtml(table);
    EXPECT_THAT(html, HasSubstr(">&#39;=HYPERLINK(&quot;x&quot;)</td>"));
    EXPECT_THAT(html, HasSubstr(">&lt;b&gt;</td>"));
    EXPECT_THAT(html, HasSubstr("sdval=\"22.50\""));
    sample.contents.rows[0].description = "&#960; \xE9"; // a character that the code page lacks
    EXPECT_THAT(order::orderAsTableHtml(order::orderTable(sample.contents, sample.parameters())),
                HasSubstr(">\xCF\x80 \xC3\xA9</td>"));
    sample.contents.rows[0].description = "=HYPERLINK(\"x\")";
    if (!order::canWriteXlsx())
        return;
    order::writeOrderXlsx(sample.folder / "a.xlsx", table, sample.contents.totals);
    const auto sheet = tables::openTables(sample.folder / "a.xlsx");
    tables::TableRow row;
    sheet.tables[0].table->read(1, row);
    EXPECT_EQ(row.at(2).text, "=HYPERLINK(\"x\")");
    EXPECT_FALSE(row.at(2).isNumber);
    EXPECT_TRUE(row.at(5).isNumber);
    EXPECT_EQ(row.at(5).text, "10.125");
    sheet.tables[0].table->read(2, row);
    EXPECT_EQ(row.at(8).text, "110");
}

#ifndef _WIN32
TEST(OrderExport, FullDiskLeavesTheOldFile) {
    SampleOrder sample;
    sample.fillRows(20'000);
    const auto table = order::orderTable(sample.contents, sample.parameters());
    const auto csv = [&](const fs::path& file) { order::writeOrderCsv(file, table); };
    const auto xlsx = [&](const fs::path& file) { order::writeOrderXlsx(file, table, {}); };
    const std::pair<std::string, std::function<void(const fs::path&)>> writers[] = {{"a.csv", csv},
                                                                                    {"a.xlsx", xlsx}};
    for (const auto& [name, write] : writers) {
        if (name == "a.xlsx" && !order::canWriteXlsx())
            continue;
        const auto file = sample.folder / name;
        base::replaceFile(file, "old");
        for (const rlim_t size : {0UL, 4096UL, 200'000UL}) {
            const support::FullDisk full(size);
            EXPECT_THROW(write(file), base::FileError) << name << size;
        }
        EXPECT_EQ(base::readFile(file), "old");
        EXPECT_FALSE(fs::exists(sample.folder / (name + ".new")));
        write(file);
        EXPECT_NE(base::readFile(file), "old");
    }
}
#endif

}
