#include "app/zip_files.h"

#include "base/text.h"

#include <regex>

namespace app {
namespace {

// "ACME" of "ACME (1)".
std::string withoutCopyNumber(const std::string& name) {
    static const std::regex copy(R"((.+?) ?\(\d+\))");
    std::smatch match;
    return std::regex_match(name, match, copy) ? match.str(1) : name;
}

}

std::string markerOf(std::string_view folderName) {
    return std::string(folderName) + ".sup";
}

std::optional<std::string> supplierOf(const std::string& zipName,
                                      const std::vector<std::string>& topLevelFiles) {
    for (const auto& N : {zipName, withoutCopyNumber(zipName)})
        if (!N.empty() && base::holdsName(topLevelFiles, markerOf(N)))
            return N;
    return std::nullopt;
}

}
