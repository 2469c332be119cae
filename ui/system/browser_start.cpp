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

// Ways to the network that no request filter sees. The resolver that knows no host, numeric addresses
// included, is the wall; no proxy, asked to connect, is to go around it. The rest takes away what a page
// could try: newer browsers ask all neighbours for a host ".local", if only by the name that the wall gives
// it.
constexpr auto noNetwork = "--host-resolver-rules=\"MAP * ~NOTFOUND\" --no-proxy-server "
                           "--force-webrtc-ip-handling-policy=disable_non_proxied_udp "
                           "--disable-features=WebRtcHideLocalIpsWithMdns "
                           "--disable-blink-features=WebTransport";

}

void prepareBrowser() {
    auto flags = qgetenv(flagsVariable);
    if (!flags.isEmpty())
        flags += ' ';
    qputenv(flagsVariable, flags + noNetwork);
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
