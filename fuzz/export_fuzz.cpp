#include "base/files.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "publish/existing/catalog_files.h"
#include "publish/existing/compare/diff.h"
#include "publish/existing/data_check.h"
#include "publish/existing/export/exact_bytes.h"
#include "publish/existing/export/export.h"
#include "publish/existing/export/known_complaints.h"
#include "publish/existing/export/plain_build.h"

#include <algorithm>
#include <string>

namespace {

namespace fs = std::filesystem;

// A shorter parameters file is refused before anything is read of it, so there is nothing to find.
std::string whole(std::string_view parameters) {
    std::string bytes(parameters);
    bytes.resize(std::max<std::size_t>(bytes.size(), 760), ' ');
    return bytes;
}

void writeCatalog(const fs::path& folder, const std::array<std::string_view, 6>& texts) {
    fs::create_directories(folder);
    for (std::size_t i = 0; i < publish::dataFileNames.size(); ++i)
        base::overwriteFile(folder / publish::dataFileNames[i], i == 0 ? whole(texts[i]) : texts[i]);
}

// As a build does it.
publish::Complaints build(const fs::path& source, const fs::path& data) {
    publish::Complaints complaints;
    publish::buildPlainly(source, data, complaints);
    publish::applyExactBytes(source, data, complaints);
    publish::demoteKnown(source, complaints);
    return complaints;
}

void checkMessages(const publish::Complaints& complaints) {
    for (const auto& complaint : complaints)
        fuzz::require(!complaint.text.empty() && !textOf(complaint).empty(), "a complaint says nothing");
}

}

// Five data files, and bytes for a patch: exported and built, the same files come back; a patch of any bytes
// is refused or leaves a catalogue that opens.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::ScratchFolder scratch;
    const auto catalog = scratch.path() / "catalog";
    const auto source = scratch.path() / "source";
    const auto built = scratch.path() / "built";
    const auto texts = fuzz::sections<6>(data, size);
    writeCatalog(catalog, texts);
    fs::remove_all(source);

    publish::Complaints found;
    publish::checkDataFiles(catalog, found);
    checkMessages(found);
    checkMessages(publish::exportCatalog(catalog, {"ACME", "Acme"}, source));
    const auto complaints = build(source, built);
    checkMessages(complaints);
    fuzz::require(!publish::holdsError(complaints), "an exported catalogue cannot be built");
    for (const auto name : publish::dataFileNames)
        fuzz::require(base::readFile(catalog / name) == base::readFile(built / name),
                      "other bytes came back");
    fuzz::require(publish::compareCatalogs(catalog, built).isEmpty(), "a catalogue differs from itself");

    fs::create_directories(source / publish::exactFolder);
    base::overwriteFile(source / publish::exactFolder / "PrdMem.Dat.patch", texts.back());
    static_cast<void>(build(source, built));
    static_cast<void>(publish::openedCatalog(built));
    return 0;
}
