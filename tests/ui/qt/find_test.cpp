#include "base/files.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "ui/qt/find.h"
#include "ui/qt/widgets/qt_text.h"
#include "ui/qt/widgets/window_place.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using catalog::ParameterText;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::qt::Find;

class TableGrid final : public QTableWidget, public ui::SearchedGrid {
public:
    TableGrid(int rows, QWidget* parent) : QTableWidget(rows, 3, parent) {}

    [[nodiscard]] std::int32_t currentRow() const override { return QTableWidget::currentRow(); }

    void setCurrentRow(std::int32_t row) override { setCurrentCell(row, 0); }

    void takeFocus() override {
        window()->activateWindow();
        setFocus();
    }
};

/// The search window over a main window that holds nothing but the grid.
class FindTest : public testing::Test {
protected:
    FindTest() {
        builder.texts = {{ParameterText::codeCaption, "Part & no."},
                         {ParameterText::descriptionCaption, "Article"},
                         {ParameterText::otherCaption, "Size"}};
        builder.products = {
            {.text = "B1\nBolt\nM6"}, {.text = "N1\nNut\nM8"}, {.text = "B2\nBolt\nM8 &#960;"}};
    }

    void start() {
        builder.writeTo(folder);
        catalog.emplace(catalog::openCatalog(folder));
        grid = new TableGrid(3, &mainWindow);
        grid->setGeometry(0, 0, 400, 300);
        grid->setCurrentRow(0);
        mainWindow.setGeometry(100, 100, 500, 400);
        mainWindow.show();
        find = new Find({*catalog, *grid, messages, settings, guard}, &mainWindow);
    }

    void open() {
        find->bringUp();
        ASSERT_TRUE(QTest::qWaitForWindowActive(find));
    }

    template <typename Widget>
    Widget* control(const char* name) {
        return find->findChild<Widget*>(name);
    }

    void type(const QString& phrase) {
        control<QLineEdit>("txFind")->selectAll();
        QTest::keyClicks(control<QLineEdit>("txFind"), phrase);
    }

    /// In the search window, to which the user comes back if need be.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        find->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(find));
        QTest::keyClick(find->focusWidget(), key, modifiers);
    }

    [[nodiscard]] std::string saved(const char* key) const { return settings.read({"Find", key}); }

    void write(const std::string& section) { base::replaceFile(folder / "User.ini", "[Find]\r\n" + section); }

    support::CatalogBuilder builder;
    std::filesystem::path folder = support::testFolder();
    std::optional<catalog::Catalog> catalog;
    support::Journal journal;
    support::FakeMessageBox messages{journal};
    ui::qt::Guard guard{messages};
    catalog::SettingsFile settings{folder / "User.ini"};
    QWidget mainWindow;
    TableGrid* grid = nullptr;
    Find* find = nullptr;
};

TEST_F(FindTest, IsWorkedByTheKeyboardAlone) {
    start();
    open();
    EXPECT_EQ(find->focusWidget(), control<QLineEdit>("txFind"));
    EXPECT_FALSE(find->isModal());
    type("bolt");
    press(Qt::Key_Return);
    EXPECT_THAT(journal.take(), ElementsAre("information [Search] bolt not found."))
        << "nothing is ticked at first";
    EXPECT_TRUE(grid->hasFocus() || mainWindow.focusWidget() == grid);
    EXPECT_TRUE(find->isVisible());

    control<QCheckBox>("cbDesc")->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(saved("Desc"), "1") << "at once, not at closing";
    press(Qt::Key_Return);
    EXPECT_EQ(grid->currentRow(), 2);
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(grid->currentRow(), 0);
    press(Qt::Key_F3);
    EXPECT_EQ(grid->currentRow(), 2);
    press(Qt::Key_P, Qt::AltModifier); // shows the button being pressed first
    EXPECT_TRUE(QTest::qWaitFor([&] { return grid->currentRow() == 0; }, 5000));
    EXPECT_THAT(journal.take(), IsEmpty());
    const auto phraseIsSelected = [&] {
        press(Qt::Key_F, Qt::ControlModifier); // again if the grid's window came to the front meanwhile
        return control<QLineEdit>("txFind")->selectedText() == "bolt";
    };
    EXPECT_TRUE(QTest::qWaitFor(phraseIsSelected, 5000));
    press(Qt::Key_Escape);
    EXPECT_FALSE(find->isVisible());
}

TEST_F(FindTest, ButtonsSearchFromTheTopOnwardsAndBack) {
    write("Code=1\r\n");
    start();
    open();
    type("b");
    const auto click = [&](const char* name) {
        QTest::mouseClick(control<QPushButton>(name), Qt::LeftButton);
    };
    click("cbNext");
    EXPECT_EQ(grid->currentRow(), 2);
    click("cbNext");
    EXPECT_THAT(journal.take(), ElementsAre("information [Search] b not found."));
    EXPECT_EQ(grid->currentRow(), 2);
    click("cbFirst");
    EXPECT_EQ(grid->currentRow(), 0);
    grid->setCurrentRow(2);
    click("cbPrev");
    EXPECT_EQ(grid->currentRow(), 0);
}

