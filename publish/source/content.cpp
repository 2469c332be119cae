#include "publish/source/content.h"

#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "catalog/template_names.h"
#include "publish/linked_codes.h"
#include "publish/lists/list_mapping.h"
#include "publish/source/described_rows.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace publish {
namespace fs = std::filesystem;

namespace {

using Weight = Complaint::Weight;
using catalog::ParameterText;

constexpr std::array<std::string_view, 5> readFiles{parametersSource, productsSource, groupsSource,
                                                    mappingFileName, "published.ini"};
constexpr std::array<std::string_view, 2> readFolders{descriptionsFolder, "exact"};

constexpr std::string_view templateEnding = ".ECT";

/// When a catalogue needs a template.
struct Template {
    std::string_view name;
    bool (*isNeeded)(const catalog::ParameterValues&);
};

bool takesFaxes(const catalog::ParameterValues& values) {
    return !values.text(ParameterText::supplierFax).empty();
}

bool takesMail(const catalog::ParameterValues& values) {
    return !values.text(ParameterText::supplierEmail).empty();
}

constexpr std::array templates{
    Template{catalog::bannerTemplate, [](const catalog::ParameterValues&) { return true; }},
    Template{catalog::productTemplate, [](const catalog::ParameterValues&) { return true; }},
    Template{catalog::firstGroupTemplate,
             [](const catalog::ParameterValues& v) { return v.groupPageStyle == catalog::firstGroupStyle; }},
    Template{catalog::secondGroupTemplate,
             [](const catalog::ParameterValues& v) { return v.groupPageStyle != catalog::firstGroupStyle; }},
    Template{catalog::welcomeTemplate,
             [](const catalog::ParameterValues& v) {
                 return base::upper(v.catalogPassword) != catalog::noWelcomePassword;
             }},
    Template{catalog::printTemplate,
             [](const catalog::ParameterValues& v) { return takesFaxes(v) && v.chargesTax; }},
    Template{catalog::printTemplateWithoutTax, takesFaxes},
    Template{catalog::mailTemplate,
             [](const catalog::ParameterValues& v) { return takesMail(v) && v.chargesTax; }},
    Template{catalog::mailTemplateWithoutTax, takesMail},
};

// Files and folders whose names begin with a point belong to the supplier's tools.
bool isHidden(const fs::path& relative) {
    return std::any_of(relative.begin(), relative.end(),
                       [](const fs::path& part) { return utf8Of(part).starts_with('.'); });
}

bool isContent(const fs::path& relative, const std::string& listName) {
    const auto name = utf8Of(relative);
    return !isHidden(relative) && name != listName &&
           !base::holdsName(readFolders, utf8Of(*relative.begin())) && !base::holdsName(readFiles, name);
}

using Files = std::map<std::string, fs::path>;

// The error is that of the first step that failed.
std::error_code collect(const fs::path& folder, const std::string& listName, Files& files) {
    std::error_code error;
    for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const auto relative = entry->path().lexically_relative(folder);
        if (isContent(relative, listName) && entry->is_regular_file(error))
            files.insert_or_assign(utf8Of(relative), entry->path());
        error.clear(); // a link that leads nowhere is no file
    }
    return error;
}

void checkTemplates(const catalog::ParameterValues& parameters, const FileNames& files,
                    Complaints& complaints) {
    for (const auto& needed : templates)
        if (needed.isNeeded(parameters) && !files.holds(needed.name))
            complaints.push_back(
                {Weight::error,
                 {.file = std::string(needed.name)},
                 "the template is missing; tavorine-publish new FOLDER makes one to begin with",
                 "template-missing"});
}

void checkNames(const std::vector<ContentFile>& content, Complaints& complaints) {
    std::set<std::string> names;
    for (const auto& file : content)
        if (!names.insert(foldedName(file.name)).second)
            complaints.push_back({Weight::error,
                                  {.file = file.name},
                                  "another file has this name in other letter case; take one of them out",
                                  "file-twice"});
}

}

std::vector<ContentFile> contentOf(const std::vector<fs::path>& folders, const std::string& listName,
                                   Complaints& complaints) {
    Files files;
    for (const auto& folder : folders)
        if (const auto error = collect(folder, listName, files))
            complaints.push_back({Weight::error,
                                  {.file = utf8Of(folder)},
                                  error == std::errc::no_such_file_or_directory
                                      ? "there is no such folder"
                                      : "the folder cannot be read; look whether you may open it",
                                  "folder-unreadable"});
    std::vector<ContentFile> content;
    content.reserve(files.size());
    for (const auto& [name, path] : files)
        content.push_back({name, path});
    return content;
}

void checkContent(const catalog::ParameterValues& parameters, const std::vector<ContentFile>& content,
                  const FileNames& files, const std::function<bool(std::string_view code)>& hasCode,
                  Complaints& complaints) {
    checkNames(content, complaints);
    checkTemplates(parameters, files, complaints);
    for (const auto& file : content)
        if (base::endsIgnoringCase(file.name, templateEnding))
            for (const auto& code : linkedCodes(base::readFile(file.path).value_or("")))
                if (!hasCode(code))
                    complaints.push_back({Weight::error,
                                          {.file = file.name},
                                          "a link leads to " + base::toUtf8(code) +
                                              ", which is not in the catalogue; correct it or take it out",
                                          "link-code-missing"});
}

}
