#include "ui/system/archive/zip_reader.h"

#include "base/code_page.h"
#include "base/text.h"
#include "ui/system/archive/archive_file.h"

#include <zip.h>

#include <algorithm>
#include <limits>
#include <map>
#include <unordered_set>

namespace ui::system {
namespace {

std::string folderOf(const std::string& name) {
    const auto end = name.find_last_of('/');
    return end == std::string::npos ? std::string() : name.substr(0, end);
}

/// The names of an archive in upper case.
struct Names {
    std::unordered_set<std::string> files;
    std::unordered_set<std::string> folders;

    void add(const EntryPath& entry) {
        auto name = base::upper(base::fromUtf8(entry.path));
        if (!entry.isFolder) {
            files.insert(name);
            name = folderOf(name);
        }
        while (!name.empty() && folders.insert(name).second)
            name = folderOf(name);
    }
};

ZipEntry::Packing packingOf(zip_uint16_t method) {
    if (method == ZIP_CM_STORE)
        return ZipEntry::Packing::stored;
    return method == ZIP_CM_DEFLATE ? ZipEntry::Packing::deflated : ZipEntry::Packing::other;
}

zip_t* openArchive(const std::filesystem::path& path) {
    zip_error_t error;
    zip_error_init(&error);
    auto* source = openArchiveFile(path, error);
    auto* archive = source != nullptr ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr;
    if (archive == nullptr && source != nullptr)
        zip_source_free(source);
    zip_error_fini(&error);
    return archive;
}

}

ZipEntryReader::ZipEntryReader(zip& archive, const ZipEntry& entry, Form form)
    : m_file(zip_fopen_index(&archive, entry.index, form == Form::packed ? ZIP_FL_COMPRESSED : 0)) {}

ZipEntryReader::State ZipEntryReader::read(std::span<std::byte> buffer, std::size_t& count) {
    const auto got = m_file ? zip_fread(m_file.get(), buffer.data(), buffer.size()) : -1;
    count = got > 0 ? static_cast<std::size_t>(got) : 0;
    if (got == 0)
        return State::end;
    return got > 0 ? State::more : State::damaged;
}

void ZipEntryReader::Close::operator()(zip_file* file) const {
    zip_fclose(file);
}

ZipReader::ZipReader(const std::filesystem::path& path) : m_archive(openArchive(path)) {}

void ZipReader::Close::operator()(zip* archive) const {
    zip_discard(archive);
}

std::uint64_t ZipReader::entryCount() const {
    return static_cast<std::uint64_t>(zip_get_num_entries(m_archive.get(), 0));
}

std::uint64_t ZipReader::unpackedSize() const {
    constexpr auto most = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t total = 0;
    for (std::uint64_t index = 0; index < entryCount(); ++index) {
        const auto size = describe(index).size;
        total = size > most - total ? most : total + size;
    }
    return total;
}

bool ZipReader::isPlain(std::uint64_t index) const {
    constexpr unsigned modeShift = 16;
    constexpr zip_uint32_t typeMask = 0170000;
    constexpr zip_uint32_t regularFile = 0100000;
    constexpr zip_uint32_t folder = 0040000;
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(m_archive.get(), index, 0, &system, &attributes) != 0)
        return true;
    if (system != ZIP_OPSYS_UNIX && system != ZIP_OPSYS_OS_X)
        return true;
    const auto type = (attributes >> modeShift) & typeMask;
    return type == 0 || type == regularFile || type == folder;
}

ZipReader::Description ZipReader::describe(std::uint64_t index) const {
    zip_stat_t stat;
    if (zip_stat_index(m_archive.get(), index, 0, &stat) != 0)
        return {};
    const auto ifKnown = [&](zip_uint64_t part, auto value) {
        return (stat.valid & part) != 0 ? std::optional(value) : std::nullopt;
    };
    const bool isOpen = stat.encryption_method == ZIP_EM_NONE;
    return {.size = ifKnown(ZIP_STAT_SIZE, stat.size).value_or(0),
            .packedSize = ifKnown(ZIP_STAT_COMP_SIZE, stat.comp_size).value_or(0),
            .checkSum = ifKnown(ZIP_STAT_CRC, stat.crc),
            .packing = isOpen ? packingOf(stat.comp_method) : ZipEntry::Packing::other,
            .isOpen = isOpen,
            .isCommon = packingOf(stat.comp_method) != ZipEntry::Packing::other};
}

std::vector<ZipListing> ZipReader::listing() const {
    std::vector<ZipListing> found;
    found.reserve(entryCount());
    for (std::uint64_t index = 0; index < entryCount(); ++index) {
        const auto* name = zip_get_name(m_archive.get(), index, ZIP_FL_ENC_GUESS);
        const auto what = describe(index);
        found.push_back({.name = name != nullptr ? name : "",
                         .isPlain = isPlain(index),
                         .isOpen = what.isOpen,
                         .isCommon = what.isCommon});
    }
    return found;
}

std::vector<ZipEntry> ZipReader::entries(std::string_view mask) const {
    std::vector<ZipEntry> found;
    std::map<std::string, std::size_t> places; // by path in upper case
    for (std::uint64_t index = 0; index < entryCount(); ++index) {
        const auto* name = zip_get_name(m_archive.get(), index, ZIP_FL_ENC_GUESS);
        const auto where = entryPath(name != nullptr ? name : "");
        if (!where || !matchesMask(mask, *where) || !isPlain(index))
            continue;
        const auto key = base::upper(base::fromUtf8(where->path)) + (where->isFolder ? "/" : "");
        const auto [place, isNew] = places.try_emplace(key, found.size());
        if (isNew)
            found.emplace_back();
        const auto what = describe(index);
        found[place->second] = {index, what.size, *where, what.packing, what.packedSize, what.checkSum};
    }
    return found;
}

bool ZipReader::isSound(std::uint64_t mostFolders) const {
    Names names;
    for (const auto& entry : entries("*")) {
        if (!fitsOnDisk(entry.where))
            return false;
        names.add(entry.where);
        if (names.folders.size() > mostFolders)
            return false;
    }
    return std::none_of(names.folders.begin(), names.folders.end(),
                        [&](const std::string& folder) { return names.files.contains(folder); });
}

}
