#include "publish/file_names.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>

namespace publish {

std::string utf8Of(const std::filesystem::path& path) {
    const auto text = path.generic_u8string();
    return {text.begin(), text.end()};
}

std::filesystem::path pathOfUtf8(std::string_view text) {
    return {std::u8string(text.begin(), text.end())};
}

std::string foldedName(std::string_view utf8) {
    auto name = base::upper(base::fromUtf8(utf8));
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

FileNames::FileNames(const std::vector<ContentFile>& files) {
    for (const auto& file : files)
        m_names.insert(foldedName(file.name));
}

}
