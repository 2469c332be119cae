#include "ui/system/archive/entry_path.h"

#include "base/code_page.h"
#include "base/file_name.h"
#include "base/text.h"

#include <algorithm>

namespace ui::system {

std::optional<EntryPath> entryPath(std::string_view nameInUtf8) {
    const auto name = base::replaceAll(nameInUtf8, "\\", "/");
    if (name.empty() || name.front() == '/')
        return std::nullopt;
    EntryPath entry{{}, name.back() == '/'};
    for (const auto part : base::split(name, '/')) {
        if (part.empty() || part == ".")
            continue;
        if (!base::isPortableFileName(base::fromUtf8(part))) // ".." ends in a point
            return std::nullopt;
        entry.path.append(entry.path.empty() ? "" : "/").append(part);
    }
    if (entry.path.empty())
        return std::nullopt;
    return entry;
}

bool fitsOnDisk(const EntryPath& entry) {
    constexpr std::size_t longestPart = 255;
    constexpr std::size_t longestPath = 1000;
    constexpr std::size_t mostParts = 32;
    if (entry.path.size() > longestPath)
        return false;
    const auto parts = base::split(entry.path, '/');
    return parts.size() <= mostParts && std::all_of(parts.begin(), parts.end(), [](std::string_view part) {
               return part.size() <= longestPart;
           });
}

bool matchesMask(std::string_view mask, const EntryPath& entry) {
    if (mask == "*")
        return true;
    if (entry.isFolder || entry.path.find('/') != std::string::npos)
        return false;
    const auto name = base::fromUtf8(entry.path);
    return mask.starts_with('*') ? base::endsIgnoringCase(name, mask.substr(1))
                                 : base::equalIgnoringCase(name, mask);
}

}
