#include "publish/source/source_folder.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "publish/catalog_writer.h"
#include "publish/entry_check.h"
#include "publish/lists/product_list.h"
#include "publish/source/content.h"
#include "publish/source/described_rows.h"
#include "publish/source/group_rows.h"
#include "publish/source/parameters_source.h"

#include <algorithm>
#include <array>

namespace publish {
namespace fs = std::filesystem;

namespace {

using Weight = Complaint::Weight;

constexpr std::array<std::string_view, 4> listEndings{".xlsx", ".ods", ".csv", ".txt"};

ListMapping mappingOf(const fs::path& folder, Complaints& complaints) {
    if (const auto text = base::readFile(folder / mappingFileName))
        return readMapping(*text, complaints);
    return fs::exists(folder / productsSource) ? ownColumns() : ListMapping{};
}

// The only file that can be a list; nothing where there are several or none.
std::string onlyList(const fs::path& folder) {
    std::vector<std::string> found;
    for (const auto ending : listEndings)
        for (const auto& path : base::filesEndingWith(folder, ending))
            if (!base::equalIgnoringCase(utf8Of(path.filename()), groupsSource))
                found.push_back(utf8Of(path.filename()));
    return found.size() == 1 ? found.front() : std::string();
}

std::string listNameOf(const fs::path& folder, const ListMapping& mapping) {
    if (!mapping.file.text.empty())
        return mapping.file.text;
    return fs::exists(folder / productsSource) ? productsSource : onlyList(folder);
}

std::shared_ptr<const ProductRows> openList(const fs::path& folder, SourceFolder& source,
                                            const std::string& name, const ListMapping& mapping,
                                            Complaints& complaints) {
    if (name.empty() || !fs::exists(folder / pathOfUtf8(name))) {
        complaints.push_back(
            {Weight::error,
             {.file = name.empty() ? productsSource : name},
             "the product list is missing; put it into the folder, and its name behind \"File\" in "
             "list.ini",
             "file-missing"});
        return nullptr;
    }
    try {
        auto list = std::make_shared<ProductList>(folder / pathOfUtf8(name), name, mapping, complaints);
        source.listSummary = list->summary();
        return list;
    } catch (const base::FileError& error) {
        complaints.push_back(unusableFile(name, error));
        return nullptr;
    }
}

std::string readParametersText(const fs::path& folder, Complaints& complaints) {
    auto text = base::readFile(folder / parametersSource);
    if (!text)
        complaints.push_back({Weight::error,
                              {.file = parametersSource},
                              "the file is missing; tavorine-publish new FOLDER shows what stands in it",
                              "file-missing"});
    return text.value_or("");
}

/// No products, so that the rest can be checked.
class NoRows final : public ProductRows {
public:
    [[nodiscard]] std::size_t count() const override { return 0; }

    void readGroup(std::size_t, std::vector<std::string>&) const override {}

    void read(std::size_t, Product&, Complaints&) const override {}

    [[nodiscard]] Place placeOf(std::size_t, std::string_view) const override { return {}; }
};

void describe(Group& group, const DescriptionFiles& files, Complaints& complaints) {
    files.describe(group.header, complaints);
    for (auto& child : group.groups)
        describe(child, files, complaints);
}

void readTables(const fs::path& folder, const std::string& listName, const ListMapping& mapping,
                SourceFolder& source, Complaints& complaints) {
    source.descriptions = std::make_shared<DescriptionFiles>(folder / descriptionsFolder);
    std::shared_ptr<const ProductRows> rows = openList(folder, source, listName, mapping, complaints);
    if (!rows)
        rows = std::make_shared<NoRows>();
    source.catalog.products = std::make_shared<DescribedRows>(std::move(rows), source.descriptions);
    source.catalog.contents =
        groupTree(*source.catalog.products, readGroupRows(folder / groupsSource, complaints), complaints);
    describe(source.catalog.contents, *source.descriptions, complaints);
}

}

bool isSourceFolder(const fs::path& folder) {
    return fs::exists(folder / parametersSource) || fs::exists(folder / mappingFileName) ||
           fs::exists(folder / productsSource);
}

SourceFolder readSourceFolder(const fs::path& folder, const std::vector<fs::path>& further,
                              Complaints& complaints) {
    SourceFolder source;
    auto parameters = readParameters(readParametersText(folder, complaints), complaints);
    source.catalog.parameters = std::move(parameters.values);
    source.displayName = std::move(parameters.displayName);
    source.supplierId = std::move(parameters.supplierId);
    source.countsVersion = parameters.countsVersion;

    const auto mapping = mappingOf(folder, complaints);
    const auto listName = listNameOf(folder, mapping);
    readTables(folder, listName, mapping, source, complaints);

    std::vector<fs::path> folders{folder};
    folders.insert(folders.end(), further.begin(), further.end());
    source.content = contentOf(folders, listName, complaints);
    return source;
}

void writeDataFiles(const SourceFolder& source, const fs::path& dataFolder, Complaints& complaints) {
    checkParameters(source.catalog.parameters, complaints);
    checkGroups(source.catalog.contents, complaints);
    const FileNames files(source.content);
    writeDataFiles(source.catalog, files, dataFolder, complaints);
    const auto catalog = catalog::openCatalog(dataFolder);
    const auto hasCode = [&](std::string_view code) { return catalog.codes.find(code) > 0; };
    source.descriptions->complainOfOthers(hasCode, complaints);
    checkContent(source.catalog.parameters, source.content, files, hasCode, complaints);
}

}
