#include "publish/zips/zip_reader.h"

#include "app/marker_files.h"
#include "app/zip_files.h"
#include "base/code_page.h"
#include "base/errors.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "publish/zips/zip_catalog_check.h"
#include "publish/zips/zip_entry_check.h"
#include "ui/system/archive/zip_extractor.h"
#include "ui/system/archive/zip_reader.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <system_error>

namespace publish {
namespace fs = std::filesystem;

namespace {

using ui::system::ZipEntry;
using ui::system::ZipEntryReader;

[[noreturn]] void fail(const fs::path& zip, const std::string& why) {
    throw base::FileError("Cannot read " + base::textOf(zip) + ": " + why);
}

[[noreturn]] void failToOpen(const fs::path& zip) {
    constexpr std::string_view beginningOfZips = "PK";
    std::error_code error;
    if (!fs::exists(zip, error))
        fail(zip, "it is not there");
    if (!fs::is_regular_file(zip, error))
        fail(zip, "it is no file");
    std::ifstream file(zip, std::ios::binary);
    if (!file)
        fail(zip, "it cannot be opened\nPlease check that you may read it");
    std::string beginning(beginningOfZips.size(), '\0');
    file.read(beginning.data(), static_cast<std::streamsize>(beginning.size()));
    if (beginning != beginningOfZips)
        fail(zip, "it is no zip file");
    fail(zip, "it is damaged or cut off\nPlease copy or download it again");
}

[[noreturn]] void failAsTooLarge(const fs::path& zip) {
    fail(zip, "it unpacks to more than 2 GiB or 100,000 files, which the viewer refuses\nPlease make it "
              "smaller");
}

void makeFolder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (!fs::is_directory(folder, error))
        throw base::FileError("Cannot make the folder " + base::textOf(folder) +
                              "\nPlease check that you may write there and that no file has its name");
}

}

class ZipReader::Parts {
public:
    explicit Parts(const fs::path& path) : m_path(path), m_zip(path) {
        const ui::system::ExtractionLimits limits;
        if (!m_zip.isOpen())
            failToOpen(path);
        if (m_zip.entryCount() > limits.entries || m_zip.unpackedSize() > limits.bytes)
            failAsTooLarge(path);
        m_entries = m_zip.entries("*");
        std::erase_if(m_entries, [](const ZipEntry& entry) { return entry.where.isFolder; });
    }

    [[nodiscard]] const fs::path& path() const { return m_path; }

    [[nodiscard]] std::string fileName() const { return base::textOf(m_path.filename()); }

    [[nodiscard]] const ui::system::ZipReader& zip() const { return m_zip; }

    [[nodiscard]] const std::vector<ZipEntry>& entries() const { return m_entries; }

    [[nodiscard]] std::vector<std::string> topLevelFiles() const {
        std::vector<std::string> names;
        for (const auto& entry : m_entries)
            if (entry.where.path.find('/') == std::string::npos)
                names.push_back(base::fromUtf8(entry.where.path));
        return names;
    }

