#pragma once

namespace ui::system {

/// Sets what the browser reads from the environment when it starts, beside what the user has set there.
/// Must be called before the application object is made.
void prepareBrowser();

/// The browser refuses to run for the system administrator unless its sandbox is switched off.
[[nodiscard]] bool browserRefusesThisUser();

/// What to tell the system administrator then, one line.
inline constexpr const char* refusalOfThisUser =
    "Tavorine cannot run as root: start it as an ordinary user, or in a container set "
    "QTWEBENGINE_DISABLE_SANDBOX=1.\n";

}
