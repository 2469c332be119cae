#include "pages/browse/link_rules.h"

#include "base/code_page.h"
#include "base/text.h"
#include "pages/browse/link_address.h"

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

bool isWebAddress(std::string_view address) {
    return base::startsIgnoringCase(address, "http://") || base::startsIgnoringCase(address, "https://");
}

bool namesPage(std::string_view name) {
    return base::upper(name).find(".HTM") != std::string::npos;
}

constexpr std::size_t mostUncertainSlashes = 10;

std::vector<std::size_t> slashPlaces(std::string_view code) {
    std::vector<std::size_t> places;
    for (std::size_t at = code.find_first_of("/\\"); at != std::string_view::npos;
         at = code.find_first_of("/\\", at + 1))
        places.push_back(at);
    return places;
}

std::int32_t findAsWritten(std::string_view code, const catalog::CodeIndex& codes) {
    return codes.find(code);
}

// An index key is 20 bytes long, so a code with many slashes is none that anybody means.
std::int32_t findLeaning(std::string_view code, const catalog::CodeIndex& codes) {
    auto record = codes.find(code);
    const auto slashes = slashPlaces(code);
    if (slashes.size() > mostUncertainSlashes)
        return record;
    std::string leaning(code);
    for (unsigned way = 0; record == 0 && way < 1U << slashes.size(); ++way) {
        for (std::size_t i = 0; i < slashes.size(); ++i)
            leaning[slashes[i]] = (way >> i & 1U) != 0 ? '\\' : '/';
        record = codes.find(leaning);
    }
    return record;
}

}

LinkRules::LinkRules(const catalog::Catalog& catalog, const catalog::Folders& folders)
    : m_catalog(catalog),
      m_files(pageFilesOf(folders)),
      m_folders{asAddress(folders.UserFolder), asAddress(folders.DataFolder),
                asAddress(folders.ProgramFolder)} {}

LinkEnd LinkRules::follow(std::string_view encodedAddress) const {
    const auto address = readAddress(encodedAddress);
    const auto name = behindFolder(address.text);
    if (!namesPage(name))
        return LeadsNowhere{};
    if (!address.isFile)
        return isWebAddress(address.text) ? LinkEnd(LeadsOutside{}) : LeadsNowhere{};
    const auto mark = name.find_first_of("?|");
    if (mark == std::string_view::npos)
        return toPage(encodedAddress);
    // A "|" and what follows are part of the path, in which the browser turns "\" into "/".
    return toProduct(base::trim(name.substr(mark + 1)), name[mark] == '|');
}

std::string_view LinkRules::behindFolder(std::string_view address) const {
    for (const auto& folder : m_folders)
        if (base::startsIgnoringCase(address, folder))
            return address.substr(folder.size());
    return address;
}

// A "?" in the code stands for "|"; where no product has that code, for itself.
LinkEnd LinkRules::toProduct(std::string_view code, bool slashesUncertain) const {
    const auto find = slashesUncertain ? findLeaning : findAsWritten;
    auto record = find(base::replaceAll(code, "?", "|"), m_catalog.codes);
    if (record == 0)
        record = find(code, m_catalog.codes);
    if (record < 1 || record > m_catalog.products.count()) // an index may name records that are not there
        return LeadsToMissingProduct{};
    return LeadsToProduct{record};
}

// The place is cut off before escapes are decoded, since the names of folders and files may hold a "#".
LinkEnd LinkRules::toPage(std::string_view encodedAddress) const {
    const auto hash = std::min(encodedAddress.find('#'), encodedAddress.size());
    const auto page = readAddress(encodedAddress.substr(0, hash));
    if (auto file = m_files.find(asPath(page.text), Resource::link))
        return LeadsToPage{std::move(*file), std::string(encodedAddress.substr(hash))};
    return LeadsNowhere{};
}

}
