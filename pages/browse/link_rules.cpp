#include "pages/browse/link_rules.h"

#include "base/code_page.h"
#include "pages/browse/link_address.h"
#include "pages/browse/links.h"

#include <algorithm>

namespace pages {
namespace {

std::string asAddress(const std::filesystem::path& folder) {
    auto text = base::textOf(folder);
    std::replace(text.begin(), text.end(), '/', '\\');
    return text + "\\";
}

std::filesystem::path asPath(std::string address) {
#ifndef _WIN32
    std::replace(address.begin(), address.end(), '\\', '/');
#endif
    return base::pathOf(address);
}

}

LinkRules::LinkRules(const catalog::Catalog& catalog, const catalog::Folders& folders)
    : m_catalog(catalog),
      m_files(pageFilesOf(folders)),
      m_folders{asAddress(folders.UserFolder), asAddress(folders.DataFolder),
                asAddress(folders.ProgramFolder)} {}

LinkEnd LinkRules::follow(std::string_view encodedAddress) const {
    const auto address = readAddress(encodedAddress);
    const auto link = judgeLink(address.text, address.isFile, m_folders);
    switch (link.target) {
    case LinkTarget::product:
        return toProduct(findLinked(link, m_catalog.codes));
    case LinkTarget::page:
        return toPage(encodedAddress);
    case LinkTarget::outside:
        return LeadsOutside{};
    case LinkTarget::nothing:
        break;
    }
    return LeadsNowhere{};
}

// An index may name records that are not there.
LinkEnd LinkRules::toProduct(std::int32_t record) const {
    if (record < 1 || record > m_catalog.products.count())
        return LeadsToMissingProduct{};
    return LeadsToProduct{record};
}

// The place is cut off before escapes are decoded, since the names of folders and files may hold a "#".
LinkEnd LinkRules::toPage(std::string_view encodedAddress) const {
    const auto hash = std::min(encodedAddress.find('#'), encodedAddress.size());
    const auto page = readAddress(encodedAddress.substr(0, hash));
    if (auto file = m_files.find(asPath(page.text), Resource::page))
        return LeadsToPage{std::move(*file), std::string(encodedAddress.substr(hash))};
    return LeadsNowhere{};
}

PageFiles pageFilesOf(const catalog::Folders& folders) {
    return PageFiles({folders.DataFolder, folders.UserFolder, folders.ProgramFolder});
}

}
