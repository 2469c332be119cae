#pragma once

#include "publish/complaint.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// A catalogue zip from anywhere, taken as the viewer takes it: by the viewer's own rules for names, sizes
/// and markers. Nothing that stands in it makes this crash, hang or need memory without end.
class ZipReader {
public:
    /// A file that the viewer would unpack.
    struct File {
        std::string name;       ///< UTF-8, "/" between folders
        std::uint64_t size = 0; ///< unpacked, as the zip says, which may be a lie
    };

    /// What the marker says that counts for the viewer.
    struct Marker {
        std::string supplier;    ///< name of the catalogue's folder; in the code page
        std::string displayName; ///< on the list of suppliers; in the code page
    };

    /// Throws base::FileError: there is no such file, it may not be read, it is no zip or cut off, or it
    /// unpacks to more than the viewer takes (2 GiB, 100,000 entries).
    explicit ZipReader(const std::filesystem::path& zip);
    ~ZipReader();
    ZipReader(const ZipReader&) = delete;
    ZipReader& operator=(const ZipReader&) = delete;

    /// In the zip's order. Links, names that are not allowed and the earlier of two names that differ in
    /// letter case only are left out, as the viewer does.
    [[nodiscard]] const std::vector<File>& files() const { return m_files; }

    /// The marker that is named after the zip, also when a browser has added a copy number to the zip's name.
    /// Nothing without one: the viewer deletes such a zip and says nothing.
    [[nodiscard]] std::optional<Marker> marker() const;

    /// What is wrong with the zip itself, whatever the catalogue in it: entries that the viewer refuses or
    /// passes over, damaged or encrypted ones, no marker, a name that no supplier can have, missing data
    /// files. Reads everything in it once. `Place::file` is the entry's name, or the zip's.
    [[nodiscard]] Complaints check() const;

    /// The bytes of a file by its path, in any letter case; nothing when there is none.
    /// Throws base::FileError when it is damaged or longer than `most` bytes.
    [[nodiscard]] std::optional<std::string> read(std::string_view name, std::uint64_t most) const;

    /// Unpacks all files into the folder, which is made if need be, over files that are there in any letter
    /// case. Nothing leaves the folder. Throws base::FileError (damaged entries by name) and leaves nothing
    /// behind then.
    void unpack(const std::filesystem::path& folder) const;

private:
    class Parts;
    std::unique_ptr<Parts> m_parts;
    std::vector<File> m_files;
};

}
