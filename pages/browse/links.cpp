#include "pages/browse/links.h"

#include "base/text.h"

#include <vector>

namespace pages {
namespace {

bool startsWithIgnoringCase(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && base::equalIgnoringCase(text.substr(0, start.size()), start);
}

bool isWebAddress(std::string_view address) {
    return startsWithIgnoringCase(address, "http://") || startsWithIgnoringCase(address, "https://");
}

std::string_view behindFolder(std::string_view address, std::span<const std::string> folders) {
    for (const auto& folder : folders)
        if (startsWithIgnoringCase(address, folder))
            return address.substr(folder.size());
    return address;
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

Link judgeLink(std::string_view address, bool isFile, std::span<const std::string> folders) {
    const auto name = behindFolder(address, folders);
    const bool namesPage = base::upper(name).find(".HTM") != std::string::npos;
    if (!namesPage)
        return {};
    if (!isFile)
        return {isWebAddress(address) ? LinkTarget::outside : LinkTarget::nothing, {}, false};
    const auto mark = name.find_first_of("?|");
    if (mark == std::string_view::npos)
        return {LinkTarget::page, {}, false};
    return {LinkTarget::product, base::upper(base::trim(name.substr(mark + 1))), name[mark] == '|'};
}

std::int32_t findLinked(const Link& link, const catalog::CodeIndex& codes) {
    const auto find = link.slashesUncertain ? findLeaning : findAsWritten;
    const auto record = find(base::replaceAll(link.code, "?", "|"), codes);
    return record != 0 ? record : find(link.code, codes);
}

}
