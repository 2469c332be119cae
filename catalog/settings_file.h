#pragma once

#include "catalog/setting_keys.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace catalog {

/// The two settings files and their places.
inline constexpr std::string_view userSettingsFile = "User.ini";   ///< in `UserFolder`
inline constexpr std::string_view startSettingsFile = "Start.ini"; ///< in `ProgramFolder`

/// Of a longer value this many bytes are read.
inline constexpr std::size_t longestSetting = 249;

struct Setting {
    SettingKey key;
    std::string value;
};

/// One settings file (docs/file-formats.md, "Settings files"), read and written a key at a time; it is
/// never held open. Section and key match without regard to case. Find the path with base::filePath,
/// so that `START.INI` is the same file.
class SettingsFile {
public:
    explicit SettingsFile(std::filesystem::path path) : m_path(std::move(path)) {}

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// Trimmed, at most `longestSetting` bytes; empty where file, section or key is missing.
    [[nodiscard]] std::string read(SettingKey key) const;

    /// Changes this value and no other byte of the file; makes file, section and key as needed. The file
    /// is replaced in one step, and left alone where it holds the value already. Whether it holds it now:
    /// a failure leaves the file as it was, and most callers do without a word. A line break inside the value
    /// would start another line of the file, so it is written as a blank.
    bool write(SettingKey key, std::string_view value) const;

    /// The same for several at once: all of them or none, in that order where they are new.
    bool write(const std::vector<Setting>& settings) const;

private:
    std::filesystem::path m_path;
};

/// What `SettingsFile` reads and writes, on a file's bytes.
[[nodiscard]] std::string settingIn(std::string_view file, SettingKey key);
[[nodiscard]] std::string withSetting(std::string file, SettingKey key, std::string_view value);

/// What is read of a value that stands so behind its equals sign.
[[nodiscard]] std::string_view settingWrittenAs(std::string_view written);

}
