#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "tests/ui/reference_order.h"
#include "ui/grid_cells.h"
#include "ui/ordering.h"
#include "ui/system/disk_file.h"

#include <gtest/gtest.h>

#include <random>

namespace {
using order::TaxStatus;
using ui::Field;
using ui_test::ReferenceOrder;

constexpr std::size_t historySize = 2;

/// The order of a catalogue of its own.
class Order {
public:
    Order(const std::filesystem::path& folder, const std::vector<support::Product>& products, char taxSwitch)
        : m_folder(write(folder, products, taxSwitch)) {}

    bool typeIntoProducts(std::size_t row, const std::string& text) {
        const auto record = static_cast<std::int32_t>(row) + 1;
        const auto foreseen = m_catalog.products.at(record).isProduct()
                                  ? m_ordering.toolbarOnceOrdered(record, text)
                                  : m_toolbar;
        return type(foreseen, [&] { m_ordering.editProduct(record, text); });
    }

    bool typeIntoOrder(std::size_t row, const std::string& text) {
        const auto product = m_ordering.orderRows().at(row).product();
        return type(m_ordering.toolbarOnceOrdered(product, text), [&] { m_ordering.editOrder(row, text); });
    }

    void tickExempt(bool ticked) { m_ordering.setTaxStatus(ticked ? TaxStatus::exempt : TaxStatus::taxed); }

    void clear() {
        m_messages.answers = {platform::Answer::no, platform::Answer::yes};
        EXPECT_FALSE(m_ordering.clear(historySize));
        EXPECT_TRUE(m_ordering.clear(historySize));
        EXPECT_EQ(m_journal.take().back(), "question [Warning - Clear ordered items] You are about to clear "
                                           "ordered items?\nDo you wish to continue (No)");
    }

    void checkOut() { m_ordering.checkOut(); }

    void priceList(std::size_t history) { m_ordering.priceList(history); }

    void compareWith(const ReferenceOrder& reference) const {
        EXPECT_EQ(base::readFile(m_folder / "Basket.dat"), reference.file);
        EXPECT_EQ(productRows(), reference.productRows);
        EXPECT_EQ(orderRows(), reference.orderRows);
        EXPECT_EQ(m_ordering.orderLabel(), reference.orderLabel);
        EXPECT_EQ(m_ordering.taxLabel(), reference.taxLabel);
        EXPECT_EQ(m_ordering.basket().totals().order, reference.totalOrder);
        EXPECT_EQ(m_ordering.basket().totals().tax, reference.totalTax);
        EXPECT_EQ(enabled(), reference.enabled);
    }

private:
    static const std::filesystem::path& write(const std::filesystem::path& folder,
                                              const std::vector<support::Product>& products, char taxSwitch) {
        support::CatalogBuilder builder;
        builder.products = products;
        builder.taxSwitch = taxSwitch;
        builder.writeTo(folder);
        return folder;
    }

    template <typename Typing>
    bool type(const ui::ToolbarState& foreseen, Typing typing) {
        try {
            typing();
            EXPECT_TRUE(m_toolbar == foreseen);
            return true;
        } catch (const base::ProgramEnd&) {
            return false;
        }
    }

    [[nodiscard]] std::vector<ReferenceOrder::Row> productRows() const {
        std::vector<ReferenceOrder::Row> rows;
        for (std::int32_t record = 1; record <= m_catalog.products.count(); ++record) {
            const auto cells = m_ordering.productCells(record);
            const auto text = [&](Field field) {
                const bool isTax = field == Field::tax || field == Field::taxRate;
                return isTax && !hasTaxColumns()
                           ? ""
                           : ui::productCell(m_catalog.products.at(record), cells, field);
            };
            rows.push_back(
                {0, text(Field::quantity), "", "", text(Field::tax), text(Field::amount), isGreen(cells)});
        }
        return rows;
    }

    [[nodiscard]] std::vector<ReferenceOrder::Row> orderRows() const {
        std::vector<ReferenceOrder::Row> rows;
        for (const auto& row : m_ordering.orderRows()) {
            const auto text = [&](Field field) {
                const bool isTax = field == Field::tax || field == Field::taxRate;
                return isTax && !hasTaxColumns() ? "" : ui::orderCell(m_catalog.products, row, field);
            };
            rows.push_back({row.product(), text(Field::quantity), text(Field::taxRate), text(Field::price),
                            text(Field::tax), text(Field::amount), isGreen(row.cells())});
        }
        return rows;
    }

