#include "ui/system/disk_file.h"

#include <utility>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ui::system {

DiskFile::~DiskFile() {
    DiskFile::close();
}

#ifndef _WIN32

bool DiskFile::create(const std::filesystem::path& path) {
    constexpr ::mode_t everybody = 0666; // as far as the user's mask lets
    close();
    m_file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, everybody);
    return m_file >= 0;
}

bool DiskFile::write(std::int64_t position, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const auto written = ::pwrite(m_file, bytes.data(), bytes.size(), position);
        if (written <= 0)
            return false;
        position += written;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

void DiskFile::close() {
    if (m_file >= 0)
        ::close(std::exchange(m_file, -1));
}

#else

bool DiskFile::create(const std::filesystem::path& path) {
    close();
    m_file.pubsetbuf(nullptr, 0); // every write goes to the file as it is
    return m_file.open(path, std::ios::out | std::ios::binary | std::ios::trunc) != nullptr;
}

bool DiskFile::write(std::int64_t position, std::span<const std::byte> bytes) {
    const auto size = static_cast<std::streamsize>(bytes.size());
    return m_file.is_open() && m_file.pubseekpos(position, std::ios::out) == std::streampos(position) &&
           m_file.sputn(reinterpret_cast<const char*>(bytes.data()), size) == size;
}

void DiskFile::close() {
    m_file.close();
}

#endif

}
