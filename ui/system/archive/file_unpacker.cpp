#include "ui/system/archive/file_unpacker.h"

#include "ui/system/archive/new_file.h"

#include <fstream>
#include <span>

namespace ui::system {

ExtractionMeter::Result ExtractionMeter::add(std::uint64_t bytes) {
    const std::lock_guard lock(m_mutex);
    m_done += bytes;
    if (m_done > m_limit)
        return Result::tooLarge;
    return m_progress == nullptr || m_progress->advanced(m_done, m_total) ? Result::extracted
                                                                          : Result::cancelled;
}

FileUnpacker::Result FileUnpacker::run(FileTask& task) {
    task.isSame = !task.installed.empty() && isInstalled(task);
    if (task.isSame)
        return m_meter.add(task.entry->size);
    NewFile file(task.unpacked);
    if (file.error())
        return file.error() == std::errc::filename_too_long ? Result::failed : Result::notWritten;
    task.isMade = true;
    const auto result =
        WholeEntries::takes(*task.entry) ? copyWhole(*task.entry, file) : copyInPieces(*task.entry, file);
    return file.close() || result != Result::extracted ? result : Result::notWritten;
}

bool FileUnpacker::isInstalled(const FileTask& task) {
    std::ifstream file;
    file.rdbuf()->pubsetbuf(nullptr, 0); // it is read in pieces that are larger than any buffer of its own
    file.open(task.installed, std::ios::binary | std::ios::ate);
    const std::streamoff size = file ? std::streamoff{file.tellg()} : -1;
    if (size < 0 || static_cast<std::uint64_t>(size) != task.entry->size)
        return false;
    file.seekg(0);
    std::uint32_t sum = 0;
    for (auto left = task.entry->size; left > 0;) {
        file.read(reinterpret_cast<char*>(m_buffer.data()), static_cast<std::streamsize>(m_buffer.size()));
        const auto count = static_cast<std::size_t>(file.gcount());
        if (count == 0 || count > left)
            return false;
        sum = checkSum(sum, std::span(m_buffer).first(count));
        left -= count;
    }
    return sum == task.entry->checkSum;
}

FileUnpacker::Result FileUnpacker::copyWhole(const ZipEntry& entry, NewFile& file) {
    const auto contents = m_whole.read(m_zip, entry);
    if (!contents)
        return Result::failed;
    const auto result = m_meter.add(contents->size());
    if (result == Result::extracted && !file.write(*contents))
        return Result::notWritten;
    return result;
}

FileUnpacker::Result FileUnpacker::copyInPieces(const ZipEntry& entry, NewFile& file) {
    auto contents = m_zip.open(entry);
    for (std::uint64_t size = 0;;) {
        std::size_t count = 0;
        const auto state = contents.read(m_buffer, count);
        size += count;
        const auto result = m_meter.add(count);
        if (result == Result::tooLarge)
            return result;
        if (state == ZipEntryReader::State::damaged || size > entry.size)
            return Result::failed;
        if (!file.write(std::span(m_buffer).first(count)))
            return Result::notWritten;
        if (result != Result::extracted || state == ZipEntryReader::State::end)
            return result;
    }
}

}
