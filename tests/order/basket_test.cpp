#include "base/errors.h"
#include "base/files.h"
#include "catalog/record_file.h"
#include "order/basket.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/file_system.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/test_folder.h"
#include "ui/system/disk_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>

namespace {
namespace fs = std::filesystem;
using order::TaxStatus;

class Basket : public testing::Test {
protected:
    static fs::path writeProducts(const fs::path& folder, std::vector<support::Product> values) {
        support::CatalogBuilder builder;
        builder.products = std::move(values);
        builder.writeTo(folder);
        return folder / "Prdlst.dat";
    }

    std::string fileBytes() const { return base::readFile(folder / "Basket.dat").value_or("none"); }

    static std::string bytes(std::initializer_list<int> values) { return {values.begin(), values.end()}; }

    fs::path folder = support::testFolder();
    support::Journal journal;
    support::FakeMessageBox messages{journal};
    catalog::ProductTable products{writeProducts(folder, {{.price = 10, .taxRate = 20},
                                                          {.price = 10, .taxRate = 12.5F},
                                                          {.price = 3e38F, .taxRate = 0},
                                                          {.price = -1, .taxRate = 0}})};
    ui::system::DiskFile disk;
    order::BasketFile file{folder, disk, messages};
    order::Basket basket{products, true, file};
};

TEST_F(Basket, WritesARecordOfSeventeenBytesAndNothingElse) {
    EXPECT_EQ(fileBytes(), "");
    basket.update(1, 2);
    const auto first = bytes({0, 0, 0, 0, 0x40, 0, 0, 0x80, 0x40, 0, 0, 0xC0, 0x41, 1, 0, 0, 0});
    EXPECT_EQ(fileBytes(), first);
    EXPECT_FALSE(basket.update(1, 2).changed);
    { // what another hand wrote shows which bytes an edit writes
        std::fstream other(folder / "Basket.dat", std::ios::in | std::ios::out | std::ios::binary);
        other.seekp(4).put('x');
    }
    basket.update(2, 2);
    auto damaged = first;
    damaged[4] = 'x';
    EXPECT_EQ(fileBytes(),
              damaged + bytes({0, 0, 0, 0, 0x40, 0, 0, 0x20, 0x40, 0, 0, 0xB4, 0x41, 2, 0, 0, 0}));
    basket.update(1, 0);
    EXPECT_EQ(fileBytes().substr(0, 17), std::string(13, '\0') + bytes({1, 0, 0, 0}));
}

TEST_F(Basket, DeletesTheFileOfTheLastOrder) {
    basket.update(1, 2);
    ui::system::DiskFile nextDisk;
    const order::BasketFile next(folder, nextDisk, messages);
    EXPECT_EQ(fileBytes(), "");
}

TEST_F(Basket, KeepsBasketRecordsThroughAClearAndStopsRepricingAtAnUnwrittenOne) {
    basket.update(1, 1);
    basket.update(2, 1);
    basket.clear();
    EXPECT_EQ(fileBytes(), "");
    EXPECT_EQ(basket.totals(), order::Totals());
    EXPECT_FALSE(basket.update(1, 0).changed);
    basket.update(2, 3);
    EXPECT_EQ(fileBytes().size(), 34U);
    EXPECT_EQ(fileBytes().substr(0, 17), std::string(17, '\0'));
    const auto stopped = basket.recalculate(TaxStatus::exempt);
    EXPECT_EQ(stopped.lines, 0);
    EXPECT_FALSE(stopped.finished);
    EXPECT_EQ(basket.totals().order, 33.75F);
    basket.update(1, 1);
    EXPECT_EQ(basket.lineOf(1).tax, 0);
    EXPECT_TRUE(basket.recalculate(TaxStatus::exempt).finished);
    EXPECT_EQ(basket.totals().order, 40);
    EXPECT_TRUE(basket.recalculate(TaxStatus::taxed).finished);
    EXPECT_EQ(basket.totals().order, 45.75F);
}

TEST_F(Basket, EndsTheProgramOnlyWhenTheTotalIsTrulyNegative) {
    basket.update(3, 1);
    basket.update(4, 5);
    basket.update(1, 1);
    basket.update(3, 0);
    EXPECT_EQ(basket.totals().order, 7);
    const auto before = fileBytes();
    EXPECT_THROW(basket.update(1, 0), base::ProgramEnd);
    EXPECT_EQ(basket.totals().order, 7);
    EXPECT_EQ(fileBytes(), before);
    basket.update(4, 0);
    basket.update(1, 0);
    EXPECT_EQ(basket.totals(), order::Totals());
}

TEST_F(Basket, TakesNothingForRecordsOutsideTheList) {
    for (const std::int32_t record : {0, -1, 8, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_FALSE(basket.update(record, 1).changed) << record;
        EXPECT_EQ(basket.lineOf(record), order::BasketLine()) << record;
    }
    EXPECT_EQ(fileBytes(), "");
}

TEST_F(Basket, PricesThatAreNotNumbersCountAsNothing) {
    const auto infinity = std::numeric_limits<float>::infinity();
    const auto path =
        writeProducts(folder / "strange", {{.price = infinity, .taxRate = 10},
                                           {.price = std::numeric_limits<float>::quiet_NaN(), .taxRate = 10},
                                           {.price = 4, .taxRate = -infinity}});
    const catalog::ProductTable damaged(path);
    order::Basket strange(damaged, true, file);
    for (const std::int32_t record : {1, 2, 3})
        EXPECT_EQ(strange.update(record, 2).line,
                  (order::BasketLine{2, 0, record == 3 ? 8.0F : 0.0F, record}));
    strange.recalculate(TaxStatus::taxed);
    EXPECT_EQ(strange.totals().order, 8);
}

// Typed, repriced and cleared, with a file that cannot be written.
void orderInMemory(order::Basket& basket) {
    basket.update(1, 2);
    basket.update(2, 1);
    basket.recalculate(TaxStatus::exempt);
    EXPECT_EQ(basket.totals().order, 30);
    basket.clear();
    basket.recalculate(TaxStatus::taxed);
    basket.update(1, 1);
    EXPECT_EQ(basket.totals().order, 12);
}

TEST_F(Basket, GoesOnInMemoryWithoutAFileAndSaysSoOnce) {
    const auto readOnly = folder / "readOnly";
    fs::create_directories(readOnly);
    const auto inTheWay = folder / "inTheWay";
    fs::create_directories(inTheWay / "Basket.dat" / "not empty");
    const support::ReadOnlyFolder readOnlyFolder(readOnly);
    const support::OrdinaryUser user;
    for (const auto& path : {folder / "missing", readOnly, inTheWay}) {
        if (path == readOnly && !support::foldersCanBeReadOnly)
            continue;
        ui::system::DiskFile unwritableDisk;
        order::BasketFile unwritable(path, unwritableDisk, messages);
        order::Basket unsaved(products, true, unwritable);
        EXPECT_EQ(journal.take().size(), 0U) << path;
        orderInMemory(unsaved);
        EXPECT_EQ(journal.take().size(), 1U) << path;
    }
}

#ifndef _WIN32
TEST_F(Basket, GoesOnInMemoryWhenTheDiskIsFull) {
    {
        const support::FullDisk full(17);
        orderInMemory(basket);
        basket.update(2, 1);
    }
    EXPECT_EQ(journal.take(),
              std::vector{"exclamation [Order] " + (folder / "Basket.dat").string() +
                          " cannot be written.\nYou can go on ordering: your order is kept until you leave "
                          "the catalogue."});
}
#endif

}
