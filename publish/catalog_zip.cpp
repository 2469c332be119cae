#include "publish/catalog_zip.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "catalog/program_folders.h"
#include "publish/data_files.h"

#include <zip.h>

#include <algorithm>
#include <array>

namespace publish {
namespace fs = std::filesystem;

namespace {

// Archives carry the same date whenever and wherever they are made: 1 January 1980, midnight.
constexpr std::uint16_t zipTime = 0;
constexpr std::uint16_t zipDate = (1U << 5U) | 1U;

constexpr std::array<std::string_view, 5> packedAlready{".JPG", ".JPEG", ".PNG", ".GIF", ".WOFF2"};

constexpr std::array<std::string_view, 5> dataFiles{catalog::parametersFile, catalog::productsFile,
                                                    catalog::groupsFile, catalog::indexFile,
                                                    catalog::memosFile};

std::string utf8Of(const fs::path& path) {
    const auto text = path.u8string();
    return {text.begin(), text.end()};
}

[[noreturn]] void fail(const fs::path& zip, const std::string& why) {
    throw base::FileError("Cannot write " + base::textOf(zip) + ": " + why);
}

/// A zip being made; left as it was unless `close` is reached.
class ZipWriter {
public:
    explicit ZipWriter(const fs::path& path) : m_path(path) {
        int error = 0;
        m_zip = zip_open(utf8Of(path).c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
        if (m_zip == nullptr)
            fail(path, "it cannot be created");
    }

    ~ZipWriter() {
        if (m_zip != nullptr)
            zip_discard(m_zip);
    }

    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    void addFile(const std::string& name, const fs::path& file) {
        add(name, zip_source_file(m_zip, utf8Of(file).c_str(), 0, 0));
    }

    /// The text must live until `close`.
    void addText(const std::string& name, std::string_view text) {
        add(name, zip_source_buffer(m_zip, text.data(), text.size(), 0));
    }

    void close() {
        if (zip_close(m_zip) != 0)
            fail(m_path, zip_strerror(m_zip));
        m_zip = nullptr;
    }

private:
    void add(const std::string& name, zip_source_t* source) {
        const auto index =
            source == nullptr ? -1 : zip_file_add(m_zip, name.c_str(), source, ZIP_FL_ENC_UTF_8);
        if (index < 0) {
            zip_source_free(source);
            fail(m_path, zip_strerror(m_zip));
        }
        const auto entry = static_cast<zip_uint64_t>(index);
        zip_file_set_dostime(m_zip, entry, zipTime, zipDate, 0);
        const auto folded = base::upper(name);
        const bool isPacked = std::any_of(packedAlready.begin(), packedAlready.end(),
                                          [&](std::string_view ending) { return folded.ends_with(ending); });
        zip_set_file_compression(m_zip, entry, isPacked ? ZIP_CM_STORE : ZIP_CM_DEFLATE, 0);
    }

    fs::path m_path;
    zip_t* m_zip = nullptr;
};

/// A folder beside the zip that is gone at the end, however it ends.
struct WorkFolder {
    explicit WorkFolder(const fs::path& zip) : path(fs::path(zip).concat(".work")) { fs::remove_all(path); }

    ~WorkFolder() {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }

    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    fs::path path;
};

bool isOneOfOurs(const std::string& name, const std::string& marker) {
    return base::equalIgnoringCase(name, marker) || base::holdsName(dataFiles, name);
}

}

bool isSupplierId(std::string_view id) {
    const auto allowed = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
               c == '-' || c == '.' || c == ' ';
    };
    return !id.empty() && base::trim(id) == id && id.front() != '-' && id.front() != '.' &&
           std::all_of(id.begin(), id.end(), allowed) && catalog::canNameSupplier(id);
}

void writeZip(const SourceFolder& source, std::string_view supplierId, const fs::path& zip) {
    if (!isSupplierId(supplierId))
        throw base::FileError("\"" + std::string(supplierId) + "\" cannot be a supplier's id");
    const auto marker = std::string(supplierId) + ".sup";
    const auto markerLine = std::string(supplierId) + "|" + source.displayName + "\r\n";
    const WorkFolder work(zip);
    writeDataFiles(source.catalog, work.path);
    ZipWriter writer(zip);
    writer.addText(marker, markerLine);
    for (const auto name : dataFiles)
        writer.addFile(std::string(name), work.path / name);
    for (const auto& file : source.content)
        if (!isOneOfOurs(file.name, marker))
            writer.addFile(file.name, file.path);
    writer.close();
}

}
