#include "ui/system/browser_start.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

void setUnlessSet(const char* variable, const char* value) {
    if (!qEnvironmentVariableIsSet(variable))
        qputenv(variable, value);
}

}

// The windows need one application object for all tests, no screen, and settings that are nobody's own.
int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir own;
    qputenv("XDG_CONFIG_HOME", own.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", own.path().toLocal8Bit());
    setUnlessSet("QT_QPA_PLATFORM", "offscreen");
    setUnlessSet("QTWEBENGINE_DISABLE_SANDBOX", "1");
    ui::system::prepareBrowser();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    const QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine test");
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
