#include "base/errors.h"
#include "base/files.h"
#include "base/numbers.h"
#include "catalog/catalog.h"
#include "order/order_grids.h"
#include "tests/order/reference_order.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "ui/order_cells.h"
#include "ui/toolbar.h"

#include <gtest/gtest.h>

#include <random>

namespace {
using order::TaxStatus;
using order_test::ReferenceOrder;
using ui::Field;
using ui::ViewMode;

constexpr std::size_t historySize = 2;

/// The parts as the main window puts them together, with a catalogue of their own.
class Ordering {
public:
    Ordering(const std::filesystem::path& folder, const std::vector<support::Product>& products,
             char taxSwitch)
        : m_folder(write(folder, products, taxSwitch)) {}

    bool typeIntoProducts(std::size_t row, const std::string& text) {
        return type([&] { return m_grids.editProduct(static_cast<std::int32_t>(row) + 1, text); });
    }

    bool typeIntoOrder(std::size_t row, const std::string& text) {
        return type([&] { return m_grids.editOrder(row, text); });
    }

    void tickExempt(bool ticked) {
        if (m_grids.recalculate(ticked ? TaxStatus::exempt : TaxStatus::taxed).finished)
            refresh();
    }

    void clear() {
        m_grids.clear();
        refresh();
        if (m_view == ViewMode::order)
            priceList(historySize);
        m_toolbar = ui::afterClear(m_toolbar);
    }

    void checkOut() {
        m_view = ViewMode::order;
        m_grids.fillOrder();
        m_toolbar = ui::afterCheckOut(m_toolbar, m_basket.totals().order);
    }

    void priceList(std::size_t history) {
        m_view = ViewMode::catalogue;
        m_toolbar = ui::afterPriceList(m_toolbar, m_basket.totals().order, history);
    }

    void compareWith(const ReferenceOrder& reference) const {
        EXPECT_EQ(base::readFile(m_folder / "Basket.dat"), reference.file);
        EXPECT_EQ(productRows(), reference.productRows);
        EXPECT_EQ(orderRows(), reference.orderRows);
        EXPECT_EQ(m_orderLabel, reference.orderLabel);
        EXPECT_EQ(m_taxLabel, reference.taxLabel);
        EXPECT_EQ(m_basket.totals().order, static_cast<float>(reference.totalOrder));
        EXPECT_EQ(m_basket.totals().tax, static_cast<float>(reference.totalTax));
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
    bool type(Typing typing) {
        try {
            const auto edit = typing();
            if (edit && edit->orderChanged)
                refresh();
            return true;
        } catch (const base::ProgramEnd&) {
            return false;
        }
    }

    void refresh() {
        const auto totals = m_basket.totals();
        m_orderLabel = base::groupedText(totals.order);
        m_taxLabel = base::groupedText(totals.tax);
        m_toolbar = ui::afterOrderChange(m_toolbar, m_view, totals.order);
    }

    [[nodiscard]] std::vector<ReferenceOrder::Row> productRows() const {
        std::vector<ReferenceOrder::Row> rows;
        for (std::int32_t record = 1; record <= m_catalog.products.count(); ++record) {
            const auto cells = m_grids.productCells(record);
            const auto text = [&](Field field) {
                const bool isTax = field == Field::tax || field == Field::taxRate;
                return isTax && !hasTaxColumns()
                           ? ""
                           : ui::productCell(m_catalog.products.at(record), cells, field);
            };
            rows.push_back(
                {0, text(Field::quantity), "", "", text(Field::tax), text(Field::total), isGreen(cells)});
        }
        return rows;
    }

    [[nodiscard]] std::vector<ReferenceOrder::Row> orderRows() const {
        std::vector<ReferenceOrder::Row> rows;
        for (const auto& row : m_grids.orderRows()) {
            const auto text = [&](Field field) {
                const bool isTax = field == Field::tax || field == Field::taxRate;
                return isTax && !hasTaxColumns() ? "" : ui::orderCell(m_catalog.products, row, field);
            };
            rows.push_back({row.product(), text(Field::quantity), text(Field::taxRate), text(Field::price),
                            text(Field::tax), text(Field::total), isGreen(row.cells())});
        }
        return rows;
    }

    [[nodiscard]] bool hasTaxColumns() const { return m_catalog.parameters.chargesTax(); }

    static bool isGreen(const order::LineCells& cells) { return cells.colour == order::RowColour::green; }

    [[nodiscard]] std::set<int> enabled() const {
        std::set<int> positions;
        for (const auto& button : ui::toolbarButtons)
            if (button.command != ui::Command::exit && m_toolbar.enabled(button.command))
                positions.insert(static_cast<int>(button.command));
        return positions;
    }

    std::filesystem::path m_folder;
    support::Journal m_journal;
    support::FakeMessageBox m_messages{m_journal};
    catalog::Catalog m_catalog = catalog::openCatalog(m_folder);
    order::BasketFile m_file{m_folder, m_messages};
    order::Basket m_basket{m_catalog.products, m_catalog.parameters.chargesTax(), m_file};
    order::OrderGrids m_grids{m_catalog.products, m_basket};
    ui::ToolbarState m_toolbar = ui::openingToolbar(m_catalog.parameters, "");
    ViewMode m_view = ViewMode::catalogue;
    std::string m_orderLabel = "0.00", m_taxLabel = "0.00";
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
    Ordering ordering{support::testFolder(), products, GetParam()};

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