    [[nodiscard]] bool hasTaxColumns() const { return m_catalog.parameters.chargesTax(); }

    static bool isGreen(const ui::LineCells& cells) { return cells.colour == ui::RowColour::green; }

    [[nodiscard]] std::set<int> enabled() const {
        std::set<int> positions;
        for (const auto& button : ui::commands)
            if (!button.menuOf && button.command != ui::Command::exit &&
                button.command != ui::Command::help && m_toolbar.enabled(button.command))
                positions.insert(static_cast<int>(button.command));
        return positions;
    }

    std::filesystem::path m_folder;
    support::Journal m_journal;
    support::FakeMessageBox m_messages{m_journal};
    catalog::Catalog m_catalog = catalog::openCatalog(m_folder);
    ui::system::DiskFile m_disk;
    order::BasketFile m_file{m_folder, m_disk, m_messages};
    ui::ToolbarState m_toolbar = ui::openingToolbar(m_catalog.parameters, "");
    ui::Ordering m_ordering{m_catalog, m_file, m_messages, m_toolbar};
};

const std::vector<support::Product> products{
    {.text = "G\nGroup\n", .flag = 'N'},
    {.text = "A\na\n", .price = 10, .taxRate = 12.5F},
    {.text = "B\nb\n", .price = 0.12F, .taxRate = 12.5F},
    {.text = "C\nc\n", .price = 0.3F, .taxRate = 5},
    {.text = "D\nd\n", .price = 0, .taxRate = 20},
    {.text = "E\ne\n", .price = 0.004F, .taxRate = 1000},
    {.text = "F\nf\n", .price = 1234.56F, .taxRate = 17.5F},
    {.text = "H\nh\n", .price = -2.5F, .taxRate = 10},
    {.text = "I\ni\n", .price = 99999.99F, .taxRate = 0},
    {.text = "J\nj\n", .price = 65536.03F, .taxRate = 0},
    {.text = "K\nk\n", .price = 5.25F, .taxRate = 10},
};

const std::vector<std::string> texts{"",      "0",  "1",   "2",  "2.0", "2.50", "3",     "0.125",
                                     "0.125", "12", "abc", " 5", "1,5", "-1",   "99999", "1e3"};

class OrderingRun : public testing::TestWithParam<char> {
protected:
    std::size_t below(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }

    void step() {
        const auto& text = texts[below(texts.size())];
        const auto choice = below(100);
        const bool inOrder = reference.viewMode == 'O';
        if (choice < 12) {
            SCOPED_TRACE("tax");
            const bool ticked = below(2) == 0;
            both([&](auto& side) { side.tickExempt(ticked); });
        } else if (choice < 15) {
            both([](auto& side) { side.clear(); });
        } else if (choice < 30) {
            const auto history = 1 + below(2);
            if (inOrder)
                both([&](auto& side) { side.priceList(history); });
            else if (reference.totalOrder != 0)
                both([](auto& side) { side.checkOut(); });
        } else if (!inOrder) {
            type(products.size(), text,
                 [&](auto& side, std::size_t row) { return side.typeIntoProducts(row, text); });
        } else if (!reference.orderRows.empty()) {
            type(reference.orderRows.size(), text,
                 [&](auto& side, std::size_t row) { return side.typeIntoOrder(row, text); });
        }
    }

    template <typename Act>
    void both(Act act) {
        act(reference);
        act(ordering);
    }

    template <typename Type>
    void type(std::size_t rows, const std::string& text, Type typing) {
        const auto row = below(rows);
        EXPECT_EQ(typing(ordering, row), typing(reference, row)) << text << " in row " << row;
    }

    ReferenceOrder reference{products, GetParam()};
    Order ordering{support::testFolder(), products, GetParam()};

private:
    std::mt19937 m_random{20260101};
};

TEST_P(OrderingRun, DoesAllThroughALongDayWhatTheRulesSay) {
    for (int number = 1; number <= 6000 && !HasFailure(); ++number) {
        SCOPED_TRACE("step " + std::to_string(number));
        step();
        ordering.compareWith(reference);
    }
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutTax, OrderingRun, testing::Values('Y', 'N'),
                         [](const auto& switches) { return std::string(1, switches.param); });

}
