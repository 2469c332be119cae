#include "app/supplier_removal.h"

#include "base/caseless_tree.h"
#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "catalog/program_folders.h"

#include <system_error>

namespace app {
namespace fs = std::filesystem;

namespace {

fs::path areaOf(const fs::path& programFolder, const std::string& folderName) {
    return programFolder / catalog::installFolder / base::pathOf(folderName);
}

void mark(const fs::path& area) {
    std::error_code ignored;
    fs::create_directories(area, ignored);
    try {
        base::replaceFile(area / removalMark, {});
    } catch (const base::FileError&) { // then nobody goes on with it, should it not come to its end
    }
}

void unmark(const fs::path& area) {
    std::error_code ignored;
    fs::remove_all(area, ignored);
    fs::remove(area.parent_path(), ignored); // unless others are in it
}

[[noreturn]] void failDeleting(const fs::path& path) {
    throw base::FileError("Cannot delete " + base::textOf(path) +
                          "\nPlease check that you may write there and that no other program uses it");
}

/// The first that cannot be deleted; empty when all are gone.
fs::path removeBehindMarker(const fs::path& programFolder, const std::string& folderName) {
    fs::path failed;
    for (const auto& path :
         {base::filePath(programFolder, folderName + ".Jpg"), base::folderPath(programFolder, folderName)}) {
        std::error_code error;
        fs::remove_all(path, error);
        if (error && failed.empty())
            failed = path;
    }
    return failed;
}

}

// The marker goes first: without it the supplier is listed no more, so none is listed without its data.
void removeSupplierFiles(const fs::path& programFolder, const Supplier& supplier) {
    const auto area = areaOf(programFolder, supplier.folderName);
    mark(area);
    const auto marker = base::filePath(programFolder, supplier.folderName + ".Sup");
    std::error_code error;
    fs::remove(marker, error);
    if (error) {
        unmark(area);
        failDeleting(marker);
    }
    const auto failed = removeBehindMarker(programFolder, supplier.folderName);
    if (!failed.empty())
        failDeleting(failed);
    unmark(area);
}

std::vector<std::string> finishRemovals(const fs::path& programFolder) {
    std::vector<fs::path> areas;
    std::error_code error;
    for (fs::directory_iterator it(programFolder / catalog::installFolder, error), end; !error && it != end;
         it.increment(error))
        if (fs::exists(it->path() / removalMark))
            areas.push_back(it->path());
    std::vector<std::string> failures;
    for (const auto& area : areas) {
        const auto N = base::textOf(area.filename());
        try {
            removeSupplierFiles(programFolder, {N, N, N});
        } catch (const base::FileError& failure) {
            failures.emplace_back(failure.what());
        }
    }
    return failures;
}

}