TEST_F(FindTest, IsLabelledByTheCatalogue) {
    start();
    open();
    EXPECT_EQ(control<QCheckBox>("cbCode")->text(), "Part && no.");
    EXPECT_EQ(control<QCheckBox>("cbCode")->toolTip(), "If ticked, includes the Code column in the search");
    EXPECT_EQ(control<QCheckBox>("cbDesc")->text(), "Article");
    EXPECT_EQ(control<QCheckBox>("cbOther")->text(), "Size");
    EXPECT_TRUE(control<QCheckBox>("cbOther")->isVisible());
    EXPECT_EQ(control<QLineEdit>("txFind")->accessibleName(), "Search for");
}

TEST_F(FindTest, SearchesTheHiddenColumnThatWasTickedOnce) {
    write("Other=1\r\n");
    builder.texts.erase(ParameterText::otherCaption);
    start();
    open();
    EXPECT_FALSE(control<QCheckBox>("cbOther")->isVisible());
    type("m8");
    press(Qt::Key_Return);
    EXPECT_EQ(grid->currentRow(), 1);
    find->reject();
    EXPECT_EQ(saved("Other"), "1");
}

TEST_F(FindTest, EveryWayOfClosingSavesAndKeepsThePhrase) {
    const std::function<void()> ways[] = {
        [&] { press(Qt::Key_Escape); }, [&] { find->close(); },
        [&] { QTest::mouseClick(control<QPushButton>("cbCancel"), Qt::LeftButton); }};
    start();
    int place = 100;
    for (const auto& close : ways) {
        write("Code=1\r\n");
        open();
        type("bolt");
        place += 10;
        find->move(place, place + 1);
        close();
        QCoreApplication::processEvents();
        EXPECT_FALSE(find->isVisible());
        EXPECT_EQ(base::readFile(folder / "User.ini"), "[Find]\r\nCode=1\r\nLeft= " + std::to_string(place) +
                                                           "\r\nTop= " + std::to_string(place + 1) +
                                                           "\r\nDesc=0\r\nOther=0\r\n");
        open();
        EXPECT_EQ(find->pos(), QPoint(place, place + 1));
        EXPECT_EQ(control<QLineEdit>("txFind")->selectedText(), "bolt");
        find->close();
    }
}

TEST_F(FindTest, StandsWhereItWasSavedOrBackOnTheScreen) {
    const auto screen = QGuiApplication::primaryScreen()->availableGeometry();
    start();
    for (const char* place :
         {"Left= 30\r\n", "Left=-5000\r\nTop= 99999999\r\n", "Left= 1e30\r\nTop=-1e30\r\n"}) {
        write(place);
        open();
        EXPECT_TRUE(screen.contains(find->frameGeometry())) << place;
        find->close();
    }
    write("Left= 30\r\nTop= 40\r\n");
    open();
    EXPECT_EQ(find->pos(), QPoint(30, 40));
    find->close();
    for (const char* place : {"", "Left=x\r\nTop= 0\r\n"}) {
        write(place);
        open();
        EXPECT_TRUE(mainWindow.frameGeometry().contains(find->frameGeometry())) << place;
        find->close();
    }
}

TEST_F(FindTest, GoesOnWhileClosedAndComesUpWhenThereIsNothingToGoOnWith) {
    write("Desc=1\r\n");
    start();
    find->searchNext();
    EXPECT_TRUE(find->isVisible());
    EXPECT_THAT(journal.take(), IsEmpty());
    type("bolt");
    press(Qt::Key_Escape);
    find->searchNext();
    EXPECT_EQ(grid->currentRow(), 2);
    find->searchPrevious();
    EXPECT_EQ(grid->currentRow(), 0);
    EXPECT_FALSE(find->isVisible());
}

TEST_F(FindTest, TakesAnyPhrase) {
    write("Code=1\r\nDesc=1\r\nOther=1\r\n");
    start();
    open();
    control<QLineEdit>("txFind")->setText("  ");
    press(Qt::Key_Return);
    EXPECT_EQ(grid->currentRow(), 1) << "every cell that is not empty holds it";
    control<QLineEdit>("txFind")->setText(QString::fromUtf8("π"));
    press(Qt::Key_Return);
    EXPECT_EQ(grid->currentRow(), 2);
    press(Qt::Key_Return);
    EXPECT_THAT(journal.take(), ElementsAre("information [Search] &#960; not found."));
    EXPECT_EQ(ui::qt::toQt("&#960; not found."), QString::fromUtf8("π not found."));
    control<QLineEdit>("txFind")->setText(QString(500, QChar(0x4E2D)));
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take().size(), 1U);
    EXPECT_EQ(grid->currentRow(), 2);
}

}
