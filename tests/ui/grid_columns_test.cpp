#include "catalog/catalog.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"
#include "ui/commands.h"
#include "ui/grid_cells.h"
#include "ui/grid_columns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {
using catalog::ParameterText;
using ui::Alignment;
using ui::Command;
using ui::Field;

class MainWindowParts : public testing::Test {
protected:
    MainWindowParts() {
        builder.texts = {{ParameterText::codeCaption, "Item"},
                         {ParameterText::descriptionCaption, "Article"},
                         {ParameterText::taxName, "GST%"},
                         {ParameterText::priceCaption, "Each"}};
        builder.groups = {{"All", 1, 0, 0}};
        builder.products = {{.text = "G\nBolts\n", .flag = 'N'},
                            {.text = "B1\nBolt\nBox 10", .price = 22.5F, .taxRate = 12.5F, .memo = "long"}};
    }

    catalog::Parameters parameters() {
        builder.writeTo(folder);
        return catalog::Parameters(folder / "PrdPrm.dat");
    }

    std::vector<Field> fields() {
        std::vector<Field> result;
        for (const auto& column : ui::productColumns(parameters()))
            result.push_back(column.field);
        return result;
    }

    support::CatalogBuilder builder;
    std::filesystem::path folder = support::testFolder();
};

TEST_F(MainWindowParts, TheGridHasNineColumnsWithTaxAndSevenWithout) {
    EXPECT_EQ(fields(), (std::vector{Field::quantity, Field::mark, Field::code, Field::description,
                                     Field::other, Field::taxRate, Field::price, Field::tax, Field::amount}));
    EXPECT_EQ(ui::productColumns(parameters())[5].caption, "GST%");
    EXPECT_EQ(ui::productColumns(parameters())[7].caption, "GST");
    builder.taxSwitch = 'N';
    EXPECT_EQ(fields(), (std::vector{Field::quantity, Field::mark, Field::code, Field::description,
                                     Field::other, Field::price, Field::amount}));
}

TEST_F(MainWindowParts, TheOrderGridLeavesTheOtherColumnOutUnlessItsSwitchIsSet) {
    const auto numberOf = [&](Field field) {
        const auto columns = ui::orderColumns(parameters());
        return std::find_if(columns.begin(), columns.end(),
                            [&](const ui::Column& column) { return column.field == field; }) -
               columns.begin();
    };
    EXPECT_EQ(numberOf(Field::taxRate), 4);
    EXPECT_EQ(numberOf(Field::amount), 7);
    builder.taxSwitch = 'N';
    EXPECT_EQ(numberOf(Field::price), 4);
    EXPECT_EQ(numberOf(Field::amount), 5);
    builder.orderGridHasOtherColumn = true;
    EXPECT_EQ(numberOf(Field::other), 4);
    EXPECT_EQ(numberOf(Field::amount), 6);
}

TEST_F(MainWindowParts, TheOtherColumnShowsOnlyWithACaptionAndAlignsByItsLetter) {
    EXPECT_FALSE(ui::productColumns(parameters())[4].shown);
    builder.texts[ParameterText::otherCaption] = "Pack";

    const struct {
        char letter;
        Alignment header, text;
    } cases[] = {{'L', Alignment::left, Alignment::left},
                 {'R', Alignment::rightHeader, Alignment::right},
                 {' ', Alignment::centred, Alignment::centred},
                 {'l', Alignment::centred, Alignment::centred}};

    for (const auto& c : cases) {
        builder.otherColumnAlignment = c.letter;
        const auto column = ui::productColumns(parameters())[4];
        EXPECT_TRUE(column.shown);
        EXPECT_EQ(column.header, c.header) << c.letter;
        EXPECT_EQ(column.text, c.text) << c.letter;
    }
}

TEST_F(MainWindowParts, CellsHoldPlainTextsAndMarksTellGroupsAndLongDescriptions) {
    builder.writeTo(folder);
    const catalog::ProductTable products(folder / "Prdlst.dat");
    const auto cell = [&](int record, Field field) {
        return ui::productCell(products.at(record), {}, field);
    };
    EXPECT_EQ(cell(1, Field::mark), "+");
    EXPECT_EQ(cell(1, Field::price), "");
    EXPECT_EQ(cell(2, Field::mark), "*");
    EXPECT_EQ(cell(2, Field::description), "Bolt");
    EXPECT_EQ(cell(2, Field::other), "Box 10");
    EXPECT_EQ(cell(2, Field::taxRate), "12.5");
    EXPECT_EQ(cell(2, Field::price), "22.5");
    EXPECT_EQ(cell(3, Field::description), "");
}

TEST_F(MainWindowParts, PrintAndEmailAreHiddenWithoutTheSuppliersAddressOrTheUsersMail) {
    const auto visible = [&](Command command, const char* status) {
        return ui::openingToolbar(parameters(), status).visible(command);
    };
    EXPECT_FALSE(visible(Command::print, "Yes"));
    EXPECT_FALSE(visible(Command::email, "Yes"));
    builder.texts[ParameterText::supplierFax] = "1";
    builder.texts[ParameterText::supplierEmail] = "a@b";
    EXPECT_TRUE(visible(Command::print, "NO"));
    for (const char* status : {"", "N", "Yes", "None"})
        EXPECT_TRUE(visible(Command::email, status)) << status;
    for (const char* status : {"no", " No ", "NO"})
        EXPECT_FALSE(visible(Command::email, status)) << status;
}

TEST(FittedWidths, NarrowAlikeDownToTheirNarrowestAndThenOverhang) {
    const std::vector<ui::ColumnRoom> columns{{100, 50}, {0, 40}, {0, 0}, {60, 60}};
    const std::pair<int, std::vector<int>> cases[] = {
        {500, {100, 340, 0, 60}}, // the second takes what is left over
        {200, {100, 40, 0, 60}},  {175, {75, 40, 0, 60}}, {151, {51, 40, 0, 60}},
        {100, {50, 40, 0, 60}},   {0, {50, 40, 0, 60}},
    };
    for (const auto& [room, widths] : cases)
        EXPECT_EQ(ui::fittedWidths(columns, room), widths) << room;
    EXPECT_EQ(ui::fittedWidths({}, 100), std::vector<int>());
}

}
