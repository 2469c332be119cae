#include "ui/system/archive/extraction.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <string>
#include <system_error>

namespace ui::system {
namespace fs = std::filesystem;

namespace {

using Result = Extraction::Result;

fs::path pathOf(const EntryPath& entry) {
    return {std::u8string(entry.path.begin(), entry.path.end())};
}

/// Takes tasks until there are none or one has failed.
Result work(std::vector<FileTask>& tasks, std::atomic<std::size_t>& next, const ZipReader& zip,
            ExtractionMeter& meter) {
    FileUnpacker unpacker(zip, meter);
    for (auto number = next++; number < tasks.size(); number = next++)
        if (const auto result = unpacker.run(tasks[number]); result != Result::extracted) {
            next = tasks.size();
            return result;
        }
    return Result::extracted;
}

}

Extraction::~Extraction() {
    std::error_code ignored;
    if (!m_isComplete) {
        for (const auto& task : m_tasks)
            if (task.isMade)
                fs::remove(task.unpacked, ignored);
        const auto& folders = m_targets.made();
        std::for_each(folders.rbegin(), folders.rend(),
                      [&](const fs::path& made) { fs::remove(made, ignored); });
    }
    static_cast<void>(clearParts());
}

Result Extraction::plan(const std::vector<ZipEntry>& entries) {
    using State = TargetFolders::State;
    m_tasks.reserve(entries.size());
    for (const auto& entry : entries) {
        const auto path = pathOf(entry.where);
        const auto state = m_targets.make(entry.where.isFolder ? path : path.parent_path());
        if (state == State::tooLong)
            return Result::failed;
        if (state == State::blocked)
            return Result::notWritten;
        if (state == State::link)
            continue;
        m_hasMatched = true;
        if (const auto result = entry.where.isFolder ? Result::extracted : planFile(entry, path);
            result != Result::extracted)
            return result;
    }
    const bool replaces = std::any_of(m_tasks.begin(), m_tasks.end(),
                                      [](const FileTask& task) { return task.unpacked.empty(); });
    return !replaces || makePartsFolder(entries) ? Result::extracted : Result::notWritten;
}

Result Extraction::planFile(const ZipEntry& entry, const fs::path& path) {
    auto [place, type] = m_targets.find(path);
    if (type == fs::file_type::directory)
        return Result::notWritten;
    auto unpacked = type == fs::file_type::not_found ? place : fs::path();
    m_tasks.push_back({.entry = &entry,
                       .place = std::move(place),
                       .unpacked = std::move(unpacked),
                       .installed = installedFile(entry, path)});
    return Result::extracted;
}

fs::path Extraction::installedFile(const ZipEntry& entry, const fs::path& path) {
    if (!m_isCompared || entry.packing == ZipEntry::Packing::other || !entry.checkSum ||
        m_installed.look(path.parent_path()) != TargetFolders::State::ready)
        return {};
    auto [place, type] = m_installed.find(path);
    return type == fs::file_type::regular ? place : fs::path();
}

// A new folder under a name that no entry uses.
bool Extraction::makePartsFolder(const std::vector<ZipEntry>& entries) {
    constexpr int attempts = 1000;
    for (int number = 0; m_parts.empty() && number < attempts; ++number) {
        const auto name = "Unpack" + std::to_string(number) + ".tmp";
        const bool isUsed = std::any_of(entries.begin(), entries.end(), [&](const ZipEntry& entry) {
            return *pathOf(entry.where).begin() == name;
        });
        std::error_code error;
        if (!isUsed && fs::create_directory(m_folder / name, error))
            m_parts = m_folder / name;
        if (error)
            break;
    }
    for (auto& task : m_tasks)
        if (task.unpacked.empty())
            task.unpacked = m_parts / std::to_string(task.entry->index);
    return !m_parts.empty();
}

// Large ones first, so that no worker is left alone with one at the end; the others in the archive's order,
// so that one piece read of it holds several.
Result Extraction::unpack(const ZipReader& zip, const fs::path& archive, ExtractionMeter& meter,
                          unsigned workers) {
    const auto weight = [](const FileTask& task) {
        return task.entry->size > WholeEntries::largest ? task.entry->size : 0;
    };
    if (workers > 1)
        std::stable_sort(m_tasks.begin(), m_tasks.end(),
                         [&](const FileTask& a, const FileTask& b) { return weight(a) > weight(b); });
    std::atomic<std::size_t> next = 0;
    std::vector<std::future<Result>> others;
    for (unsigned number = 1; number < workers && number < m_tasks.size(); ++number)
        others.push_back(std::async([&] {
            const ZipReader own(archive);
            return own.isOpen() ? work(m_tasks, next, own, meter)
                                : Result::extracted; // the first does it all
        }));
    auto result = work(m_tasks, next, zip, meter);
    for (auto& other : others)
        if (const auto another = other.get(); result == Result::extracted)
            result = another;
    return result;
}

Result Extraction::complete() {
    for (auto& task : m_tasks) {
        if (task.isSame || !task.replacesAnother())
            continue;
        std::error_code error;
        fs::rename(task.unpacked, task.place, error);
        if (error)
            return error == std::errc::filename_too_long ? Result::failed : Result::notWritten;
        task.isMade = false; // what stood there is gone, so this stays
    }
    if (!clearParts()) // what stays of it would pass for something that was extracted
        return Result::notWritten;
    m_isComplete = true;
    return m_hasMatched ? Result::extracted : Result::nothingMatched;
}

bool Extraction::clearParts() const {
    std::error_code error;
    if (!m_parts.empty())
        fs::remove_all(m_parts, error);
    return !error;
}

}
