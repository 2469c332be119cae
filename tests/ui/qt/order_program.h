#pragma once

#include "base/bytes.h"
#include "tests/ui/qt/program_folder.h"
#include "ui/qt/grid/grid.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <span>

/// The program on a small catalogue: rows 2 and 3 of the product grid are B1 at 10.00 with 12.5 % tax and
/// B2 at 2.50 with 10 %; rows 0 and 1 are groups.
class OrderProgram : public ProgramTest {
protected:
    OrderProgram() {
        writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
        catalog.catalogPassword = "OMIT";
        catalog.quantityDecimals = 1;
    }

    void start() { deliver("ACME", catalog); }

    /// A step on the main window, once its page is up.
    void then(const QString& what, std::function<void()> act) {
        script.when(
            what, [] { return page() && !QApplication::activeModalWidget(); }, std::move(act));
    }

    static ui::qt::Grid* products() { return tour::visible<ui::qt::Grid>("ctGrid1"); }

    static ui::qt::Grid* order() { return tour::visible<ui::qt::Grid>("ctGrid2"); }

    static QString text(const char* name) { return tour::visible<QLabel>(name)->text(); }

    static QString cell(ui::qt::Grid* grid, int row, int column) {
        return grid->model()->index(row, column).data().toString();
    }

    static QLineEdit* box(const char* name) { return tour::visible<QLineEdit>(name); }

    static void press(const char* button) { QTest::mouseClick(tour::visibleWidget(button), Qt::LeftButton); }

    // But for "Back", which follows the pages in their own time.
    static QString enabledButtons() {
        QString all;
        for (const char* key : {"Search", "Plist", "CheckOut", "Email", "Clear"})
            if (tour::visibleWidget(key)->isEnabled())
                all += QString(key) + " ";
        return all.trimmed();
    }

    static QLineEdit* editor(ui::qt::Grid* grid) { return grid->editor(); }

    // Types a quantity on a row and leaves the editor open.
    static void type(ui::qt::Grid* grid, int row, const QString& quantity) {
        grid->setCurrentIndex(grid->model()->index(row, 3));
        QTest::keyClicks(grid, quantity.left(1));
        ASSERT_NE(editor(grid), nullptr) << "no editor on row " << row;
        QTest::keyClicks(editor(grid), quantity.mid(1));
    }

    static void enter(ui::qt::Grid* grid, int row, const QString& quantity) {
        type(grid, row, quantity);
        QTest::keyClick(editor(grid), Qt::Key_Return);
    }

    [[nodiscard]] float storedQuantity(std::size_t record) const {
        const auto bytes = readFile("ACME/Basket.dat");
        return base::readSingle(std::as_bytes(std::span(bytes)), (record - 1) * 17 + 1);
    }

    support::CatalogBuilder catalog = smallCatalog("Acme");
};
