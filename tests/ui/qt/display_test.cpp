#include "tests/ui/qt/program_folder.h"

#include <QApplication>
#include <QEvent>

#include <map>

namespace {
using namespace tour;

/// Counts how often each window is made on the screen.
class MadeWindows : public QObject {
public:
    MadeWindows() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (widget && widget->isWindow() && event->type() == QEvent::WinIdChange && widget->internalWinId())
            ++made[widget->objectName()];
        return false;
    }

    std::map<QString, int> made;
};

// A window that is made anew flickers, and a key pressed meanwhile is lost.
TEST_F(ProgramTest, AWindowStaysOnTheScreenWhenItsPagesCome) {
    if (QApplication::platformName() == "offscreen")
        GTEST_SKIP() << "windows are made anew on a real display only";
    writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
    deliver("ACME", smallCatalog("Acme"));
    MadeWindows windows;
    enterPassword("");
    script.when(
        "the table of contents", [] { return shows(page(), "Contents"); }, [] {});
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_EQ(windows.made["Welcome"], 1);
    EXPECT_EQ(windows.made["Form1"], 1);
}

}
