#include "base/files.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "ui/intake.h"
#include "ui/ordering.h"
#include "ui/quantity.h"
#include "ui/system/disk_file.h"

#include <gtest/gtest.h>

#include <random>

namespace {
namespace fs = std::filesystem;
using ui::Overlap;

const std::string longCode = "A-CODE-OF-OVER-20-CHARACTERS";

class Intake : public testing::Test {
protected:
    static const fs::path& write(const fs::path& folder) {
        support::CatalogBuilder builder;
        builder.quantityDecimals = 2;
        builder.products = {{.text = "GROUP\nTools\n", .flag = 'N'},
                            {.text = "A 1\nHammer\n", .price = 0.1F, .taxRate = 20},
                            {.text = "00123\nNail\n", .price = 5},
                            {.text = longCode + "\nSaw\n", .price = 7.35F, .taxRate = 12.5F},
                            {.text = "\xC4X\nGift\n", .price = -1}};
        builder.writeTo(folder);
        return folder;
    }

    /// An order of its own, in a folder of its own.
    struct Order {
        explicit Order(const catalog::Catalog& catalog, support::FakeMessageBox& messages,
                       const std::string& name)
            : folder(support::testFolder(name)),
              file(folder, disk, messages),
              ordering(catalog, file, messages, toolbar) {}

        [[nodiscard]] auto seen() const {
            return std::make_tuple(base::readFile(folder / "Basket.dat"), ordering.orderLabel(),
                                   ordering.taxLabel(), toolbar);
        }

        fs::path folder;
        ui::system::DiskFile disk;
        order::BasketFile file;
        ui::ToolbarState toolbar;
        ui::Ordering ordering;
    };

    [[nodiscard]] ui::Intake plan(std::initializer_list<ui::WantedLine> lines) const {
        return ui::planIntake(catalog, order.ordering.basket(), {lines.begin(), lines.size()});
    }

    support::Journal journal;
    support::FakeMessageBox messages{journal};
    catalog::Catalog catalog = catalog::openCatalog(write(support::testFolder()));
    Order order{catalog, messages, "order"};
};

TEST_F(Intake, LinesAreTakenOrRefusedWithAReason) {
    const std::string none = "No article has this code";
    const std::vector<std::tuple<std::string, std::string, std::string>> cases{
        {" a 1 ", " 2 ", ""},
        {"a 1", "1,25", ""},
        {longCode, "1", ""},
        {longCode.substr(0, 20), "1", ""},
        {longCode + "X", "1", none},
        {longCode.substr(0, 22), "1", none},
        {"123", "1", none},
        {"", "1", "No code"},
        {"\xE4x", "1", "Its price is below 0"},
        {"group", "1", "A group, not an article"},
        {"A 1", "", "No quantity"},
        {"A 1", "-1", "Less than nothing"},
        {"A 1", "0.00", "The quantity is 0"},
        {"A 1", "1.005", "At most 2 decimals"},
        {"A 1", "1e3", "Digits and one decimal point only"},
        {"A 1", "1234567890123", "Too many digits"},
    };
    for (const auto& [code, quantity, reason] : cases) {
        const auto intake = plan({{code, quantity, {}}});
        EXPECT_EQ(intake.lines.size(), reason.empty() ? 1U : 0U) << code << quantity;
        EXPECT_EQ(intake.refused.empty() ? "" : intake.refused[0].reason, reason) << code << quantity;
    }
}

TEST_F(Intake, QuantitiesAddUpExactlyAsFarAsTheOrderCanHoldThem) {
    order.ordering.editProduct(2, "16777215");
    const auto intake = plan({{"00123", "0.1", "", 5.5F},
                              {"A 1", "1", ""},
                              {"00123", "0,2", "", 5.F},
                              {"A 1", "1", ""},
                              {longCode, "16777217", ""}});
    ASSERT_EQ(intake.lines.size(), 2U);
    EXPECT_EQ(intake.lines[0].quantity, "0.3");
    EXPECT_EQ(intake.lines[1].quantity, "1");
    EXPECT_EQ(intake.lines[1].ordered, 16777215.F);
    ASSERT_EQ(intake.refused.size(), 2U);
    EXPECT_EQ(intake.refused[0].reason, "Too much together");
    EXPECT_EQ(intake.refused[1].reason, "Too many digits");
    ASSERT_EQ(intake.prices.size(), 1U);
    EXPECT_EQ(intake.prices[0].before, 5.5F);
    EXPECT_EQ(intake.prices[0].now, 5.F);
}

TEST_F(Intake, WhatIsOrderedIsAddedToReplacedOrKept) {
    for (const auto& [overlap, quantity] :
         {std::pair(Overlap::add, "2.3"), {Overlap::replace, "0.2"}, {Overlap::keep, "2.1"}}) {
        order.ordering.editProduct(2, "2.1");
        const auto edit = order.ordering.take(plan({{"A 1", "0.2", ""}, {"00123", "1", ""}}), overlap);
        EXPECT_TRUE(edit.allRows);
        EXPECT_FALSE(edit.refilled);
        EXPECT_EQ(order.ordering.productCells(2).quantity, quantity);
    }
    order.ordering.checkOut();
    EXPECT_TRUE(order.ordering.take(plan({{longCode, "3", ""}}), Overlap::add).refilled);
    EXPECT_EQ(order.ordering.orderRows().size(), 3U);
    EXPECT_EQ(order.ordering.view(), ui::ViewMode::order);
}

TEST_F(Intake, TakingLeavesWhatTypingLeaves) {
    Order typed{catalog, messages, "typed"};
    std::mt19937 random(7); // NOLINT: the same each time
    for (int round = 0; round < 300; ++round) {
        ui::Intake intake;
        for (std::int32_t product = 1; product <= 4; ++product)
            if (random() % 2 == 0)
                intake.lines.push_back(
                    {product, ui::textOfParts(std::uniform_int_distribution(0, 50)(random) * 2500), 0});
        for (const auto& line : intake.lines)
            typed.ordering.editProduct(line.product, line.quantity);
        order.ordering.take(intake, Overlap::replace);
        if (round % 50 == 49)
            for (auto* each : {&order, &typed}) {
                messages.answers = {platform::Answer::yes};
                each->ordering.clear(0);
            }
        ASSERT_EQ(order.seen(), typed.seen()) << round;
    }
}

}
