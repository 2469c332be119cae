#include "catalog/settings_file.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace catalog {
namespace {

constexpr std::string_view newLine = "\r\n";

std::string_view stripped(std::string_view text) {
    constexpr std::string_view space = " \t\r";
    const auto first = text.find_first_not_of(space);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

/// A line of the file by its place, without its line end.
struct Line {
    std::size_t start;
    std::size_t end;  // where CR LF, LF, CR or the file's end stands
    std::size_t next; // where the next line starts
};

Line lineAt(std::string_view file, std::size_t start) {
    const auto end = std::min(file.find_first_of(newLine, start), file.size());
    const bool both = file.substr(end).starts_with(newLine);
    return {start, end, std::min(end + (both ? 2 : 1), file.size())};
}

std::optional<std::string_view> sectionName(std::string_view line) {
    const auto text = stripped(line);
    if (!text.starts_with('['))
        return std::nullopt;
    return stripped(text.substr(1, text.find(']') - 1)); // without a bracket it is opened all the same
}

bool isBlankOrComment(std::string_view line) {
    const auto text = stripped(line);
    return text.empty() || text.starts_with(';');
}

/// What a search for a key finds.
struct Place {
    bool section = false;      // the section exists
    std::size_t insertAt = 0;  // where a new line of the section goes
    std::optional<Line> entry; // the key's line
};

bool holdsKey(std::string_view line, std::string_view key) {
    return !isBlankOrComment(line) && base::equalIgnoringCase(stripped(line.substr(0, line.find('='))), key);
}

// Only the first section of the name is looked at, and in it the first equal key wins.
Place find(std::string_view file, std::string_view section, std::string_view key) {
    Place place;
    place.insertAt = file.size();
    for (std::size_t at = 0; at < file.size();) {
        const auto line = lineAt(file, at);
        const auto text = file.substr(line.start, line.end - line.start);
        at = line.next;
        const auto name = sectionName(text);
        if (name && place.section)
            return place;
        if (name && base::equalIgnoringCase(*name, section)) {
            place.section = true;
            place.insertAt = line.next;
        } else if (place.section && holdsKey(text, key)) {
            place.entry = line;
            return place;
        } else if (place.section && !isBlankOrComment(text)) {
            place.insertAt = line.next;
        }
    }
    return place;
}

std::string_view withoutQuotes(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string oneLine(std::string_view value) {
    std::string line(value);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    return line;
}

void putValue(std::string& file, const Line& entry, std::string_view value) {
    const auto equals = file.find('=', entry.start);
    if (equals < entry.end)
        file.replace(equals + 1, entry.end - equals - 1, value);
    else
        file.insert(entry.end, std::string("=").append(value));
}

void insertLine(std::string& file, std::size_t at, std::string line) {
    line.append(newLine);
    if (at > 0 && newLine.find(file[at - 1]) == std::string_view::npos)
        line.insert(0, newLine);
    file.insert(at, line);
}

}

std::string settingIn(std::string_view file, SettingKey key) {
    const auto entry = find(file, key.section, key.key).entry;
    if (!entry)
        return {};
    const auto line = file.substr(entry->start, entry->end - entry->start);
    const auto equals = line.find('=');
    if (equals == std::string_view::npos)
        return {};
    return std::string(settingWrittenAs(line.substr(equals + 1)));
}

std::string_view settingWrittenAs(std::string_view written) {
    return base::trim(withoutQuotes(stripped(written)).substr(0, longestSetting));
}

std::string withSetting(std::string file, SettingKey key, std::string_view value) {
    const auto place = find(file, key.section, key.key);
    const auto written = oneLine(value);
    const auto entry = std::string(key.key) + "=" + written;
    if (place.entry)
        putValue(file, *place.entry, written);
    else if (place.section)
        insertLine(file, place.insertAt, entry);
    else
        insertLine(file, file.size(), "[" + std::string(key.section) + "]" + std::string(newLine) + entry);
    return file;
}

std::string SettingsFile::read(SettingKey key) const {
    return settingIn(base::readFile(m_path).value_or(std::string()), key);
}

bool SettingsFile::write(SettingKey key, std::string_view value) const {
    return write({{key, std::string(value)}});
}

bool SettingsFile::write(const std::vector<Setting>& settings) const {
    std::error_code error;
    const auto before = base::readFile(m_path);
    if (!before && std::filesystem::exists(m_path, error))
        return false; // never replace settings that cannot be read
    auto after = before.value_or(std::string());
    for (const auto& setting : settings)
        after = withSetting(std::move(after), setting.key, setting.value);
    if (after == before)
        return true;
    try {
        base::replaceFileDurably(m_path, after);
        return true;
    } catch (const base::FileError&) {
        return false; // a setting that cannot be kept stops nobody
    }
}

}
