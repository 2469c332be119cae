#include "publish/source_folder.h"

#include "base/code_page.h"
#include "base/files.h"
#include "publish/content_check.h"
#include "publish/parameters_source.h"
#include "publish/product_table.h"
#include "publish/source_check.h"

#include <algorithm>
#include <array>
#include <map>

namespace publish {
namespace fs = std::filesystem;

namespace {

using Weight = Complaint::Weight;

constexpr std::string_view descriptionsFolder = "descriptions";
constexpr std::string_view exactFolder = "exact"; // publish/existing/exact_bytes.h
constexpr std::string_view descriptionEnding = ".txt";
constexpr std::array<std::string_view, 3> readFiles{parametersSource, productsSource, groupsSource};

std::string utf8Of(const fs::path& path) {
    const auto text = path.generic_u8string();
    return {text.begin(), text.end()};
}

// Files and folders whose names begin with a point belong to the supplier's tools.
bool isHidden(const fs::path& relative) {
    return std::any_of(relative.begin(), relative.end(),
                       [](const fs::path& part) { return utf8Of(part).starts_with('.'); });
}

bool isContent(const fs::path& relative) {
    const auto name = utf8Of(relative);
    const auto first = utf8Of(*relative.begin());
    return !isHidden(relative) && first != descriptionsFolder && first != exactFolder &&
           std::find(readFiles.begin(), readFiles.end(), name) == readFiles.end();
}

std::vector<ContentFile> contentOf(const std::vector<fs::path>& folders) {
    std::map<std::string, fs::path> files;
    for (const auto& folder : folders)
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            const auto relative = entry.path().lexically_relative(folder);
            if (entry.is_regular_file() && isContent(relative))
                files.insert_or_assign(utf8Of(relative), entry.path());
        }
    std::vector<ContentFile> content;
    content.reserve(files.size());
    for (const auto& [name, path] : files)
        content.push_back({name, path});
    return content;
}

std::string readText(const fs::path& folder, std::string_view name, Complaints& complaints) {
    auto text = base::readFile(folder / name);
    if (!text)
        complaints.push_back({Weight::error, {.file = std::string(name)}, "the file is missing"});
    return text.value_or("");
}

using EntriesByKey = std::map<std::string, Product*>;

std::string keyOf(std::string_view code) {
    const auto key = catalog::indexKey(code);
    return {key.begin(), key.end()};
}

void collect(Group& group, EntriesByKey& entries) {
    entries.emplace(keyOf(group.header.code), &group.header);
    for (auto& product : group.products)
        entries.emplace(keyOf(product.code), &product);
    for (auto& child : group.groups)
        collect(child, entries);
}

std::string withoutCarriageReturns(std::string text) {
    std::erase(text, '\r');
    while (text.ends_with('\n'))
        text.pop_back();
    return text;
}

void readDescription(const fs::path& path, const EntriesByKey& entries, Complaints& complaints) {
    const auto name = std::string(descriptionsFolder) + "/" + utf8Of(path.filename());
    const auto complain = [&](const char* text) {
        complaints.push_back({Weight::error, {.file = name}, text});
    };
    const auto found = entries.find(keyOf(base::textOf(path.stem())));
    const auto text = base::readFile(path).value_or("");
    if (found == entries.end())
        return complain("no product or group has this code");
    if (!found->second->longDescription.empty())
        return complain("the table has details for this code already");
    if (!base::isUtf8(text))
        return complain("the file is not UTF-8");
    found->second->longDescription = withoutCarriageReturns(base::fromUtf8(text));
}

void readDescriptions(const fs::path& folder, Group& contents, Complaints& complaints) {
    EntriesByKey entries;
    collect(contents, entries);
    for (const auto& path : base::filesEndingWith(folder / descriptionsFolder, descriptionEnding))
        readDescription(path, entries, complaints);
}

}

SourceFolder readSourceFolder(const fs::path& folder, const std::vector<fs::path>& further,
                              Complaints& complaints) {
    auto parameters = readParameters(readText(folder, parametersSource, complaints), complaints);
    const auto groups = base::readFile(folder / groupsSource).value_or("");
    SourceFolder source;
    source.catalog.contents = readProducts(readText(folder, productsSource, complaints), groups, complaints);
    source.catalog.parameters = std::move(parameters.values);
    source.displayName = std::move(parameters.displayName);
    readDescriptions(folder, source.catalog.contents, complaints);

    std::vector<fs::path> folders{folder};
    folders.insert(folders.end(), further.begin(), further.end());
    source.content = contentOf(folders);

    for (auto& found : {checkSource(source.catalog), checkContent(source.catalog, source.content)})
        complaints.insert(complaints.end(), found.begin(), found.end());
    return source;
}

}
