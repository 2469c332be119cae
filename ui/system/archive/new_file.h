#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <system_error>

#ifndef __linux__
#include <fstream>
#endif

namespace ui::system {

/// A file that this makes: nothing may stand there, not even a link. One call to make it, one a piece, one at
/// the end.
class NewFile {
public:
    explicit NewFile(const std::filesystem::path& path);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Why it could not be made.
    [[nodiscard]] std::error_code error() const { return m_error; }

    [[nodiscard]] bool write(std::span<const std::byte> bytes);

    /// Whether everything is written. Its way to the disk begins here, so that a flush that follows later has
    /// less to wait for.
    [[nodiscard]] bool close();

private:
    std::error_code m_error;
#ifdef __linux__
    int m_file;
#else
    std::ofstream m_file;
#endif
};

}
