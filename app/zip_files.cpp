#include "app/zip_files.h"

#include "base/text.h"
#include "catalog/program_folders.h"
#include "catalog/settings_file.h"
#include "order/basket_file.h"
#include "pages/scratch_page.h"

#include <array>

namespace app {
namespace {

constexpr std::array theUsersFiles{catalog::userSettingsFile, order::basketFile, pages::scratchPageFile,
                                   catalog::probeFile};

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// "ACME" of "ACME (1)".
std::string withoutCopyNumber(const std::string& name) {
    const auto bracket = name.rfind('(');
    if (bracket == std::string::npos || !name.ends_with(')') ||
        !isNumber(std::string_view(name).substr(bracket + 1, name.size() - bracket - 2)))
        return name;
    const bool hasBlank = bracket > 0 && name[bracket - 1] == ' ';
    return name.substr(0, hasBlank ? bracket - 1 : bracket);
}

}

std::string markerOf(std::string_view folderName) {
    return std::string(folderName) + ".sup";
}

std::span<const std::string_view> usersFiles() {
    return theUsersFiles;
}

std::optional<std::string> supplierOf(const std::string& zipName,
                                      const std::vector<std::string>& topLevelFiles) {
    for (const auto& N : {zipName, withoutCopyNumber(zipName)})
        if (!N.empty() && base::holdsName(topLevelFiles, markerOf(N)))
            return N;
    return std::nullopt;
}

}
