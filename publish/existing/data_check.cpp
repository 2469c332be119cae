#include "publish/existing/data_check.h"

#include "base/errors.h"
#include "base/files.h"
#include "catalog/parameters.h"
#include "publish/existing/catalog_files.h"
#include "publish/existing/data_tables.h"

#include <limits>
#include <optional>

namespace publish {
namespace fs = std::filesystem;

namespace {

constexpr std::size_t parametersSize = catalog::Parameters::recordCount * catalog::ParameterHeader::length;
constexpr std::int32_t mostProducts = 999'999;

void add(Complaints& complaints, Complaint::Weight weight, std::string_view file, std::string text,
         std::string rule) {
    complaints.push_back({weight, {.file = std::string(file)}, std::move(text), std::move(rule)});
}

constexpr auto error = Complaint::Weight::error;
constexpr auto warning = Complaint::Weight::warning;

// Whether all are there.
bool checkPresence(const fs::path& folder, Complaints& complaints) {
    bool allThere = true;
    for (const auto name : dataFileNames)
        if (!base::findFile(folder, name)) {
            add(complaints, error, name, "the file is missing; the viewer does not open the catalogue",
                "file-missing");
            allThere = false;
        }
    return allThere;
}

void checkParametersSize(const fs::path& folder, Complaints& complaints) {
    std::error_code failure;
    const auto size = fs::file_size(base::filePath(folder, catalog::parametersFile), failure);
    if (failure || size < parametersSize)
        add(complaints, error, catalog::parametersFile,
            "the file has less than 760 bytes; the viewer does not open the catalogue", "parameters-short");
    else if (size > parametersSize)
        add(complaints, warning, catalog::parametersFile,
            "the file has more than 760 bytes; the viewer passes over the rest", "parameters-long");
}

void checkLength(std::string_view name, const base::MappedFile& file, std::size_t recordLength,
                 Complaints& complaints) {
    if (const auto rest = file.bytes().size() % recordLength; rest != 0)
        add(complaints, warning, name,
            "the last " + std::to_string(rest) + " bytes are no whole record of " +
                std::to_string(recordLength) + "; the viewer passes over them",
            "record-partial");
}

void checkCounts(const DataTables& tables, Complaints& complaints) {
    if (tables.products.count() > mostProducts)
        add(complaints, error, catalog::productsFile,
            "there are more than 999,999 records; an order cannot name the rest", "records-many");
    if (tables.groups.count() > std::numeric_limits<std::int16_t>::max())
        add(complaints, error, catalog::groupsFile,
            "there are more than 32,767 groups; no record can name the rest", "groups-many");
    if (tables.products.count() == 0)
        add(complaints, error, catalog::productsFile, "there is no record; the viewer shows an empty list",
            "products-none");
}

std::optional<DataTables> opened(const fs::path& folder, Complaints& complaints) {
    const auto path = [&](std::string_view name) { return base::filePath(folder, name); };
    try {
        return DataTables{catalog::ProductTable(path(catalog::productsFile)),
                          catalog::GroupTable(path(catalog::groupsFile)),
                          catalog::Table<catalog::IndexRecord>(path(catalog::indexFile)),
                          catalog::CodeIndex(path(catalog::indexFile)),
                          catalog::MemoFile(path(catalog::memosFile))};
    } catch (const base::MissingFile&) {
        add(complaints, error, "", "a data file cannot be read; check that you may read them all",
            "file-unreadable");
        return std::nullopt;
    }
}

}

void checkDataFiles(const fs::path& folder, Complaints& complaints) {
    if (!checkPresence(folder, complaints))
        return;
    checkParametersSize(folder, complaints);
    const auto tables = opened(folder, complaints);
    if (!tables)
        return;
    checkLength(catalog::productsFile, tables->products.file(), catalog::ProductRecord::length, complaints);
    checkLength(catalog::groupsFile, tables->groups.file(), catalog::GroupRecord::length, complaints);
    checkLength(catalog::indexFile, tables->index.file(), catalog::IndexRecord::length, complaints);
    checkCounts(*tables, complaints);
    Findings findings(complaints);
    checkProducts(*tables, findings);
    checkGroups(*tables, findings);
    checkIndex(*tables, findings);
}

}
