#include "publish/templates/catalog_files.h"

#include "base/code_page.h"
#include "base/text.h"
#include "publish/file_names.h"

#include <algorithm>
#include <optional>
#include <system_error>

namespace publish {
namespace fs = std::filesystem;

namespace {

// The parts joined by "/", in upper case, "." and ".." followed; nothing where they lead out of the folder.
std::optional<std::string> plainName(std::string_view name) {
    auto text = base::upper(base::trim(name));
    std::replace(text.begin(), text.end(), '\\', '/');
    std::vector<std::string_view> parts;
    for (const auto part : base::split(text, '/')) {
        if (part == ".." && parts.empty())
            return std::nullopt;
        if (part == "..")
            parts.pop_back();
        else if (!part.empty() && part != ".")
            parts.push_back(part);
    }
    std::string plain;
    for (const auto part : parts)
        plain.append(plain.empty() ? "" : "/").append(part);
    return plain;
}

}

CatalogFiles::CatalogFiles(const std::vector<std::string>& names) {
    for (const auto& name : names)
        m_names.insert(plainName(base::fromUtf8(name)).value_or(""));
}

CatalogFiles CatalogFiles::in(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    constexpr auto options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator it(folder, options, error), end; !error && it != end;
         it.increment(error))
        if (std::error_code ignored; it->is_regular_file(ignored))
            names.push_back(utf8Of(it->path().lexically_relative(folder)));
    return CatalogFiles(names);
}

bool CatalogFiles::holds(std::string_view name) const {
    const auto plain = plainName(name);
    return plain && !plain->empty() && m_names.contains(*plain);
}

bool leadsOut(std::string_view name) {
    return !plainName(name);
}

}
