#include "publish/zips/zip_catalog_check.h"

#include "app/marker_files.h"
#include "app/zip_files.h"
#include "base/code_page.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "catalog/program_folders.h"
#include "publish/zips/zip_entry_check.h"

#include <algorithm>
#include <array>

namespace publish {
namespace {

constexpr std::string_view zipEnding = ".zip";
constexpr std::string_view markerEnding = ".sup";
constexpr std::uint64_t smallestParameters =
    catalog::Parameters::recordCount * catalog::ParameterHeader::length;

constexpr std::array dataFiles{catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                               catalog::indexFile, catalog::memosFile};

class CatalogCheck {
public:
    explicit CatalogCheck(const ZipOverview& zip) : m_zip(zip), m_name(nameOfZip(zip.fileName)) {}

    Complaints run() {
        if (!base::endsIgnoringCase(m_zip.fileName, zipEnding))
            complain("zip-name", "the viewer only takes files whose names end in \".zip\". Please rename it");
        const auto supplier = app::supplierOf(m_name, m_zip.topLevelFiles);
        if (!catalog::canNameSupplier(supplier.value_or(m_name)))
            complain("zip-name",
                     "no supplier can have this name, so the viewer refuses the zip. Please give the "
                     "zip and its marker another one");
        if (supplier)
            checkMarker(*supplier);
        else
            complainOfMarker();
        for (const auto name : dataFiles)
            checkDataFile(name);
        return std::move(m_complaints);
    }

private:
    void complain(const char* rule, std::string text) {
        auto& complaint = m_complaints.emplace_back();
        complaint.place.file = shown(m_zip.fileName);
        complaint.text = std::move(text);
        complaint.rule = rule;
    }

    void complainOfMarker() {
        const auto isMarker = [](const std::string& file) {
            return base::endsIgnoringCase(file, markerEnding);
        };
        const auto other = std::find_if(m_zip.topLevelFiles.begin(), m_zip.topLevelFiles.end(), isMarker);
        const auto text = "there is no marker file " + shown(app::markerOf(m_name)) +
                          " at its top; the viewer would delete this zip without a word. ";
        if (other == m_zip.topLevelFiles.end())
            return complain("zip-no-marker", text + "Please put it there");
        const auto name = other->substr(0, other->size() - markerEnding.size());
        complain("zip-no-marker", text + "It holds " + shown(*other) + ": please name the zip " +
                                      shown(name) + std::string(zipEnding));
    }

    void checkMarker(const std::string& supplier) {
        if (!app::parseMarker(supplier, m_zip.markerLine))
            complain("zip-marker-fields",
                     "the first line of " + shown(app::markerOf(supplier)) +
                         " names no supplier. Please write the name of the zip, \"|\" and "
                         "the supplier's name into it");
    }

    void checkDataFile(std::string_view name) {
        if (!base::holdsName(m_zip.topLevelFiles, name))
            complain("zip-data-file-missing",
                     std::string(name) + " is not at its top; the viewer refuses the zip as damaged. Please "
                                         "make it again with all five data files");
        else if (name == catalog::parametersFile && m_zip.parametersSize < smallestParameters)
            complain("zip-parameters-short", std::string(name) + " has fewer than " +
                                                 std::to_string(smallestParameters) +
                                                 " bytes; the viewer refuses the zip as damaged. Please make "
                                                 "it again");
    }

    static std::string shown(const std::string& name) { return shownName(base::toUtf8(name)); }

    const ZipOverview& m_zip;
    std::string m_name;
    Complaints m_complaints;
};

}

std::string nameOfZip(const std::string& fileName) {
    return base::endsIgnoringCase(fileName, zipEnding)
               ? fileName.substr(0, fileName.size() - zipEnding.size())
               : fileName;
}

Complaints checkCatalogZip(const ZipOverview& zip) {
    return CatalogCheck(zip).run();
}

}
