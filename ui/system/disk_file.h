#pragma once

#include "platform/positioned_file.h"

#ifdef _WIN32
#include <fstream>
#endif

namespace ui::system {

/// One system call a write, where the system can write by position; the standard library takes two.
class DiskFile final : public platform::PositionedFile {
public:
    DiskFile() = default;
    ~DiskFile() override;

    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;

    [[nodiscard]] bool create(const std::filesystem::path& path) override;
    [[nodiscard]] bool write(std::int64_t position, std::span<const std::byte> bytes) override;
    void close() override;

private:
#ifndef _WIN32
    int m_file = -1;
#else
    std::filebuf m_file;
#endif
};

}
