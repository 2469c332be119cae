#pragma once

#include <filesystem>
#include <string_view>

namespace platform {

/// A file of the program's own that grows at its end.
class AppendedFile {
public:
    virtual ~AppendedFile() = default;

    /// Makes the file, unless there is one of that name: of several programs that try, one succeeds. False
    /// when that cannot be done; nothing is open then.
    [[nodiscard]] virtual bool create(const std::filesystem::path& path) = 0;

    /// Opens the file that is there to go on at its end. False when that cannot be done; nothing is open
    /// then.
    [[nodiscard]] virtual bool open(const std::filesystem::path& path) = 0;

    /// Writes the bytes at the end. When the call returns they outlive this program, and soon afterwards,
    /// without anybody waiting for it, a power cut too. False when nothing is open or not all bytes could be
    /// written.
    [[nodiscard]] virtual bool append(std::string_view bytes) = 0;

    /// From then on the file may be replaced and deleted.
    virtual void close() = 0;
};

}
