#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Whole files, and names that match without regard to case on every platform.
namespace base {

/// The file of that name in the folder, in whatever letter case it is stored; an exact match wins.
/// The name is the program's own, so it holds no separator.
[[nodiscard]] std::optional<std::filesystem::path> findFile(const std::filesystem::path& folder,
                                                            std::string_view name);

/// As `findFile`; where there is none, the path that the name would have.
[[nodiscard]] std::filesystem::path filePath(const std::filesystem::path& folder, std::string_view name);

/// The regular files of the folder whose names end so (".zip"), ascending without regard to case.
/// A folder that cannot be read has none.
[[nodiscard]] std::vector<std::filesystem::path> filesEndingWith(const std::filesystem::path& folder,
                                                                 std::string_view ending);

/// The bytes of a file; nothing if it cannot be opened or read.
[[nodiscard]] std::optional<std::string> readFile(const std::filesystem::path& path);

/// A file that nobody may write: the read-only attribute, or no write permission at all. It protects a
/// file even from those who may write everything.
[[nodiscard]] bool isReadOnly(const std::filesystem::path& path);

/// Writes beside the file and renames, so that neither a crash nor a full disk leaves half a file. A file
/// that is read-only is not replaced. Throws FileError and leaves the old file as it was.
void replaceFile(const std::filesystem::path& path, std::string_view bytes);

/// The same, and renames only when the bytes have reached the disk, so that a power cut leaves the old file
/// or the new one too. Takes as long as the disk does: some milliseconds.
void replaceFileDurably(const std::filesystem::path& path, std::string_view bytes);

/// Whether the file's bytes have reached the disk, for which this waits. On a file system that maps no file
/// for writing it is taken for granted.
[[nodiscard]] bool flushToDisk(const std::filesystem::path& path);

/// What a rename onto the path must replace: the file that a symbolic link leads to, not the link.
[[nodiscard]] std::filesystem::path behindLinks(const std::filesystem::path& path);

/// What stands beside a file while it is being replaced: its name with this ending.
inline constexpr std::string_view unfinishedEnding = ".new";

/// A name without that ending, in any letter case.
[[nodiscard]] std::string_view withoutUnfinishedEnding(std::string_view name);

/// Deletes what a `replaceFile` that was killed has left beside the file.
void removeUnfinished(const std::filesystem::path& path);

/// Writes over the old bytes and cuts to length: the fastest way for a page that is written at every
/// step through the grid and is worth nothing after it. Throws FileError.
void overwriteFile(const std::filesystem::path& path, std::string_view bytes);

}