    /// By its path, in any letter case.
    [[nodiscard]] const ZipEntry* find(std::string_view name) const {
        const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const ZipEntry& entry) {
            return base::equalIgnoringCase(base::fromUtf8(entry.where.path), name);
        });
        return found == m_entries.end() ? nullptr : &*found;
    }

    [[nodiscard]] std::uint64_t sizeOf(std::string_view name) const {
        const auto* entry = find(name);
        return entry != nullptr ? entry->size : 0;
    }

    [[nodiscard]] std::optional<std::string> supplier() const {
        return app::supplierOf(nameOfZip(fileName()), topLevelFiles());
    }

    /// Of the marker that counts; empty where there is none, or a damaged one.
    [[nodiscard]] std::string markerLine() const {
        constexpr std::size_t longestLine = 64 << 10;
        const auto name = supplier();
        const auto* entry = name ? find(app::markerOf(*name)) : nullptr;
        std::string text;
        const bool isWhole = entry != nullptr && readThrough(*entry, [&](std::string_view piece) {
                                 text += piece.substr(0, longestLine - std::min(longestLine, text.size()));
                             });
        return isWhole ? text.substr(0, text.find_first_of("\r\n")) : std::string();
    }

    /// Hands on an entry piece by piece to its end; whether it is whole.
    template <typename Take>
    [[nodiscard]] bool readThrough(const ZipEntry& entry, Take take) const {
        std::vector<std::byte> buffer(std::size_t{64} << 10U);
        auto contents = m_zip.open(entry);
        for (std::uint64_t size = 0;;) {
            std::size_t count = 0;
            const auto state = contents.read(buffer, count);
            size += count;
            if (state == ZipEntryReader::State::damaged || size > entry.size)
                return false;
            take(std::string_view(reinterpret_cast<const char*>(buffer.data()), count));
            if (state == ZipEntryReader::State::end)
                return true;
        }
    }

    [[nodiscard]] bool isWhole(const ZipEntry& entry) const {
        return readThrough(entry, [](std::string_view /*bytes*/) {});
    }

    [[noreturn]] void failAsDamaged(const ZipEntry& entry) const {
        fail(m_path, base::fromUtf8(shownName(entry.where.path)) +
                         " in it is damaged or encrypted\nPlease copy or download the zip again, or ask for "
                         "one without a password");
    }

private:
    fs::path m_path;
    ui::system::ZipReader m_zip;
    std::vector<ZipEntry> m_entries; // files
};

ZipReader::ZipReader(const fs::path& zip) : m_parts(std::make_unique<Parts>(zip)) {
    for (const auto& entry : m_parts->entries())
        m_files.push_back({entry.where.path, entry.size});
}

ZipReader::~ZipReader() = default;

std::optional<ZipReader::Marker> ZipReader::marker() const {
    const auto supplier = m_parts->supplier();
    if (!supplier)
        return std::nullopt;
    const auto parsed = app::parseMarker(*supplier, m_parts->markerLine());
    return Marker{*supplier, parsed ? parsed->displayName : *supplier};
}

Complaints ZipReader::check() const {
    const auto listing = m_parts->zip().listing();
    auto complaints = checkEntries(listing);
    for (const auto& entry : m_parts->entries())
        if (listing[entry.index].isOpen && !m_parts->isWhole(entry))
            complaints.push_back(entryComplaint(
                Complaint::Weight::error, entry.where.path, "zip-entry-damaged",
                "this is damaged; the viewer refuses the zip. Please make or download it again"));
    const auto found = checkCatalogZip({.fileName = m_parts->fileName(),
                                        .topLevelFiles = m_parts->topLevelFiles(),
                                        .markerLine = m_parts->markerLine(),
                                        .parametersSize = m_parts->sizeOf(catalog::parametersFile)});
    complaints.insert(complaints.end(), found.begin(), found.end());
    return complaints;
}

std::optional<std::string> ZipReader::read(std::string_view name, std::uint64_t most) const {
    const auto* entry = m_parts->find(name);
    if (entry == nullptr)
        return std::nullopt;
    if (entry->size > most)
        fail(m_parts->path(), base::fromUtf8(shownName(entry->where.path)) + " in it is too large");
    std::string bytes;
    if (!m_parts->readThrough(*entry, [&](std::string_view piece) { bytes += piece; }))
        m_parts->failAsDamaged(*entry);
    return bytes;
}

void ZipReader::unpack(const fs::path& folder) const {
    using Result = ui::system::ZipExtractor::Result;
    makeFolder(folder);
    const auto result = ui::system::ZipExtractor().extract(m_parts->path(), "*", folder);
    if (result == Result::notWritten)
        throw base::FileError("Cannot unpack " + base::textOf(m_parts->path()) + " into " +
                              base::textOf(folder) +
                              "\nPlease check that the disk is not full and that you may write there");
    if (result == Result::tooLarge)
        failAsTooLarge(m_parts->path());
    if (result == Result::extracted || result == Result::nothingMatched)
        return;
    for (const auto& entry : m_parts->entries())
        if (!m_parts->isWhole(entry))
            m_parts->failAsDamaged(entry);
    fail(m_parts->path(), "it has names that no disk can hold beside each other\nPlease check it, which says "
                          "which they are");
}

}
