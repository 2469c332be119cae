#include "publish/zips/zip_writer.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/text.h"
#include "publish/zips/deflater.h"
#include "publish/zips/piece_line.h"
#include "publish/zips/unfinished_file.h"
#include "publish/zips/zip_layout.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <system_error>
#include <thread>
#include <vector>

namespace publish {
namespace fs = std::filesystem;

namespace {

constexpr unsigned mostThreads = 16;

// Smaller ones would pack worse and larger ones need more memory; no thread waits long for its next.
constexpr std::size_t pieceSize = std::size_t{256} << 10U;
constexpr std::size_t reach = std::size_t{32} << 10U; // how far back a piece may refer
constexpr std::size_t longestName = 65535;

constexpr std::array<std::string_view, 10> packedAlready{".JPG",   ".JPEG", ".PNG", ".GIF", ".WEBP",
                                                         ".WOFF2", ".WOFF", ".MP4", ".MP3", ".ZIP"};

bool isPackedAlready(std::string_view name) {
    const auto folded = base::upper(name);
    return std::any_of(packedAlready.begin(), packedAlready.end(),
                       [&](std::string_view ending) { return folded.ends_with(ending); });
}

unsigned threadsFor(unsigned wanted) {
    return wanted > 0 ? wanted : std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads);
}

[[noreturn]] void failReading(const fs::path& file, const std::string& why) {
    throw base::FileError("Cannot read " + base::textOf(file) + ": " + why);
}

/// A file that goes into the zip, held against changing meanwhile.
class SourceFile {
public:
    explicit SourceFile(const fs::path& path) : m_path(path), m_stamp(stamp()) {
        m_file.open(path, std::ios::binary);
        if (!m_file)
            failReading(m_path, "it cannot be opened\nPlease check that you may read it");
    }

    [[nodiscard]] std::uint64_t size() const { return m_stamp.size; }

    std::string read(std::size_t most) {
        const auto more = m_left + 1; // a byte that should not be there is found
        std::string bytes(static_cast<std::size_t>(std::min<std::uint64_t>(most, more)), '\0');
        m_file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (m_file.bad())
            failReading(m_path, "the disk does not give its bytes\nPlease check the disk");
        bytes.resize(static_cast<std::size_t>(m_file.gcount()));
        m_left -= std::min<std::uint64_t>(m_left, bytes.size());
        return bytes;
    }

    /// To be asked when so many bytes have been read and none are left.
    void requireUnchanged(std::uint64_t count) {
        const auto now = stamp();
        if (count != m_stamp.size || now.size != m_stamp.size || now.time != m_stamp.time)
            failReading(m_path, "it has changed while it was read\nPlease try again when no other program "
                                "works on it");
    }

private:
    struct Stamp {
        std::uint64_t size;
        fs::file_time_type time;
    };

    [[nodiscard]] Stamp stamp() const {
        std::error_code error;
        if (!fs::exists(m_path, error))
            failReading(m_path, "it is not there (any more)");
        if (!fs::is_regular_file(m_path, error))
            failReading(m_path, "it is no file");
        const Stamp found{fs::file_size(m_path, error), fs::last_write_time(m_path, error)};
        if (error)
            failReading(m_path, "the disk does not tell its size\nPlease check the disk");
        return found;
    }

    fs::path m_path;
    Stamp m_stamp;
    std::uint64_t m_left = m_stamp.size;
    std::ifstream m_file;
};

}

class ZipWriter::Parts {
public:
    Parts(const fs::path& zip, unsigned threads)
        : m_file(zip), m_line(threadsFor(threads), [this](Piece& piece) { write(piece); }) {}

    /// `read` gives the next bytes, at most as many as it is asked for and fewer only at the end.
    template <typename Read>
    std::uint64_t add(std::string_view name, std::uint64_t size, Read read) {
        if (name.empty() || name.size() > longestName)
            throw base::FileError("A name of a file in a zip has 1 to 65535 bytes");
        m_entries.push_back({.name = std::string(name), .hasRoom = needsRoom(size)});
        const bool isToShrink = !isPackedAlready(name);
        std::uint64_t count = 0;
        std::string before;
        auto plain = read(pieceSize);
        for (bool isFirst = true, isLast = false; !isLast; isFirst = false) {
            auto next = plain.size() == pieceSize ? read(pieceSize) : std::string();
            isLast = next.empty();
            count += plain.size();
            auto end = isToShrink && !isLast ? plain.substr(plain.size() - reach) : std::string();
            m_line.push({.entry = m_entries.size() - 1,
                         .isFirst = isFirst,
                         .isLast = isLast,
                         .isToShrink = isToShrink,
                         .before = std::move(before),
                         .plain = std::move(plain)});
            before = std::move(end);
            plain = std::move(next);
        }
        return count;
    }

    void finish() {
        m_line.drain();
        const auto offset = m_file.size();
        for (const auto& entry : m_entries)
            m_file.append(directoryHeader(entry));
        m_file.append(endOfZip(m_entries.size(), offset, m_file.size() - offset));
        m_file.finish();
    }

private:
    void write(Piece& piece) {
        auto& entry = m_entries[piece.entry];
        if (piece.isFirst) {
            entry.offset = m_file.size();
            entry.isDeflated = piece.isToShrink;
        }
        entry.checkSum = joinedCheckSum(entry.checkSum, piece.checkSum, piece.size);
        entry.size += piece.size;
        entry.packedSize += piece.packed.size();
        if (piece.isFirst)
            m_file.append(localHeader(entry));
        m_file.append(piece.packed);
        if (piece.isLast && !piece.isFirst)
            m_file.writeAt(entry.offset, localHeader(entry));
    }

    UnfinishedFile m_file;
    std::vector<ZipEntry> m_entries;
    PieceLine m_line;
};

ZipWriter::ZipWriter(const fs::path& zip, unsigned threads)
    : m_parts(std::make_unique<Parts>(zip, threads)) {}

ZipWriter::~ZipWriter() = default;

void ZipWriter::addFile(std::string_view name, const fs::path& file) {
    SourceFile source(file);
    const auto count = m_parts->add(name, source.size(), [&](std::size_t most) { return source.read(most); });
    source.requireUnchanged(count);
}

void ZipWriter::addText(std::string_view name, std::string_view text) {
    m_parts->add(name, text.size(), [&](std::size_t most) {
        const auto part = text.substr(0, most);
        text.remove_prefix(part.size());
        return std::string(part);
    });
}

void ZipWriter::finish() {
    m_parts->finish();
}

}
