#include "publish/existing/export/known_complaints.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "publish/existing/export/exact_bytes.h"

#include <algorithm>
#include <array>
#include <map>

namespace publish {
namespace fs = std::filesystem;

namespace {

constexpr const char* knownFile = "known.txt";
constexpr std::string_view heading =
    "; Errors that the catalogue had when it was exported. They stop no build as long as each line stands\n"
    "; here as often as the error occurs. Delete a line when its error is mended.\n";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Rows move when others come and go: "line 12" is "line".
std::string withoutRows(std::string text) {
    for (const std::string_view word : {"line ", "row ", ".csv:"})
        for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
            const auto start = text.begin() + static_cast<std::ptrdiff_t>(at + word.size());
            text.erase(start, std::find_if_not(start, text.end(), isDigit));
        }
    return text;
}

// One line of the file.
std::string lineOf(const Complaint& complaint) {
    const auto& place = complaint.place;
    auto line =
        place.file + " | " + place.column + " | " + complaint.rule + " | " + withoutRows(complaint.text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
    return std::string(base::trim(line));
}

bool isError(const Complaint& complaint) {
    return complaint.weight == Complaint::Weight::error;
}

}

void keepKnown(const Complaints& complaints, const fs::path& sourceFolder) {
    std::string lines;
    for (const auto& complaint : complaints)
        if (isError(complaint))
            lines += lineOf(complaint) + "\n";
    if (lines.empty())
        return;
    std::error_code error;
    fs::create_directories(sourceFolder / exactFolder, error);
    base::replaceFile(sourceFolder / exactFolder / knownFile, std::string(heading) + lines);
}

void demoteKnown(const fs::path& sourceFolder, Complaints& complaints) {
    const auto file = base::readFile(base::filePath(sourceFolder / exactFolder, knownFile));
    if (!file)
        return;
    std::map<std::string, std::size_t, std::less<>> known;
    for (auto line : base::split(*file, '\n')) {
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        ++known[std::string(base::trim(line))];
    }
    for (auto& complaint : complaints) {
        const auto found = isError(complaint) ? known.find(lineOf(complaint)) : known.end();
        if (found == known.end() || found->second == 0)
            continue;
        --found->second;
        complaint.weight = Complaint::Weight::warning;
        complaint.text += " (as in the catalogue that was exported)";
    }
}

}
