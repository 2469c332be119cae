#include "pages/links.h"

#include "base/text.h"

#include <algorithm>

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

std::string swapSlashes(std::string code) {
    for (char& c : code)
        c = c == '/' ? '\\' : c == '\\' ? '/' : c;
    return code;
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
    const auto record = codes.find(link.code);
    if (record != 0 || !link.slashesUncertain)
        return record;
    const auto forward = base::replaceAll(link.code, "\\", "/");
    const auto found = codes.find(forward);
    return found != 0 ? found : codes.find(swapSlashes(link.code));
}

}
