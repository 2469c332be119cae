#include "ui/system/browser_start.h"

#include <QByteArray>
#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <unistd.h>
#endif

namespace ui::system {
namespace {

constexpr auto flagsVariable = "QTWEBENGINE_CHROMIUM_FLAGS";
constexpr auto sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";

// The one way to the network that no request filter sees.
constexpr auto noDirectConnections = "--force-webrtc-ip-handling-policy=disable_non_proxied_udp";

}

void prepareBrowser() {
    auto flags = qgetenv(flagsVariable);
    if (!flags.isEmpty())
        flags += ' ';
    qputenv(flagsVariable, flags + noDirectConnections);
}

bool browserRefusesThisUser() {
#ifdef Q_OS_LINUX
    return geteuid() == 0 && qgetenv(sandboxVariable) != "1" &&
           !qgetenv(flagsVariable).contains("--no-sandbox");
#else
    return false;
#endif
}

}
