#include "ui/qt/grid/grid.h"

#include <QApplication>
#include <QClipboard>
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
    mutable int written = 0;

protected:
    [[nodiscard]] std::string cell(int row, ui::Field field) const override {
        ++written;
        return field == ui::Field::code ? "\xE9" + std::to_string(row) : "";
    }

    [[nodiscard]] bool isHeading(int) const override { return false; }

    [[nodiscard]] ui::RowColour colour(int) const override { return ui::RowColour::white; }

private:
    int m_rows;
};

TEST(Grid, ReadsOnlyRowsThatAreSeen) {
    ui::qt::Grid grid("grid", "Grid", nullptr);
    auto* model = new CountedModel(999'999);
    grid.open(model);
    grid.resize(400, 300);
    (void)grid.grab();
    grid.setCurrentIndex(model->index(999'998, 1));
    (void)grid.grab();
    EXPECT_GT(model->written, 0);
    EXPECT_LT(model->written, 1000);
}

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

TEST(Selection, OfAllRowsIsWrittenWhenItIsPasted) {
    ui::qt::Grid grid("grid", "Grid", nullptr);
    auto* model = new CountedModel(999'999);
    grid.open(model);
    grid.selectAll();
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(model->written, 0);
    const auto lines = QApplication::clipboard()->text().split('\n');
    ASSERT_EQ(lines.size(), 999'999);
    EXPECT_EQ((QStringList{lines.front(), lines[4321], lines.back()}),
              (QStringList{"\t\u00E90", "\t\u00E94321", "\t\u00E9999998"}));
    delete model;
    EXPECT_EQ(QApplication::clipboard()->text(), "");
}

}
