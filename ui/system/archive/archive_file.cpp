#include "ui/system/archive/archive_file.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <memory>
#include <vector>

namespace ui::system {
namespace {

class ArchiveFile {
public:
    explicit ArchiveFile(const std::filesystem::path& path) {
        m_file.rdbuf()->pubsetbuf(nullptr, 0); // one buffer is enough
        m_file.open(path, std::ios::binary | std::ios::ate);
        m_size = m_file ? std::max<std::streamoff>(m_file.tellg(), 0) : 0;
    }

    /// What is empty would pass for an archive of no entries.
    [[nodiscard]] bool isOpen() const { return m_file.is_open() && m_file.good() && m_size > 0; }

    [[nodiscard]] std::streamoff size() const { return m_size; }

    /// How many bytes it has put there, -1 for a failure.
    zip_int64_t read(char* to, std::size_t wanted) {
        std::size_t done = 0;
        while (done < wanted && m_at < m_size) {
            if ((m_at < m_start || m_at >= end()) && !fill())
                return failed(ZIP_ER_READ);
            const auto count = std::min(wanted - done, static_cast<std::size_t>(end() - m_at));
            std::copy_n(m_piece.data() + (m_at - m_start), count, to + done);
            m_at += static_cast<std::streamoff>(count);
            done += count;
        }
        return static_cast<zip_int64_t>(done);
    }

    zip_int64_t seek(void* arguments, zip_uint64_t length) {
        const auto at = zip_source_seek_compute_offset(
            static_cast<zip_uint64_t>(m_at), static_cast<zip_uint64_t>(m_size), arguments, length, &m_error);
        if (at < 0)
            return -1;
        m_at = at;
        return 0;
    }

    [[nodiscard]] zip_int64_t at() const { return m_at; }

    zip_int64_t tell(void* error, zip_uint64_t length) { return zip_error_to_data(&m_error, error, length); }

private:
    [[nodiscard]] std::streamoff end() const { return m_start + static_cast<std::streamoff>(m_count); }

    bool fill() {
        m_file.clear();
        m_file.seekg(m_at);
        m_file.read(m_piece.data(), static_cast<std::streamsize>(m_piece.size()));
        m_start = m_at;
        m_count = static_cast<std::size_t>(m_file.gcount());
        return m_count > 0; // a file that has become shorter meanwhile has no more
    }

    zip_int64_t failed(int code) {
        zip_error_set(&m_error, code, 0);
        return -1;
    }

    std::ifstream m_file;
    std::streamoff m_size = 0;
    std::streamoff m_at = 0;
    std::streamoff m_start = 0; // of the piece that is in memory
    std::size_t m_count = 0;
    std::vector<char> m_piece = std::vector<char>(std::size_t{256} << 10U);
    zip_error_t m_error{};
};

zip_int64_t describe(const ArchiveFile& file, void* data, zip_uint64_t length) {
    if (length < sizeof(zip_stat_t))
        return -1;
    auto& stat = *static_cast<zip_stat_t*>(data);
    zip_stat_init(&stat);
    stat.size = static_cast<zip_uint64_t>(file.size());
    stat.valid |= ZIP_STAT_SIZE;
    return sizeof(zip_stat_t);
}

zip_int64_t serve(void* user, void* data, zip_uint64_t length, zip_source_cmd_t command) {
    auto& file = *static_cast<ArchiveFile*>(user);
    switch (command) {
    case ZIP_SOURCE_OPEN:
    case ZIP_SOURCE_CLOSE:
        return 0;
    case ZIP_SOURCE_READ:
        return file.read(static_cast<char*>(data), static_cast<std::size_t>(length));
    case ZIP_SOURCE_SEEK:
        return file.seek(data, length);
    case ZIP_SOURCE_TELL:
        return file.at();
    case ZIP_SOURCE_STAT:
        return describe(file, data, length);
    case ZIP_SOURCE_ERROR:
        return file.tell(data, length);
    case ZIP_SOURCE_FREE:
        delete &file; // Deliberate: libzip owns it and knows no destructors
        return 0;
    case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_SEEKABLE;
    default:
        return -1;
    }
}

}

zip_source_t* openArchiveFile(const std::filesystem::path& path, zip_error_t& error) {
    auto file = std::make_unique<ArchiveFile>(path);
    if (!file->isOpen()) {
        zip_error_set(&error, ZIP_ER_OPEN, 0);
        return nullptr;
    }
    auto* source = zip_source_function_create(&serve, file.get(), &error);
    if (source != nullptr)
        static_cast<void>(file.release());
    return source;
}

}
