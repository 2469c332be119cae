#include "pages/browse/page_files.h"

#include "base/code_page.h"
#include "base/text.h"
#include "pages/scratch_page.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

namespace pages {
namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 4> pageEndings{".htm", ".html", ".xhtml", ".xht"};
constexpr std::array<std::string_view, 13> pictureEndings{".gif",  ".jpg",  ".jpeg", ".jpe", ".jfif",
                                                          ".png",  ".apng", ".bmp",  ".svg", ".webp",
                                                          ".avif", ".ico",  ".cur"};
constexpr std::array<std::string_view, 1> styleEndings{".css"};
constexpr std::array<std::string_view, 2> scriptEndings{".js", ".mjs"};
constexpr std::array<std::string_view, 5> fontEndings{".ttf", ".otf", ".ttc", ".woff", ".woff2"};
constexpr std::array<std::string_view, 16> mediaEndings{".mp3", ".wav", ".ogg", ".oga", ".opus", ".flac",
                                                        ".aac", ".m4a", ".mid", ".mp4", ".m4v",  ".ogv",
                                                        ".mov", ".mpg", ".avi", ".webm"};
constexpr std::array<std::string_view, 2> documentEndings{".pdf", ".txt"};

// They may hold scripts, but have no head for the rules that confine those.
constexpr std::array<std::string_view, 3> notInFrames{".xhtml", ".xht", ".svg"};

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

// What does not exist, or is not to be had, is empty.
fs::path canonicalOrNone(const fs::path& path) {
    std::error_code error;
    auto real = path.empty() ? fs::path() : fs::canonical(path, error);
    return error ? fs::path() : real;
}

// The part of the path behind the folder, which may be named in any letter case.
std::optional<fs::path> partBehind(const fs::path& folder, const fs::path& path) {
    const auto same = [](const fs::path& a, const fs::path& b) {
        return a == b || base::equalIgnoringCase(base::textOf(a), base::textOf(b));
    };
    auto [end, behind] = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end(), same);
    if (folder.empty() || end != folder.end())
        return std::nullopt;
    fs::path part;
    for (; behind != path.end(); ++behind)
        part /= *behind;
    return part;
}

// The scratch page need not be there yet.
fs::path canonicalFile(const fs::path& path) {
    const auto folder = canonicalOrNone(path.parent_path());
    return folder.empty() ? fs::path() : folder / path.filename();
}

}

bool isOfKind(std::string_view ending, Resource resource) {
    switch (resource) {
    case Resource::link:
        return base::holdsName(pageEndings, ending);
    case Resource::frame:
        return !base::holdsName(notInFrames, ending) &&
               (base::holdsName(pageEndings, ending) || base::holdsName(pictureEndings, ending) ||
                base::holdsName(mediaEndings, ending) || base::holdsName(documentEndings, ending));
    case Resource::picture:
        return base::holdsName(pictureEndings, ending);
    case Resource::style:
        return base::holdsName(styleEndings, ending);
    case Resource::script:
        return base::holdsName(scriptEndings, ending);
    case Resource::font:
        return base::holdsName(fontEndings, ending);
    case Resource::media:
        return base::holdsName(mediaEndings, ending);
    case Resource::other:
        return false;
    }
    return false;
}

PageFiles::PageFiles(const PagePlaces& places)
    : m_places{canonicalOrNone(places.folder), canonicalFile(places.scratchPage),
               canonicalOrNone(places.pictureFolder)} {}

bool PageFiles::contains(const fs::path& path) const {
    std::error_code error;
    const auto real = fs::weakly_canonical(path, error);
    return !error && !m_places.folder.empty() && isInside(real, m_places.folder);
}

std::optional<fs::path> PageFiles::find(const fs::path& asked, Resource resource) const {
    std::error_code error;
    const auto plain = fs::weakly_canonical(asked, error);
    if (error)
        return std::nullopt;
    auto found = inFolder(plain);
    if (!found && resource == Resource::link)
        found = scratchPage(plain);
    if (!found && resource == Resource::picture)
        found = programPicture(plain);
    if (!found || !fs::is_regular_file(*found, error) ||
        !isOfKind(base::textOf(found->extension()), resource))
        return std::nullopt;
    return resource == Resource::link || !isScratch(*found) ? found : std::nullopt;
}

std::optional<fs::path> PageFiles::inFolder(const fs::path& plain) const {
    const auto part = partBehind(m_places.folder, plain);
    const auto found = part ? descend(m_places.folder, *part) : std::nullopt;
    const auto real = found ? canonicalOrNone(*found) : fs::path();
    return contains(real) ? std::optional(real) : std::nullopt;
}

std::optional<fs::path> PageFiles::scratchPage(const fs::path& plain) const {
    const auto& own = m_places.scratchPage;
    const auto part = partBehind(own.parent_path(), plain);
    const bool isAsked = part && base::equalIgnoringCase(base::textOf(*part), base::textOf(own.filename()));
    return isAsked ? std::optional(own) : std::nullopt;
}

std::optional<fs::path> PageFiles::programPicture(const fs::path& plain) const {
    const auto& folder = m_places.pictureFolder;
    const auto part = partBehind(folder, plain);
    const auto found = part && !part->has_parent_path() ? descend(folder, *part) : std::nullopt;
    const auto real = found ? canonicalOrNone(*found) : fs::path();
    return !real.empty() && real.parent_path() == folder ? std::optional(real) : std::nullopt;
}

// The scratch page of this run, of an earlier one with another folder for it, and copies of them.
bool PageFiles::isScratch(const fs::path& real) const {
    const auto folder = real.parent_path();
    return (folder == m_places.folder || folder == m_places.scratchPage.parent_path()) &&
           base::startsIgnoringCase(base::textOf(real.filename()), "Tmp.");
}

PageFiles pageFilesOf(const catalog::Folders& folders) {
    return PageFiles({folders.DataFolder, ScratchPage(folders.UserFolder).path(), folders.ProgramFolder});
}

PageFiles pageFilesOfProgram(const fs::path& programFolder) {
    return PageFiles({{}, {}, programFolder});
}

}
