#include "publish/templates/content_file_check.h"

#include "base/code_page.h"
#include "base/text.h"
#include "publish/templates/address_check.h"
#include "publish/templates/html_references.h"
#include "publish/templates/style_references.h"
#include "publish/templates/template_report.h"

#include <optional>

namespace publish {
namespace {

using pages::Resource;

// Addresses count from the folder of the file in which they stand.
std::string fromCatalog(std::string_view folder, const std::string& address) {
    const bool isRelative = !address.empty() && address.find(':') == std::string::npos &&
                            std::string_view("#/\\").find(address[0]) == std::string_view::npos;
    return isRelative ? std::string(folder) + address : address;
}

void tell(const std::optional<BadAddress>& bad, std::size_t at, TemplateReport& report) {
    if (bad)
        report.add(bad->weight, bad->rule, at, bad->text);
}

void checkStyle(std::string_view folder, std::string_view text, const CatalogFiles& files,
                TemplateReport& report) {
    for (const auto& [address, at] : styleReferences(text)) {
        const auto bad = judge(fromCatalog(folder, address), Resource::picture, files);
        if (!bad || bad->rule != "file-kind") // it may be a picture, a font or another style sheet
            tell(bad, at, report);
    }
}

void checkPage(std::string_view folder, std::string_view text, const CatalogFiles& files,
               TemplateReport& report) {
    for (const auto& reference : htmlReferences(text)) {
        const auto bad = judge(fromCatalog(folder, reference.address), reference.resource, files);
        if (!bad || bad->rule != "file-missing" || !reference.hasStandIn)
            tell(bad, reference.at, report);
    }
}

}

void checkContentFile(std::string_view name, std::string_view text, const CatalogFiles& files,
                      Complaints& complaints) {
    const auto folder = base::fromUtf8(name.substr(0, name.rfind('/') + 1));
    TemplateReport report(std::string(name), text, complaints);
    if (base::endsIgnoringCase(name, ".css"))
        checkStyle(folder, text, files, report);
    else if (base::endsIgnoringCase(name, ".htm") || base::endsIgnoringCase(name, ".html"))
        checkPage(folder, text, files, report);
}

}
