#include "catalog/catalog.h"

#include "base/files.h"

namespace catalog {

Catalog openCatalog(const std::filesystem::path& dataFolder) {
    const auto file = [&](std::string_view name) { return base::filePath(dataFolder, name); };
    return {Parameters(file(parametersFile)), ProductTable(file(productsFile)), GroupTable(file(groupsFile)),
            CodeIndex(file(indexFile)), MemoFile(file(memosFile))};
}

}
