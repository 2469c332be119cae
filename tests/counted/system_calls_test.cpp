// What is asked of the system.

#include "order/kept/order_journal.h"
#include "pages/browse/group_lists.h"
#include "tests/counted/large_catalog.h"
#include "tests/counted/system_calls.h"
#include "tests/support/fake_message_box.h"
#include "ui/ordering.h"
#include "ui/system/appended_file.h"
#include "ui/system/disk_file.h"

#include <gtest/gtest.h>

#include <sys/syscall.h>

namespace {

using counted::Calls;
using counted::few;
using counted::many;

/// An order of each product of a catalogue, with a journal that hears of everything.
class FullOrder {
public:
    explicit FullOrder(int products) : m_folder(counted::catalogOf(products)) {
        ordering.watch(&m_journal);
        for (std::int32_t product = 1; product <= products; ++product)
            ordering.editProduct(product, "1");
    }

private:
    std::filesystem::path m_folder;
    catalog::Catalog m_catalog = catalog::openCatalog(m_folder);
    support::Journal m_messages;
    support::FakeMessageBox m_boxes{m_messages};
    ui::system::DiskFile m_disk;
    order::BasketFile m_file{m_folder, m_disk, m_boxes};
    ui::ToolbarState m_toolbar;
    ui::system::AppendedFile m_appended;
    order::OrderJournal m_journal{m_catalog, {"ACME", "", m_folder}, m_folder, m_appended};

public:
    ui::Ordering ordering{m_catalog, m_file, m_boxes, m_toolbar};
};

TEST(SystemCalls, AnEditIsOneWriteHoweverManyLinesTheOrderHas) {
    constexpr int edits = 50;
    for (const int lines : {few, many}) {
        FullOrder order(lines);
        const auto calls = counted::callsOf([&] {
            for (int i = 0; i < edits; ++i)
                order.ordering.editProduct(1 + i * (lines / edits), "2");
        });
        if (!calls)
            GTEST_SKIP() << "this process may not watch another";
        EXPECT_EQ(*calls, (Calls{{SYS_pwrite64, edits}})) << lines;
    }
}

TEST(SystemCalls, OpeningACatalogAsksTheSameForAHundredThousandRecordsAsForAThousand) {
    const auto small = counted::catalogOf(few), large = counted::catalogOf(many);
    const auto calls = counted::callsOf([&] { static_cast<void>(catalog::openCatalog(small)); });
    if (!calls)
        GTEST_SKIP() << "this process may not watch another";
    EXPECT_GE(calls->size(), 2U) << "five files are opened and mapped at least";
    EXPECT_EQ(counted::callsOf([&] { static_cast<void>(catalog::openCatalog(large)); }), calls);
}

TEST(SystemCalls, OpeningAListOfGroupsOrTheOrderAsksNothing) {
    const auto catalog = catalog::openCatalog(counted::catalogOf(few));
    FullOrder order(few);
    const auto calls = counted::callsOf([&] {
        pages::GroupLists lists(catalog);
        lists.enter(0);
        order.ordering.checkOut();
    });
    if (!calls)
        GTEST_SKIP() << "this process may not watch another";
    EXPECT_EQ(*calls, Calls());
}

}
