#include "tests/confinement/private_network.h"
#include "ui/system/browser_start.h"

#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdio>
#include <string_view>

namespace {

constexpr int skipped = 77;

// What a page could have the browser ask instead; nobody must hear of it.
void nameProxies() {
    for (const char* variable :
         {"http_proxy", "https_proxy", "ftp_proxy", "all_proxy", "HTTP_PROXY", "ALL_PROXY"})
        qputenv(variable, "http://192.0.2.1:19999");
}

}

// Two runs, in two processes since the browser starts once: "confined" the program as it is, "plain" a
// browser as anybody has it, which shows that the listeners would have heard.
int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    const bool plain = argc > 1 && std::string_view(argv[1]) == "plain";
    if (const auto refused = confinement::enterPrivateNetwork(); !refused.empty()) {
        std::fprintf(stderr, "Confinement is not tested: %s\n", refused.c_str());
        return skipped;
    }
    const QTemporaryDir own;
    qputenv("XDG_CONFIG_HOME", own.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", own.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    if (!plain) {
        nameProxies();
        ui::system::prepareBrowser();
    }
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    const QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine test");
    QApplication::setQuitOnLastWindowClosed(false);
    testing::GTEST_FLAG(filter) = plain ? "Plain*" : "Confined*";
    return RUN_ALL_TESTS();
}
