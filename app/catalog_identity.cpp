#include "app/catalog_identity.h"

#include "base/bytes.h"
#include "base/files.h"
#include "base/text.h"
#include "catalog/records.h"

namespace app {

std::optional<CatalogIdentity> readIdentity(const std::filesystem::path& parametersFile) {
    constexpr auto length = catalog::ParameterHeader::length;
    auto bytes = base::readFile(parametersFile);
    if (!bytes)
        return std::nullopt;
    bytes->resize(2 * length, ' ');
    const auto records = std::as_bytes(std::span(*bytes));
    const catalog::ParameterHeader header(records.first(length));
    return CatalogIdentity{std::string(header.version()),
                           std::string(base::trim(base::readText(records, length, length)))};
}

}
