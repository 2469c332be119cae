#include "app/marker_files.h"

#include "base/code_page.h"
#include "base/files.h"
#include "base/program_title.h"
#include "base/text.h"
#include "catalog/program_folders.h"
#include "platform/message_box.h"

#include <algorithm>

namespace app {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view markerEnding = ".Sup";
constexpr std::size_t longestName = 100;

// Nothing in it can be seen.
bool isBlank(std::string_view text) {
    constexpr char noBreakSpace = '\xA0';
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == noBreakSpace; });
}

// Whether a text can name a supplier's folder: one path element that stays inside `ProgramFolder` and is no
// file or folder of the program's own.
bool isFolderName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of("/\\:") == std::string_view::npos && !catalog::isProgramsOwn(name);
}

std::string folderNameOf(const fs::path& marker) {
    auto name = base::textOf(marker.filename());
    name.resize(name.size() - markerEnding.size());
    return name;
}

std::string_view firstLineOf(std::string_view text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

Supplier unnamed(const fs::path& marker) {
    return {folderNameOf(marker), folderNameOf(marker), folderNameOf(marker)};
}

std::optional<Supplier> read(const fs::path& marker) {
    return parseMarker(folderNameOf(marker), firstLineOf(base::readFile(marker).value_or("")));
}

}

std::optional<Supplier> parseMarker(std::string_view folderName, std::string_view firstLine) {
    const auto fields = base::split(firstLine, '|');
    if (fields.size() < 2)
        return std::nullopt;
    const auto orFolder = [&](std::string_view field) {
        return std::string(isBlank(field) ? folderName : field);
    };
    return Supplier{std::string(folderName), orFolder(fields[0]), orFolder(fields[1].substr(0, longestName))};
}

MarkerFiles::MarkerFiles(fs::path programFolder, platform::MessageBox& messages)
    : m_programFolder(std::move(programFolder)), m_messages(messages) {}

std::vector<Supplier> MarkerFiles::suppliers() {
    auto markers = base::filesEndingWith(m_programFolder, markerEnding);
    std::erase_if(markers, [](const fs::path& marker) { return !isFolderName(folderNameOf(marker)); });
    if (markers.size() == 1)
        return {read(markers.front()).value_or(unnamed(markers.front()))};
    std::vector<Supplier> listed;
    for (const auto& marker : markers) {
        if (const auto supplier = read(marker))
            listed.push_back(*supplier);
        else
            reportOnce(marker);
    }
    return listed;
}

void MarkerFiles::reportOnce(const fs::path& marker) {
    if (!m_reported.insert(marker).second)
        return;
    m_messages.show(platform::Icon::exclamation, base::programTitle,
                    base::textOf(marker) + " does not name a supplier\nPlease contact your supplier");
}

}
