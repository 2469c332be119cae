#include "ui/system/appended_file.h"

#include <utility>

#ifdef _WIN32
#include <algorithm>
#include <limits>
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ui::system {

AppendedFile::~AppendedFile() {
    AppendedFile::close();
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard locked(m_lock);
        m_isEnding = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

bool AppendedFile::create(const std::filesystem::path& path) {
    return take(openFile(path, true));
}

bool AppendedFile::open(const std::filesystem::path& path) {
    return take(openFile(path, false));
}

bool AppendedFile::take(File file) {
    close();
    m_file = file;
    return m_file != noFile;
}

bool AppendedFile::append(std::string_view bytes) {
    if (m_file == noFile || !write(m_file, bytes))
        return false;
    hand({m_file, false});
    return true;
}

// The thread closes what it may still be working on.
void AppendedFile::close() {
    if (m_file == noFile)
        return;
    hand({std::exchange(m_file, noFile), true});
    if (openFilesCanBeReplaced)
        return;
    std::unique_lock locked(m_lock);
    m_isDone.wait(locked, [this] { return m_work.empty() && !m_isWorking; });
}

void AppendedFile::hand(Work work) {
    if (!m_thread.joinable())
        m_thread = std::thread([this] { this->work(); });
    {
        const std::lock_guard locked(m_lock);
        std::erase_if(m_work, [&](const Work& other) { return other.file == work.file; }); // once is enough
        m_work.push_back(work);
    }
    m_changed.notify_one();
}

void AppendedFile::work() {
    std::unique_lock locked(m_lock);
    while (true) {
        m_changed.wait(locked, [this] { return m_isEnding || !m_work.empty(); });
        if (m_work.empty())
            return;
        const auto work = m_work.front();
        m_work.pop_front();
        m_isWorking = true;
        locked.unlock();
        toDisk(work.file);
        if (work.isLast)
            closeFile(work.file);
        locked.lock();
        m_isWorking = false;
        m_isDone.notify_one();
    }
}

#ifndef _WIN32

AppendedFile::File AppendedFile::openFile(const std::filesystem::path& path, bool isNew) {
    constexpr ::mode_t nobodyElse = 0600;
    return ::open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC | (isNew ? O_CREAT | O_EXCL : 0), nobodyElse);
}

bool AppendedFile::write(File file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = ::write(file, bytes.data(), bytes.size());
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

void AppendedFile::toDisk(File file) {
#ifdef __APPLE__
    ::fsync(file);
#else
    ::fdatasync(file);
#endif
}

void AppendedFile::closeFile(File file) {
    ::close(file);
}

#else

AppendedFile::File AppendedFile::openFile(const std::filesystem::path& path, bool isNew) {
    auto* const file =
        ::CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, isNew ? CREATE_NEW : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return file == INVALID_HANDLE_VALUE ? noFile : file;
}

bool AppendedFile::write(File file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto most = std::min<std::size_t>(bytes.size(), std::numeric_limits<DWORD>::max());
        DWORD written = 0;
        if (::WriteFile(file, bytes.data(), static_cast<DWORD>(most), &written, nullptr) == 0 || written == 0)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

void AppendedFile::toDisk(File file) {
    ::FlushFileBuffers(file);
}

void AppendedFile::closeFile(File file) {
    ::CloseHandle(file);
}

#endif

}
