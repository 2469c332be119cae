#include "ui/link_rules.h"

#include "base/code_page.h"
#include "pages/links.h"
#include "ui/link_address.h"

#include <algorithm>

namespace ui {
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
    const auto link = pages::judgeLink(address.text, address.isFile, m_folders);
    switch (link.target) {
    case pages::LinkTarget::product:
        return toProduct(pages::findLinked(link, m_catalog.codes));
    case pages::LinkTarget::page:
        return toPage(address.text);
    case pages::LinkTarget::outside:
        return LeadsOutside{};
    case pages::LinkTarget::nothing:
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

LinkEnd LinkRules::toPage(std::string_view address) const {
    const auto name = address.substr(0, address.find('#'));
    if (auto file = m_files.find(asPath(std::string(name)), Resource::page))
        return LeadsToPage{std::move(*file)};
    return LeadsNowhere{};
}

PageFiles pageFilesOf(const catalog::Folders& folders) {
    return PageFiles({folders.DataFolder, folders.UserFolder, folders.ProgramFolder});
}

}
