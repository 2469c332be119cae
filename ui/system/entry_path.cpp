#include "ui/system/entry_path.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace ui::system {
namespace {

constexpr std::array<std::string_view, 6> devices{"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
constexpr std::array<std::string_view, 2> numberedDevices{"COM", "LPT"};
constexpr std::string_view forbidden = ":*?\"<>|";

// A device stays one whatever extension it is given.
bool namesDevice(std::string_view part) {
    const auto stem = base::upper(base::trim(part.substr(0, part.find('.'))));
    if (std::find(devices.begin(), devices.end(), stem) != devices.end())
        return true;
    return stem.size() == 4 && stem[3] >= '0' && stem[3] <= '9' &&
           std::find(numberedDevices.begin(), numberedDevices.end(), stem.substr(0, 3)) !=
               numberedDevices.end();
}

bool isAllowed(std::string_view part) {
    const bool hasForbidden = std::any_of(part.begin(), part.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' || forbidden.find(c) != std::string_view::npos;
    });
    return !hasForbidden && part.back() != '.' && part.back() != ' ' && !namesDevice(part);
}

}

std::optional<EntryPath> entryPath(std::string_view nameInUtf8) {
    const auto name = base::replaceAll(nameInUtf8, "\\", "/");
    if (name.empty() || name.front() == '/')
        return std::nullopt;
    EntryPath entry{{}, name.back() == '/'};
    for (const auto part : base::split(name, '/')) {
        if (part.empty() || part == ".")
            continue;
        if (!isAllowed(part)) // ".." ends in a point
            return std::nullopt;
        entry.path.append(entry.path.empty() ? "" : "/").append(part);
    }
    if (entry.path.empty())
        return std::nullopt;
    return entry;
}

bool matchesMask(std::string_view mask, const EntryPath& entry) {
    if (mask == "*")
        return true;
    if (entry.isFolder || entry.path.find('/') != std::string::npos)
        return false;
    const auto name = base::fromUtf8(entry.path);
    if (!mask.starts_with('*'))
        return base::equalIgnoringCase(name, mask);
    const auto ending = mask.substr(1);
    return name.size() >= ending.size() &&
           base::equalIgnoringCase(std::string_view(name).substr(name.size() - ending.size()), ending);
}

}
