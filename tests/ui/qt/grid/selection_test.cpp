#include "ui/qt/grid/grid.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

/// A long list that counts how often it is asked for a row.
class CountedModel final : public ui::qt::GridModel {
public:
    explicit CountedModel(int rows)
        : GridModel({{ui::Field::quantity, "Quantity", 8, 4}, {ui::Field::code, "Code", 20, 4}}, 0, nullptr),
          m_rows(rows) {}

    [[nodiscard]] bool takesQuantity(int) const override { return true; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : m_rows;
    }

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        ++asked;
        return GridModel::flags(index);
    }

    mutable int asked = 0;

protected:
    [[nodiscard]] std::string cell(int row, ui::Field) const override { return std::to_string(row); }

    [[nodiscard]] bool isHeading(int) const override { return false; }

    [[nodiscard]] ui::RowColour colour(int) const override { return ui::RowColour::white; }

private:
    int m_rows;
};

TEST(Selection, OfAllRowsAsksOnlyThoseThatAreSeen) {
    ui::qt::Grid grid("grid", "Grid", nullptr);
    auto* model = new CountedModel(999'999);
    grid.open(model);
    grid.resize(400, 300);
    grid.show();
    QTest::qWait(0);
    model->asked = 0;
    QTest::keyClick(&grid, Qt::Key_A, Qt::ControlModifier);
    (void)grid.grab();
    EXPECT_LT(model->asked, 1000);
    EXPECT_TRUE(grid.selectionModel()->isRowSelected(999'998, {}));
}

}
