#include "tests/ui/qt/program_folder.h"
#include "ui/help/help_topics.h"
#include "ui/qt/widgets/qt_text.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QSettings>
#include <QSplitter>
#include <QTest>
#include <QTreeWidget>
#include <QWindow>

#include <algorithm>

namespace {
namespace fs = std::filesystem;
using namespace tour;

/// The help of the whole program, with the book that customers get.
class HelpTest : public ProgramTest {
protected:
    HelpTest() {
        fs::copy(TAVORINE_HELP_FOLDER, folder / "help", fs::copy_options::recursive);
        deliver("ACME", smallCatalog("Acme"));
    }

    void openCatalogue() {
        answerEmailQuestion();
        enterPassword("");
        script.when(
            "the catalogue", [] { return shows(page(), "Contents"); }, [] {});
    }

    /// Presses F1 on a control, as its window would get it, and waits until the help says this.
    void askAbout(const QString& control, const QString& topic) {
        script.when(
            control, [control] { return visibleWidget(control) != nullptr; },
            [control] {
                auto* widget = visibleWidget(control);
                widget->setFocus();
                QTest::keyClick(widget->window()->windowHandle(), Qt::Key_F1);
            });
        waitForTopic(topic);
    }

    void waitForTopic(const QString& topic) {
        script.when(
            "the help on " + topic,
            [topic] {
                const auto* contents = visible<QTreeWidget>("HelpContents");
                return contents && contents->currentItem() && contents->currentItem()->text(0) == topic &&
                       shows(visible<QWebEngineView>("HelpPage"), topic);
            },
            [] { visibleWidget("HelpWindow")->close(); });
    }

    void click(const char* control) {
        script.when(
            control, [control] { return visibleWidget(control) != nullptr; },
            [control] { QTest::mouseClick(visibleWidget(control), Qt::LeftButton); });
    }
};

TEST_F(HelpTest, F1LeadsToWhatTheControlIsAbout) {
    answerEmailQuestion();
    script.when(
        "the welcome page", [] { return takesKeys(visibleWidget("txtPassword")); }, [] {});
    askAbout("WebBrowser1", "Choosing a supplier");
    askAbout("txtPassword", "The welcome page and the password");
    enterPassword("");
    script.when(
        "the catalogue", [] { return shows(page(), "Contents"); }, [] {});
    askAbout("ctGrid1", "Typing quantities");
    askAbout("WbPage", "The page");
    askAbout("GDB(1)", "The groups above the list");
    click("Help");
    waitForTopic("Tavorine Help");
    click("Search");
    askAbout("cbDesc", "What is searched");
    closeMainWindow();
    EXPECT_TRUE(play());
}

bool isInteractive(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
           qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractItemView*>(widget) ||
           qobject_cast<const QPlainTextEdit*>(widget) || qobject_cast<const QSplitter*>(widget) ||
           qobject_cast<const QWebEngineView*>(widget);
}

// Named controls of the windows that are open, but for the one that nobody sees.
QStringList controlsWithoutHelp(int& seen) {
    QStringList without;
    for (const auto* widget : QApplication::allWidgets()) {
        const auto name = widget->objectName();
        if (!isInteractive(widget) || name.isEmpty() || name.startsWith("qt_") || name == "txDelDate")
            continue;
        ++seen;
        const auto* topic = ui::helpTopicOf(ui::qt::fromQt(name));
        if (!topic || (widget->isVisible() && widget->whatsThis() != ui::qt::toQt(topic->whatsThis)))
            without.append(name);
    }
    return without;
}

TEST_F(HelpTest, EveryControlSaysWhatItIsFor) {
    QStringList without;
    int seen = 0;
    const auto look = [&] { without += controlsWithoutHelp(seen); };
    answerEmailQuestion();
    script.when(
        "the welcome page", [] { return takesKeys(visibleWidget("txtPassword")); }, look);
    enterPassword("");
    script.when(
        "the catalogue", [] { return shows(page(), "Contents"); },
        [] {
            auto* grid = visibleWidget("ctGrid1");
            for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_3})
                QTest::keyClick(grid, key);
        });
    script.when(
        "the quantity", [] { return visibleWidget("quantity") != nullptr; }, look);
    click("Search");
    script.when(
        "the search window", [] { return visibleWidget("Find") != nullptr; }, look);
    click("CheckOut");
    script.when(
        "the order view", [] { return visibleWidget("ctGrid2") != nullptr; },
        [&] {
            look();
            QTest::keyClick(visibleWidget("txOrdNo"), Qt::Key_F1, Qt::ShiftModifier);
        });
    script.when(
        "what the box is for",
        [] {
            const auto windows = QApplication::topLevelWidgets();
            return std::any_of(windows.begin(), windows.end(), [](QWidget* window) {
                return window->inherits("QWhatsThat") && window->isVisible();
            });
        },
        [] {});
    closeMainWindow();
    EXPECT_TRUE(play());
    EXPECT_EQ(without, QStringList());
    EXPECT_GT(seen, 100);
}

TEST_F(HelpTest, AMissingBookIsToldAndTheProgramGoesOn) {
    fs::remove(folder / "help" / "index.html");
    openCatalogue();
    click("Help");
    answer("Tavorine", QMessageBox::Ok);
    script.when(
        "the book", [] { return true; },
        [this] {
            EXPECT_EQ(visibleWidget("HelpWindow"), nullptr);
            fs::copy(fs::path(TAVORINE_HELP_FOLDER) / "index.html", folder / "help" / "index.html");
        });
    askAbout("ctGrid1", "Typing quantities");
    closeMainWindow();
    EXPECT_TRUE(play());
    EXPECT_EQ(boxTexts.back().toStdString(), "Cannot find " + (folder / "help" / "index.html").string() +
                                                 "\nPlease re-install your program");
}

TEST_F(HelpTest, ClosesWithTheProgramAndRemembersItsPlace) {
    QSettings memory(QSettings::IniFormat, QSettings::UserScope, "Tavorine", "Windows");
    memory.remove("Place/HelpWindow");
    openCatalogue();
    click("Help");
    script.when(
        "the help", [] { return visibleWidget("HelpWindow") != nullptr; },
        [] { visibleWidget("Form1")->close(); });
    script.when(
        "what never comes", [] { return false; }, [] {});
    EXPECT_FALSE(play()) << "the program ends before";
    memory.sync();
    EXPECT_TRUE(memory.contains("Place/HelpWindow"));
}

}
