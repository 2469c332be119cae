#include "ui/system/archive/zip_extractor.h"

#include "base/caseless_tree.h"
#include "base/code_page.h"
#include "base/text.h"
#include "ui/system/archive/zip_reader.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <system_error>
#include <vector>

namespace ui::system {
namespace fs = std::filesystem;

namespace {

using Result = ZipExtractor::Result;

fs::path pathOf(const EntryPath& entry) {
    return {std::u8string(entry.path.begin(), entry.path.end())};
}

/// Whether a path, in whatever letter case, is a file's and a folder's too, which no disk can hold.
bool holdsFileThatIsFolder(const std::vector<ZipEntry>& entries) {
    std::set<std::string> files;
    std::set<std::string> folders;
    for (const auto& [index, size, where] : entries) {
        const auto path = base::upper(base::fromUtf8(where.path));
        (where.isFolder ? folders : files).insert(path);
        for (auto end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1))
            folders.insert(path.substr(0, end));
    }
    return std::any_of(files.begin(), files.end(), [&](const auto& file) { return folders.contains(file); });
}

/// Makes the folders in which entries go. A link in the way is not followed: nothing goes there.
class TargetFolders {
public:
    enum class State { ready, link, blocked, tooLong };

    TargetFolders(const fs::path& root, std::vector<fs::path>& made) : m_made(made) {
        m_known.emplace((root / "x").parent_path(), State::ready); // spelled like the parent of any entry
    }

    State make(const fs::path& folder) {
        if (const auto known = m_known.find(folder); known != m_known.end())
            return known->second;
        auto state = make(folder.parent_path());
        if (state == State::ready)
            state = makeOne(folder);
        m_known.emplace(folder, state);
        return state;
    }

private:
    State makeOne(const fs::path& folder) {
        std::error_code error;
        const auto type = fs::symlink_status(folder, error).type();
        if (type == fs::file_type::symlink)
            return State::link;
        if (type == fs::file_type::directory)
            return State::ready;
        if (!fs::create_directory(folder, error))
            return error == std::errc::filename_too_long ? State::tooLong : State::blocked;
        m_made.push_back(folder);
        return State::ready;
    }

    std::vector<fs::path>& m_made;
    std::map<fs::path, State> m_known;
};

/// One run of the extractor: unpacks into a folder of its own inside the target, then moves.
class Extraction {
public:
    Extraction(const ZipReader& zip, const fs::path& folder, std::uint64_t byteLimit,
               ExtractionProgress* progress)
        : m_zip(zip), m_folder(folder), m_byteLimit(byteLimit), m_progress(progress) {}

    ~Extraction() { static_cast<void>(clear()); }

    Extraction(const Extraction&) = delete;
    Extraction& operator=(const Extraction&) = delete;

    Result run(const std::vector<ZipEntry>& entries) {
        for (const auto& entry : entries)
            m_total += entry.size;
        if (!makePartsFolder(entries))
            return Result::notWritten;
        for (const auto& entry : entries)
            if (const auto result = unpack(entry); result != Result::extracted)
                return result;
        const auto result = moveToPlace(entries);
        return clear() ? result : Result::notWritten;
    }

private:
    // What stays of the parts would pass for something that was extracted.
    bool clear() {
        std::error_code error;
        if (!m_parts.empty())
            fs::remove_all(m_parts, error);
        return !error;
    }

    // A new folder under a name that no entry uses.
    bool makePartsFolder(const std::vector<ZipEntry>& entries) {
        constexpr int attempts = 1000;
        for (int number = 0; number < attempts; ++number) {
            const auto name = "Unpack" + std::to_string(number) + ".tmp";
            const bool isUsed = std::any_of(entries.begin(), entries.end(), [&](const ZipEntry& entry) {
                return *pathOf(entry.where).begin() == name;
            });
            std::error_code error;
            if (!isUsed && fs::create_directory(m_folder / name, error)) {
                m_parts = m_folder / name;
                return true;
            }
            if (error)
                return false;
        }
        return false;
    }

    [[nodiscard]] fs::path partOf(const ZipEntry& entry) const {
        return m_parts / std::to_string(entry.index);
    }

