#include "publish/templates/style_references.h"

#include "base/text.h"

#include <algorithm>

namespace publish {
namespace {

constexpr auto none = std::string_view::npos;
constexpr std::string_view space = " \t\r\n\f";

std::string_view behindSpace(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(space), text.size()));
}

// What stands in quotation marks, or up to the end of `url(`.
std::string_view valueAt(std::string_view text) {
    text = behindSpace(text);
    if (text.starts_with('"') || text.starts_with('\''))
        return text.substr(1, std::min(text.find(text[0], 1), text.size()) - 1);
    return text.substr(0, text.find_first_of(") \t\r\n\f;"));
}

/// The words behind which an address stands.
constexpr std::string_view urlWord = "url(";
constexpr std::string_view importWord = "@import";

bool isImport(std::string_view text) {
    const auto behind = behindSpace(text.substr(std::min(importWord.size(), text.size())));
    return base::startsIgnoringCase(text, importWord) &&
           (behind.starts_with('"') || behind.starts_with('\''));
}

}

std::vector<StyleReference> styleReferences(std::string_view css) {
    std::vector<StyleReference> references;
    for (auto at = css.find_first_of("uU@/"); at != none; at = css.find_first_of("uU@/", at + 1)) {
        const auto rest = css.substr(at);
        if (rest.starts_with("/*")) {
            const auto end = css.find("*/", at + 2);
            if (end == none)
                break;
            at = end + 1;
        } else if (base::startsIgnoringCase(rest, urlWord) || isImport(rest)) {
            const auto value = valueAt(rest.substr(rest[0] == '@' ? importWord.size() : urlWord.size()));
            references.push_back({std::string(value), at});
            at = static_cast<std::size_t>(value.data() - css.data()) + value.size();
        }
    }
    return references;
}

}
