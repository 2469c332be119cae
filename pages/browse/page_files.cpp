#include "pages/browse/page_files.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

namespace pages {
namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 7> privateEndings = {".ini", ".dat", ".idx", ".ect",
                                                            ".sup", ".zip", ".exe"};

bool isPrivate(const fs::path& path) {
    return base::holdsName(privateEndings, base::textOf(path.extension()));
}

bool isInside(const fs::path& path, const fs::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

std::optional<fs::path> entryIgnoringCase(const fs::path& folder, const fs::path& name) {
    std::error_code error;
    if (fs::exists(folder / name, error))
        return folder / name;
    const auto wanted = base::textOf(name);
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (base::equalIgnoringCase(base::textOf(it->path().filename()), wanted))
            return it->path();
    return std::nullopt;
}

// Windows takes "User.ini." and "User.ini::$DATA" for "User.ini". No file of a catalogue has such a name.
bool mayNameAnotherFile(std::string_view name) {
    return name.find(':') != std::string_view::npos || name.ends_with('.') || name.ends_with(' ');
}

// Goes down from the folder one name at a time, in whatever letter case the names are stored.
std::optional<fs::path> descend(const fs::path& folder, const fs::path& relative) {
    auto at = folder;
    for (const auto& name : relative) {
        const auto next = mayNameAnotherFile(base::textOf(name)) ? std::nullopt : entryIgnoringCase(at, name);
        if (!next)
            return std::nullopt;
        at = *next;
    }
    return at;
}

}

PageFiles::PageFiles(const std::vector<fs::path>& folders) {
    std::error_code error;
    for (const auto& folder : folders)
        if (auto path = fs::canonical(folder, error); !error)
            m_folders.push_back(std::move(path));
}

bool PageFiles::contains(const fs::path& path) const {
    std::error_code error;
    const auto real = fs::weakly_canonical(path, error);
    return !error && std::any_of(m_folders.begin(), m_folders.end(),
                                 [&](const fs::path& folder) { return isInside(real, folder); });
}

std::optional<fs::path> PageFiles::find(const fs::path& asked, Resource resource) const {
    if (resource == Resource::other)
        return std::nullopt;
    std::error_code error;
    const auto plain = fs::weakly_canonical(asked, error);
    for (const auto& folder : m_folders) {
        if (!isInside(plain, folder))
            continue;
        const auto found = descend(folder, plain.lexically_relative(folder));
        const auto real = found ? fs::canonical(*found, error) : fs::path();
        if (found && !error && contains(real) && fs::is_regular_file(real, error) && !isPrivate(real))
            return real;
    }
    return std::nullopt;
}

PageFiles pageFilesOf(const catalog::Folders& folders) {
    return PageFiles({folders.DataFolder, folders.UserFolder, folders.ProgramFolder});
}

}