    Result unpack(const ZipEntry& entry) {
        if (entry.where.isFolder)
            return Result::extracted;
        std::ofstream part(partOf(entry), std::ios::binary | std::ios::trunc);
        const auto result = copy(entry, part);
        part.close();
        if (result == Result::extracted && !part)
            return Result::notWritten;
        return result;
    }

    Result copy(const ZipEntry& entry, std::ofstream& part) {
        auto contents = m_zip.open(entry);
        for (std::uint64_t size = 0;;) {
            std::size_t count = 0;
            const auto state = contents.read(m_buffer, count);
            size += count;
            m_done += count;
            if (m_done > m_byteLimit)
                return Result::tooLarge;
            if (state == ZipEntryReader::State::damaged || size > entry.size)
                return Result::failed;
            if (!part.write(reinterpret_cast<const char*>(m_buffer.data()),
                            static_cast<std::streamsize>(count)))
                return Result::notWritten;
            if (m_progress != nullptr && !m_progress->advanced(m_done, m_total))
                return Result::cancelled;
            if (state == ZipEntryReader::State::end)
                return Result::extracted;
        }
    }

    Result moveToPlace(const std::vector<ZipEntry>& entries) {
        const auto result = moveAll(entries);
        if (result != Result::extracted)
            takeBack();
        return result;
    }

    Result moveAll(const std::vector<ZipEntry>& entries) {
        base::CaselessTree places(m_folder);
        TargetFolders folders(m_folder, m_made);
        bool moved = false;
        for (const auto& entry : entries) {
            const auto place = places.place(pathOf(entry.where));
            const auto state = folders.make(entry.where.isFolder ? place : place.parent_path());
            if (state == TargetFolders::State::link)
                continue;
            if (state == TargetFolders::State::tooLong)
                return Result::failed;
            if (state == TargetFolders::State::blocked)
                return Result::notWritten;
            if (const auto error = move(entry, place))
                return error == std::errc::filename_too_long ? Result::failed : Result::notWritten;
            moved = true;
        }
        return moved ? Result::extracted : Result::nothingMatched;
    }

    std::error_code move(const ZipEntry& entry, const fs::path& place) {
        std::error_code error;
        if (entry.where.isFolder)
            return error;
        const bool isNew = fs::symlink_status(place, error).type() == fs::file_type::not_found;
        error.clear();
        fs::rename(partOf(entry), place, error);
        if (!error && isNew)
            m_made.push_back(place);
        return error;
    }

    void takeBack() const {
        std::error_code ignored;
        std::for_each(m_made.rbegin(), m_made.rend(),
                      [&](const fs::path& made) { fs::remove(made, ignored); });
    }

    const ZipReader& m_zip;
    fs::path m_folder;
    std::uint64_t m_byteLimit;
    ExtractionProgress* m_progress;
    std::uint64_t m_done = 0;
    std::uint64_t m_total = 0;
    fs::path m_parts;
    std::vector<fs::path> m_made; // folders and files that were not there before
    std::vector<std::byte> m_buffer = std::vector<std::byte>(std::size_t{1} << 20U);
};

}

std::optional<std::vector<std::string>> ZipExtractor::topLevelFiles(const fs::path& archive) {
    const ZipReader zip(archive);
    if (!zip.isOpen() || !zip.isSound(ExtractionLimits().entries))
        return std::nullopt;
    std::vector<std::string> names;
    for (const auto& entry : zip.entries("*"))
        if (!entry.where.isFolder && entry.where.path.find('/') == std::string::npos)
            names.push_back(base::fromUtf8(entry.where.path));
    return names;
}

Result ZipExtractor::extract(const fs::path& archive, std::string_view mask, const fs::path& folder,
                             ExtractionProgress* progress) const {
    const ZipReader zip(archive);
    if (!zip.isOpen())
        return Result::failed;
    if (zip.entryCount() > m_limits.entries || zip.unpackedSize() > m_limits.bytes)
        return Result::tooLarge;
    if (!zip.isSound(m_limits.entries))
        return Result::failed;
    const auto entries = zip.entries(mask);
    if (entries.empty())
        return Result::nothingMatched;
    if (holdsFileThatIsFolder(entries))
        return Result::failed;
    return Extraction(zip, folder, m_limits.bytes, progress).run(entries);
}

}
