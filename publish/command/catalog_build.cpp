#include "publish/command/catalog_build.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "publish/command/content_check.h"
#include "publish/command/published_version.h"
#include "publish/existing/export/exact_bytes.h"
#include "publish/existing/export/known_complaints.h"
#include "publish/product_rows.h"
#include "publish/templates/template_kind.h"
#include "publish/zips/pictures.h"
#include "publish/zips/zip_writer.h"

#include <array>
#include <utility>

namespace publish {
namespace fs = std::filesystem;

namespace {

using Weight = Complaint::Weight;

constexpr std::array<std::string_view, 5> dataFiles{catalog::parametersFile, catalog::productsFile,
                                                    catalog::groupsFile, catalog::indexFile,
                                                    catalog::memosFile};

void complain(Complaints& complaints, Weight weight, const char* rule, std::string text) {
    complaints.push_back({weight, {.file = parametersSource}, std::move(text), rule});
}

// The version behind "auto".
void countVersion(BuiltCatalog& built, const std::optional<Published>& last, Complaints& complaints) {
    const auto version = nextVersion(last, built.fingerprint);
    built.source.catalog.parameters.version = version.value_or("");
    if (!version)
        complain(complaints, Weight::error, "version-end",
                 "the version " + last->version +
                     " in published.ini cannot be counted up; write one yourself, behind Version");
}

void judgeVersion(const std::string& version, const BuiltCatalog& built, const std::optional<Published>& last,
                  Complaints& complaints) {
    if (version.empty())
        complain(complaints, Weight::warning, "version-empty",
                 "Version is empty; customers are asked before an update replaces a catalogue. \"auto\" "
                 "counts it up");
    else if (last && last->fingerprint != built.fingerprint && version <= last->version)
        complain(
            complaints, Weight::warning, "version-not-higher",
            "the version " + version + " is not higher than the last one published, " + last->version +
                ", though the catalogue has changed; customers are asked before it replaces theirs. \"auto\" "
                "counts it up");
}

// The data files have been written without a version, so that only what else has changed changes the
// fingerprint.
void decideVersion(const fs::path& sourceFolder, const fs::path& dataFolder, const std::string& version,
                   BuiltCatalog& built, Complaints& complaints) {
    const auto last = readPublished(sourceFolder);
    built.remembersVersion = built.source.countsVersion || last;
    if (built.remembersVersion)
        built.fingerprint = fingerprintOf(dataFolder, built.source.displayName, built.source.content);
    auto& parameters = built.source.catalog.parameters;
    parameters.version = version;
    if (built.source.countsVersion)
        countVersion(built, last, complaints);
    else
        judgeVersion(version, built, last, complaints);
    const auto bytes = catalog::encode(parameters);
    base::overwriteFile(dataFolder / catalog::parametersFile,
                        {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

// Pages are rendered where the data files are.
void copyTemplates(const std::vector<ContentFile>& content, const fs::path& dataFolder) {
    for (const auto& [name, path] : content)
        if (templateUse(name))
            base::overwriteFile(dataFolder / path.filename(), base::readFile(path).value_or(""));
}

}

BuiltCatalog buildCatalog(const fs::path& sourceFolder, const std::vector<fs::path>& further,
                          const fs::path& dataFolder, Complaints& complaints) {
    Complaints found;
    BuiltCatalog built{.source = readSourceFolder(sourceFolder, further, found)};
    built.products = built.source.catalog.products->count();
    auto& version = built.source.catalog.parameters.version;
    const auto wanted = std::exchange(version, {});
    writeDataFiles(built.source, dataFolder, found);
    decideVersion(sourceFolder, dataFolder, wanted, built, found);
    applyExactBytes(sourceFolder, dataFolder, found);
    copyTemplates(built.source.content, dataFolder);
    checkContentAndPages(dataFolder, built.source.content, found);
    demoteKnown(sourceFolder, found);
    complaints.insert(complaints.end(), std::make_move_iterator(found.begin()),
                      std::make_move_iterator(found.end()));
    return built;
}

void writeCatalogZip(const BuiltCatalog& built, const fs::path& dataFolder, const std::string& supplierId,
                     const fs::path& zip, std::optional<int> longestEdge, Complaints& complaints) {
    const auto marker = supplierId + ".sup";
    ZipWriter writer(zip);
    writer.addText(marker, supplierId + "|" + built.source.displayName + "\r\n");
    for (const auto name : dataFiles)
        writer.addFile(name, dataFolder / name);
    const std::optional<PictureScaler> scaler =
        longestEdge ? std::optional<PictureScaler>(std::in_place, *longestEdge) : std::nullopt;
    for (const auto& [name, path] : built.source.content) {
        if (base::equalIgnoringCase(name, marker) || base::holdsName(dataFiles, name))
            continue;
        if (scaler && isScalablePicture(name))
            writer.addText(name, scaler->scaled(base::readFile(path).value_or(""), name, complaints));
        else
            writer.addFile(name, path);
    }
    writer.finish();
}

}
