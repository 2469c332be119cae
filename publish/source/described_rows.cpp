#include "publish/source/described_rows.h"

#include "base/code_page.h"
#include "base/files.h"
#include "catalog/records.h"
#include "publish/file_names.h"

namespace publish {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view descriptionEnding = ".txt";

std::string keyOf(std::string_view code) {
    const auto key = catalog::indexKey(code);
    return {key.begin(), key.end()};
}

std::string withoutCarriageReturns(std::string text) {
    std::erase(text, '\r');
    while (text.ends_with('\n'))
        text.pop_back();
    return text;
}

void complain(const fs::path& path, Complaints& complaints, const char* rule, const char* text) {
    complaints.push_back({Complaint::Weight::error,
                          {.file = std::string(descriptionsFolder) + "/" + utf8Of(path.filename())},
                          text,
                          rule});
}

}

DescriptionFiles::DescriptionFiles(const fs::path& folder) {
    for (const auto& path : base::filesEndingWith(folder, descriptionEnding))
        m_files.emplace(keyOf(base::fromUtf8(utf8Of(path.stem()))), path);
}

void DescriptionFiles::describe(Product& entry, Complaints& complaints) const {
    const auto found = m_files.empty() ? m_files.end() : m_files.find(keyOf(entry.code));
    if (found == m_files.end())
        return;
    const auto& path = found->second;
    const auto text = base::readFile(path);
    if (!entry.longDescription.empty())
        complain(path, complaints, "details-twice",
                 "the table has details for this code already; take one of them out");
    else if (!text)
        complain(path, complaints, "file-unreadable", "the file cannot be read");
    else if (!base::isUtf8(*text))
        complain(path, complaints, "not-utf8", "the file is not UTF-8; save it with that encoding");
    else
        entry.longDescription = withoutCarriageReturns(base::fromUtf8(*text));
}

void DescriptionFiles::complainOfCode(const fs::path& path, Complaints& complaints) {
    complain(path, complaints, "details-unknown",
             "no product or group has this code; name the file after the code, or take it out");
}

}
