#include "publish/command/content_check.h"

#include "base/files.h"
#include "base/text.h"
#include "publish/templates/content_file_check.h"
#include "publish/templates/page_check.h"
#include "publish/templates/template_check.h"

#include <algorithm>
#include <array>

namespace publish {
namespace {

constexpr std::array<std::string_view, 4> textEndings{".ect", ".css", ".htm", ".html"};

bool isText(std::string_view name) {
    return std::any_of(textEndings.begin(), textEndings.end(),
                       [&](std::string_view ending) { return base::endsIgnoringCase(name, ending); });
}

}

void checkContentAndPages(const std::filesystem::path& folder, const std::vector<ContentFile>& content,
                          Complaints& complaints) {
    std::vector<std::string> names;
    for (const auto& file : content)
        names.push_back(file.name);
    const CatalogFiles files(names);
    for (const auto& [name, path] : content)
        if (isText(name)) {
            const auto text = base::readFile(path).value_or("");
            checkTemplate(name, text, files, complaints);
            checkContentFile(name, text, files, complaints);
        }
    checkPages(folder, files, complaints);
}

}
