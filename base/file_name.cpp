#include "base/file_name.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace base {
namespace {

constexpr std::array<std::string_view, 6> devices{"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
constexpr std::array<std::string_view, 2> numberedDevices{"COM", "LPT"};
constexpr std::string_view deviceDigits = "0123456789\xB9\xB2\xB3"; // the raised ones count too
constexpr std::string_view forbidden = "/\\:*?\"<>|";

// A device stays one whatever extension it is given.
bool namesDevice(std::string_view name) {
    const auto stem = upper(trim(name.substr(0, name.find('.'))));
    if (std::find(devices.begin(), devices.end(), stem) != devices.end())
        return true;
    return stem.size() == 4 && deviceDigits.find(stem[3]) != std::string_view::npos &&
           std::find(numberedDevices.begin(), numberedDevices.end(), stem.substr(0, 3)) !=
               numberedDevices.end();
}

}

bool isPortableFileName(std::string_view name) {
    const bool hasForbidden = std::any_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' || forbidden.find(c) != std::string_view::npos;
    });
    return !name.empty() && !hasForbidden && !standsForAnother(name);
}

bool standsForAnother(std::string_view name) {
    return name.ends_with('.') || name.ends_with(' ') || namesDevice(name);
}

}
