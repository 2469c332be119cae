#include "catalog/catalog.h"

#include "base/errors.h"
#include "base/files.h"

#include <algorithm>
#include <utility>

namespace catalog {

std::array<const base::MappedFile*, 4> Catalog::openFiles() const {
    return {&products.file(), &groups.file(), &codes.file(), &memos.file()};
}

bool Catalog::isWhole() const {
    const auto files = openFiles();
    return std::all_of(files.begin(), files.end(), [](const auto* file) { return file->isWhole(); });
}

void Catalog::requireWhole() const {
    for (const auto* file : openFiles())
        if (!file->isWhole())
            throw base::DamagedFile(file->path());
}

Catalog openCatalog(const std::filesystem::path& dataFolder,
                    const std::function<void()>& betweenProductsAndGroups) {
    const auto file = [&](std::string_view name) { return base::filePath(dataFolder, name); };
    Parameters parameters(file(parametersFile));
    ProductTable products(file(productsFile));
    betweenProductsAndGroups();
    return {std::move(parameters), std::move(products), GroupTable(file(groupsFile)),
            CodeIndex(file(indexFile)), MemoFile(file(memosFile))};
}

}
