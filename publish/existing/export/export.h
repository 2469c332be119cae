#pragma once

#include "publish/complaint.h"
#include "publish/existing/export/plain_build.h"

#include <filesystem>
#include <functional>
#include <string>

namespace publish {

/// Who a catalogue's supplier is, as the marker file says it. Texts are Windows-1252.
struct SupplierMarker {
    std::string id;          ///< name of the zip and of the installed folder
    std::string displayName; ///< on the customer's list of suppliers
};

/// The supplier of a catalogue's folder, by the marker file that stands in it (an unpacked zip) or beside it
/// (an installed catalogue). Without one, both are the folder's name.
[[nodiscard]] SupplierMarker supplierOf(const std::filesystem::path& catalogFolder);

/// All that a build of a source folder does and complains of. What it writes is of no use here.
using SourceBuild = std::function<void(const std::filesystem::path& sourceFolder,
                                       const std::filesystem::path& dataFolder, Complaints& complaints)>;

/// Turns a catalogue, installed or unpacked, back into a source folder (docs/publishing.md): catalog.ini,
/// products.csv, groups.csv with all long descriptions in their tables, and every other file as it is.
/// Whoever made the catalogue, building the folder gives the same five data files to the byte: what the
/// tables cannot say lies in its sub-folder "exact" (exact_bytes.h, known_complaints.h). Files that the
/// viewer made for a customer are left out.
///
/// Answers with what the supplier should know, as warnings: files that a source folder cannot hold, and what
/// customers would see change once the tables are edited and the exact bytes no longer fit.
///
/// The errors of `build`, which is done last, become known ones. By default it does no more than write data
/// files, which leaves out the checks of templates.
///
/// `outFolder` must be new or empty. It is made beside and renamed when complete. Throws base::FileError
/// where a data file is missing or too short, something cannot be read or written, or the folder is not
/// empty; then nothing is left of it.
[[nodiscard]] Complaints exportCatalog(const std::filesystem::path& catalogFolder,
                                       const SupplierMarker& supplier, const std::filesystem::path& outFolder,
                                       const SourceBuild& build = buildPlainly);

}
