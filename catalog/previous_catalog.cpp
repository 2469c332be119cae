#include "catalog/previous_catalog.h"

#include "base/caseless_tree.h"
#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string>
#include <system_error>
#include <utility>

namespace catalog {
namespace fs = std::filesystem;

namespace {

constexpr auto previousName = "previous";

/// Folders of a supplier: the catalogue of before, one that takes its place, one that has left it.
constexpr auto currentName = "catalog";
constexpr auto readyName = "new";
constexpr auto replacedName = "old";

/// In each of them beside the data files: whose it is, a path in UTF-8; and that somebody has seen what is
/// new.
constexpr auto ownerName = "folder.txt";
constexpr auto seenName = "seen";

constexpr std::array keptFiles{productsFile, indexFile};

bool isThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

bool isWhole(const fs::path& folder) {
    return isThere(folder / ownerName) &&
           std::all_of(keptFiles.begin(), keptFiles.end(), [&](auto name) { return isThere(folder / name); });
}

bool haveEqualBytes(const fs::path& a, const fs::path& b) {
    constexpr std::size_t pieceSize = 1U << 16U;
    std::array<std::ifstream, 2> files{std::ifstream(a, std::ios::binary),
                                       std::ifstream(b, std::ios::binary)};
    std::array<std::string, 2> pieces{std::string(pieceSize, '\0'), std::string(pieceSize, '\0')};
    while (files[0] && files[1]) {
        for (std::size_t i = 0; i < files.size(); ++i) {
            files[i].read(pieces[i].data(), pieceSize);
            pieces[i].resize(static_cast<std::size_t>(files[i].gcount()));
        }
        if (pieces[0] != pieces[1])
            return false;
    }
    return files[0].eof() && files[1].eof();
}

// Of different length, or of another time: two questions to the disk.
bool haveEqualStamps(const fs::path& a, const fs::path& b) {
    std::error_code error;
    const bool areEqual = fs::file_size(a, error) == fs::file_size(b, error) &&
                          fs::last_write_time(a, error) == fs::last_write_time(b, error);
    return !error && areEqual;
}

// An update puts other files in the place of these and writes into none, so a second name is as good as a
// copy. A link's target is meant, not the link.
bool keep(const fs::path& file, const fs::path& place) {
    const auto real = base::behindLinks(file);
    std::error_code error;
    fs::create_hard_link(real, place, error);
    if (!error)
        return true;
    if (!fs::copy_file(real, place, error) || error || !base::flushToDisk(place))
        return false;
    fs::last_write_time(place, fs::last_write_time(real, error), error);
    return !error;
}

bool writeOwner(const fs::path& folder, const fs::path& dataFolder) {
    const auto text = dataFolder.u8string();
    try {
        base::replaceFile(folder / ownerName, std::string(text.begin(), text.end()));
        return true;
    } catch (const base::FileError&) {
        return false;
    }
}

}

PreviousCatalog::PreviousCatalog(const fs::path& keptFolder, std::string_view supplier, fs::path dataFolder)
    : m_dataFolder(std::move(dataFolder)) {
    if (!keptFolder.empty())
        m_place = base::folderPath(keptFolder / previousName, supplier);
}

// A program that was ended while the one took the other's place has left the older one under its last name.
std::optional<fs::path> PreviousCatalog::folder() const {
    if (m_place.empty())
        return std::nullopt;
    for (const auto* name : {currentName, replacedName})
        if (const auto folder = m_place / name; isThere(folder))
            return isWhole(folder) && !isAnothers(folder) ? std::optional(folder) : std::nullopt;
    return std::nullopt;
}

// A program folder that was moved is not any more where it was then.
bool PreviousCatalog::isAnothers(const fs::path& folder) const {
    const auto text = base::readFile(folder / ownerName).value_or("");
    const fs::path owner(std::u8string(text.begin(), text.end()));
    std::error_code error;
    return fs::exists(owner, error) && !fs::equivalent(owner, m_dataFolder, error);
}

bool PreviousCatalog::isUnseen() const {
    const auto previous = folder();
    return previous && !isThere(*previous / seenName) &&
           !std::all_of(keptFiles.begin(), keptFiles.end(), [&](std::string_view name) {
               return haveEqualStamps(*previous / name, base::filePath(m_dataFolder, name));
           });
}

void PreviousCatalog::markSeen() const {
    const auto previous = folder();
    if (!previous)
        return;
    try {
        base::replaceFile(*previous / seenName, {});
    } catch (const base::FileError&) { // then it is offered once more
    }
}

bool PreviousCatalog::layReady(const ComingFile& coming) const {
    if (m_place.empty())
        return false;
    std::error_code error;
    const auto ready = m_place / readyName;
    fs::remove_all(ready, error);
    const auto comesAgain = [&](std::string_view name) {
        const auto file = coming(name);
        const auto installed = base::filePath(m_dataFolder, name);
        return file && (*file == installed || haveEqualBytes(*file, installed));
    };
    if (error || std::all_of(keptFiles.begin(), keptFiles.end(), comesAgain))
        return false;
    fs::create_directories(ready, error);
    return !error && writeOwner(ready, m_dataFolder) &&
           std::all_of(keptFiles.begin(), keptFiles.end(), [&](std::string_view name) {
               return keep(base::filePath(m_dataFolder, name), ready / name);
           });
}

void PreviousCatalog::putInPlace() const {
    const auto current = m_place / currentName;
    const auto replaced = m_place / replacedName;
    std::error_code error;
    if (isThere(current)) {
        fs::remove_all(replaced, error);
        fs::rename(current, replaced, error);
    }
    if (!error)
        fs::rename(m_place / readyName, current, error);
    if (!error)
        fs::remove_all(replaced, error);
}

void PreviousCatalog::forget() const {
    std::error_code ignored;
    if (!m_place.empty() && !isAnothers(m_place / currentName) && !isAnothers(m_place / replacedName))
        fs::remove_all(m_place, ignored);
}

}
