#include "publish/lists/group_paths.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace publish {
namespace {

// How many texts have names on both sides of the separator, and how many different first names these have.
struct Parted {
    std::size_t texts = 0;
    std::size_t tops = 0;
};

Parted partedBy(const std::unordered_set<std::string>& texts, std::string_view separator) {
    std::unordered_set<std::string_view> tops;
    std::size_t count = 0;
    for (const std::string_view text : texts) {
        const auto at = text.find(separator);
        if (at == std::string_view::npos || at == 0 || at + separator.size() >= text.size())
            continue;
        ++count;
        tops.insert(base::trim(text.substr(0, at)));
    }
    return {count, tops.size()};
}

}

std::string groupSeparatorOf(const std::unordered_set<std::string>& texts) {
    constexpr std::array unusual{" > ", ">", "\\", " | ", "|", " :: "};
    for (const std::string_view separator : unusual)
        if (partedBy(texts, separator).texts > 0)
            return std::string(base::trim(separator));
    const auto plain = partedBy(texts, "/");
    if (partedBy(texts, " / ").texts == 0)
        return plain.tops < plain.texts ? "/" : "";
    const bool holdNames = std::any_of(texts.begin(), texts.end(), [](const std::string& text) {
        return base::replaceAll(text, " / ", "").find('/') != std::string::npos;
    });
    return holdNames ? " / " : "/"; // "M6/M8" is a name there
}

void appendPath(std::string_view utf8, std::string_view separator, std::vector<std::string>& path) {
    while (!utf8.empty()) {
        const auto end = separator.empty() ? std::string_view::npos : utf8.find(separator);
        if (const auto name = base::trim(utf8.substr(0, end)); !name.empty())
            path.push_back(base::fromUtf8(name));
        utf8.remove_prefix(end == std::string_view::npos ? utf8.size() : end + separator.size());
    }
}

}
