#pragma once

#include "platform/appended_file.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace ui::system {

/// What is appended goes to the system at once, and to the disk on a thread of its own, which begins with the
/// first bytes. Taking this object down waits until everything is on the disk.
class AppendedFile final : public platform::AppendedFile {
public:
    AppendedFile() = default;
    ~AppendedFile() override;

    AppendedFile(const AppendedFile&) = delete;
    AppendedFile& operator=(const AppendedFile&) = delete;

    [[nodiscard]] bool create(const std::filesystem::path& path) override;
    [[nodiscard]] bool open(const std::filesystem::path& path) override;
    [[nodiscard]] bool append(std::string_view bytes) override;
    void close() override;

private:
#ifndef _WIN32
    using File = int;
    static constexpr File noFile = -1;
    static constexpr bool openFilesCanBeReplaced = true;
#else
    using File = void*;
    static constexpr File noFile = nullptr;
    static constexpr bool openFilesCanBeReplaced = false;
#endif

    struct Work {
        File file;
        bool isLast; // the file is to be closed after it
    };

    static File openFile(const std::filesystem::path& path, bool isNew);
    static bool write(File file, std::string_view bytes);
    static void toDisk(File file);
    static void closeFile(File file);

    [[nodiscard]] bool take(File file);
    void hand(Work work);
    void work();

    File m_file = noFile;
    std::mutex m_lock; // of what follows
    std::condition_variable m_changed;
    std::condition_variable m_isDone;
    std::deque<Work> m_work;
    bool m_isWorking = false;
    bool m_isEnding = false;
    std::thread m_thread;
};

}
