#include "ui/system/archive/new_file.h"

#include <cerrno>
#include <utility>

#ifdef __linux__
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ui::system {
namespace fs = std::filesystem;

#ifdef __linux__
NewFile::NewFile(const fs::path& path)
    : m_file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)) {
    if (m_file < 0)
        m_error = {errno, std::generic_category()};
}

NewFile::~NewFile() {
    static_cast<void>(close());
}

bool NewFile::write(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const auto count = ::write(m_file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

bool NewFile::close() {
    const int file = std::exchange(m_file, -1);
    if (file >= 0)
        ::sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE);
    return file >= 0 && ::close(file) == 0;
}
#else
NewFile::NewFile(const fs::path& path) {
    if (fs::exists(fs::symlink_status(path, m_error)))
        m_error = std::make_error_code(std::errc::file_exists);
    else
        m_file.open(path, std::ios::binary | std::ios::trunc);
    if (m_file.is_open())
        m_error.clear();
    else if (!m_error)
        m_error = std::make_error_code(std::errc::permission_denied);
}

NewFile::~NewFile() = default;

bool NewFile::write(std::span<const std::byte> bytes) {
    return static_cast<bool>(m_file.write(reinterpret_cast<const char*>(bytes.data()),
                                          static_cast<std::streamsize>(bytes.size())));
}

bool NewFile::close() {
    m_file.close();
    return !m_file.fail();
}
#endif

}
