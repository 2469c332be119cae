#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ui::system {

/// Where an entry of an archive may go: UTF-8, parts joined by "/", relative to the target folder.
struct EntryPath {
    std::string path;
    bool isFolder = false;
};

/// Backslashes part folders too. Nothing for a name that leaves the target folder (absolute, with a
/// drive letter or "..") or that no file can have on one of the platforms (a control character, one of
/// `:*?"<>|`, a part that ends in a point or blank or names a device): a catalogue folder can be carried
/// from one to the other.
[[nodiscard]] std::optional<EntryPath> entryPath(std::string_view nameInUtf8);

/// Whether common disks have room for the path: parts of at most 255 bytes, 1,000 bytes in all, at most 32
/// parts.
[[nodiscard]] bool fitsOnDisk(const EntryPath& entry);

/// "*" matches every path; any other mask only names at the top, without regard to case, and a "*" in
/// front of it stands for any beginning. The mask is in the code page.
[[nodiscard]] bool matchesMask(std::string_view mask, const EntryPath& entry);

}
