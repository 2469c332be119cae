#include "order/basket_file.h"

#include "base/files.h"

#include <fstream>
#include <system_error>

namespace order {

void startBasketFile(const std::filesystem::path& userFolder) {
    const auto path = base::filePath(userFolder, basketFile);
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    std::ofstream(path, std::ios::binary | std::ios::app).flush();
}

void deleteProgramFolderBasket(const std::filesystem::path& programFolder) {
    std::error_code ignored;
    std::filesystem::remove(base::filePath(programFolder, basketFile), ignored);
}

}
