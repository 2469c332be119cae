#include "app/supplier_removal.h"

#include "base/caseless_tree.h"
#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"

#include <system_error>

namespace app {
namespace fs = std::filesystem;

void removeSupplierFiles(const fs::path& programFolder, const Supplier& supplier) {
    fs::path failed;
    for (const auto& path : {base::filePath(programFolder, supplier.folderName + ".Sup"),
                             base::filePath(programFolder, supplier.folderName + ".Jpg"),
                             base::folderPath(programFolder, supplier.folderName)}) {
        std::error_code error;
        fs::remove_all(path, error);
        if (error && failed.empty())
            failed = path;
    }
    if (!failed.empty())
        throw base::FileError("Cannot delete " + base::textOf(failed) +
                              "\nPlease check that you may write there and that no other program uses it");
}

}
