#pragma once

#include "ui/system/archive/entry_path.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

struct zip;
struct zip_file;

namespace ui::system {

/// An entry that may be extracted.
struct ZipEntry {
    enum class Packing : std::uint8_t { stored, deflated, other }; ///< encrypted is other too

    std::uint64_t index = 0;
    std::uint64_t size = 0; ///< unpacked, as the archive says, which may be a lie
    EntryPath where;
    Packing packing = Packing::other;
    std::uint64_t packedSize = 0;            ///< as the archive says
    std::optional<std::uint32_t> checkSum{}; ///< CRC-32 of the contents, as the archive says
};

/// What an archive says of an entry, whether it may be extracted or not.
struct ZipListing {
    std::string name;     ///< UTF-8, as it stands there
    bool isPlain = true;  ///< a file or folder; no link or other special file
    bool isOpen = true;   ///< not encrypted
    bool isCommon = true; ///< stored or deflated, which every program can unpack
};

/// The contents of one entry, a piece at a time.
class ZipEntryReader {
public:
    enum class State { more, end, damaged };

    enum class Form { contents, packed };

    ZipEntryReader(zip& archive, const ZipEntry& entry, Form form);

    /// Fills the front of the buffer; `count` tells how much of it. At the end of the entry its
    /// check sum has been compared.
    [[nodiscard]] State read(std::span<std::byte> buffer, std::size_t& count);

private:
    struct Close {
        void operator()(zip_file* file) const;
    };

    std::unique_ptr<zip_file, Close> m_file; // none when it cannot be unpacked at all
};

/// A zip archive, open for reading.
class ZipReader {
public:
    /// `isOpen` is false when the file cannot be read as an archive.
    explicit ZipReader(const std::filesystem::path& path);

    [[nodiscard]] bool isOpen() const { return m_archive != nullptr; }

    [[nodiscard]] std::uint64_t entryCount() const;

    /// What all entries say they unpack to; the largest number there is when they say more.
    [[nodiscard]] std::uint64_t unpackedSize() const;

    /// All entries, in the archive's order.
    [[nodiscard]] std::vector<ZipListing> listing() const;

    /// The entries that match and may be extracted, in the archive's order. Links and other special
    /// files are left out, and so are paths that are not allowed; of files whose paths differ in letter
    /// case only, the last one stands for all.
    [[nodiscard]] std::vector<ZipEntry> entries(std::string_view mask) const;

    /// Whether a disk can hold all entries beside each other: names that fit, no name that is a file and a
    /// folder too, in any letter case, and no more than so many folders.
    [[nodiscard]] bool isSound(std::uint64_t mostFolders) const;

    [[nodiscard]] ZipEntryReader open(const ZipEntry& entry) const {
        return {*m_archive, entry, ZipEntryReader::Form::contents};
    }

    /// Its bytes as they stand in the archive, of which nothing is checked.
    [[nodiscard]] ZipEntryReader openPacked(const ZipEntry& entry) const {
        return {*m_archive, entry, ZipEntryReader::Form::packed};
    }

private:
    struct Close {
        void operator()(zip* archive) const;
    };

    struct Description {
        std::uint64_t size = 0;
        std::uint64_t packedSize = 0;
        std::optional<std::uint32_t> checkSum{};
        ZipEntry::Packing packing = ZipEntry::Packing::other;
        bool isOpen = true;
        bool isCommon = true;
    };

    [[nodiscard]] Description describe(std::uint64_t index) const;
    [[nodiscard]] bool isPlain(std::uint64_t index) const;

    std::unique_ptr<zip, Close> m_archive;
};
}
