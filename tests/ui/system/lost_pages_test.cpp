#include "base/errors.h"
#include "base/files.h"
#include "pages/browse/browsing.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_browser.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "ui/document_rows.h"
#include "ui/ordering.h"
#include "ui/search.h"
#include "ui/system/disk_file.h"
#include "ui/system/lost_pages.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr int productCount = 3000; // so that every file has many pages

support::CatalogBuilder largeCatalog() {
    support::CatalogBuilder builder;
    for (int i = 0; i < productCount; ++i) {
        builder.products.push_back(
            {.text = "P" + std::to_string(i) + "\nBolt\n", .price = 10, .memo = std::string(50, 'm')});
        builder.groups.push_back({"Group", i, 0, 1});
    }
    builder.products.back().text = "LAST\nNeedle\n";
    return builder;
}

class ShrinkingFiles : public testing::Test {
protected:
    ShrinkingFiles() {
        largeCatalog().writeTo(folder);
        for (const auto* page : {"Catalog.Ect", "Banner.Ect"})
            base::replaceFile(folder / page, "{CODE} {PRICEEXC} {LNGDESC}");
    }

    void cut(std::string_view file, std::uintmax_t size = 10) const {
        fs::resize_file(base::filePath(folder, file), size);
    }

    const fs::path folder = support::testFolder();
};

/// Reads something of every page of every file.
void readAll(const catalog::Catalog& opened) {
    volatile char kept = 0; // so that no reading is left out
    for (std::int32_t number = 1; number <= productCount; ++number) {
        kept = opened.memos.text(number * 50, 1).front();
        kept = opened.products.at(number).text().front();
        kept = opened.groups.at(number).name().empty() ? 'n' : 'y';
        kept = opened.codes.find("P" + std::to_string(number)) == 0 ? 'n' : 'y';
    }
    static_cast<void>(kept);
    EXPECT_FALSE(
        ui::searchProducts(opened.products, "nothing has this", {true, true, true}, 0, ui::Direction::down));
}

TEST_F(ShrinkingFiles, AreReadAsZerosAndCountAsDamagedForGood) {
    for (const auto name :
         {catalog::productsFile, catalog::groupsFile, catalog::indexFile, catalog::memosFile}) {
        largeCatalog().writeTo(folder);
        const auto opened = catalog::openCatalog(folder);
        const ui::system::LostPages lostPages(opened.openFiles());
        const auto path = base::filePath(folder, name);
        const auto size = fs::file_size(path);
        readAll(opened);
        EXPECT_TRUE(opened.isWhole());
        cut(name);
        EXPECT_FALSE(opened.isWhole()) << "seen before anything is read";
        readAll(opened);
        fs::resize_file(path, size);
        try {
            opened.requireWhole();
            ADD_FAILURE() << name << ": what was lost does not come back";
        } catch (const base::DamagedFile& damaged) {
            EXPECT_THAT(damaged.text(), HasSubstr(path.string() + " is  corrupt ")) << name;
        }
    }
}

TEST_F(ShrinkingFiles, ThatVanishCountAsDamaged) {
    const auto opened = catalog::openCatalog(folder);
    fs::remove(opened.groups.file().path());
    EXPECT_THROW(opened.requireWhole(), base::DamagedFile);
}

class Cursor final : public ui::SearchedGrid {
public:
    explicit Cursor(support::Journal& journal) : m_journal(journal) {}

    [[nodiscard]] std::int32_t currentRow() const override { return 0; }

    void setCurrentRow(std::int32_t row) override { m_journal.add("row " + std::to_string(row)); }

    void takeFocus() override { m_journal.add("focus"); }

private:
    support::Journal& m_journal;
};

// What was read of them is neither written nor shown nor told.
TEST_F(ShrinkingFiles, PriceShowAndFindNothing) {
    support::Journal journal;
    support::FakeMessageBox box(journal);
    Cursor cursor(journal);
    support::FakeBrowser banner(journal);
    support::FakeBrowser page(journal);
    ui::system::DiskFile disk;
    order::BasketFile basket(folder, disk, box);
    ui::ToolbarState toolbar;
    pages::PageSetting setting;
    setting.folders = {folder, folder, folder};
    const auto opened = catalog::openCatalog(folder);
    const ui::system::LostPages lostPages(opened.openFiles());
    ui::Ordering ordering(opened, basket, box, toolbar);
    pages::Browsing browsing(setting, opened, banner, page);
    ui::Search search(opened.products, cursor, box);
    // The product whose record begins on one page and has its price on the next, which is lost.
    constexpr auto length = catalog::ProductRecord::length;
    auto pageEnd = static_cast<std::uintmax_t>(::sysconf(_SC_PAGESIZE));
    while (pageEnd % length < 2 || pageEnd % length > 100)
        pageEnd += static_cast<std::uintmax_t>(::sysconf(_SC_PAGESIZE));
    const auto product = static_cast<std::int32_t>(pageEnd / length + 1);
    ordering.editProduct(product, "3");
    ordering.checkOut();
    static_cast<void>(journal.take());
    const auto stored = base::readFile(folder / "Basket.dat");
    cut(catalog::productsFile, pageEnd);

    EXPECT_THROW(ordering.editProduct(product, "1"), base::DamagedFile);
    EXPECT_THROW(ordering.setTaxStatus(order::TaxStatus::exempt), base::DamagedFile);
    EXPECT_THROW(search.first({"needle", {false, true, false}}), base::DamagedFile);
    EXPECT_THROW(search.first({"no such", {false, true, false}}), base::DamagedFile);
    EXPECT_THROW(browsing.showRecord(product), base::DamagedFile);
    EXPECT_THROW(static_cast<void>(ui::documentRows(opened, ordering.orderRows())), base::DamagedFile);
    EXPECT_THAT(journal.take(), testing::IsEmpty());
    EXPECT_EQ(ordering.orderLabel(), "30.00");
    EXPECT_EQ(base::readFile(folder / "Basket.dat"), stored);
}

/// A page of a file of nobody's, cut to nothing.
const volatile char* foreignLostPage(const fs::path& path) {
    base::replaceFile(path, std::string(100, 'x'));
    static const base::MappedFile file(path);
    fs::resize_file(path, 0);
    return reinterpret_cast<const char*>(file.bytes().data());
}

extern "C" void leaveWithSeven(int /*signal*/) {
    std::_Exit(7);
}

TEST_F(ShrinkingFiles, ThatAreNotOursGoToWhoeverWasThereBefore) {
    const auto path = folder / "foreign";
    const auto readForeign = [&] {
        const ui::system::LostPages lostPages({});
        static_cast<void>(*foreignLostPage(path));
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            std::signal(SIGBUS, SIG_DFL); // a sanitizer has a handler of its own
            readForeign();
        },
        testing::KilledBySignal(SIGBUS), "");
    EXPECT_EXIT(
        {
            std::signal(SIGBUS, leaveWithSeven);
            readForeign();
        },
        testing::ExitedWithCode(7), "");
}

}
