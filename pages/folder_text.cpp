#include "pages/folder_text.h"

#include "base/code_page.h"

namespace pages {
namespace {

std::string_view escapeOf(char character) {
    switch (character) {
    case '#':
        return "%23";
    case '%':
        return "%25";
    case '?':
        return "%3F";
    default:
        return {};
    }
}

}

// Before it is brought into the code page: the references that come then have a "#" of their own.
std::string folderText(const std::filesystem::path& folder) {
    std::string text;
    for (const auto unit : folder.u8string()) {
        const auto escape = escapeOf(static_cast<char>(unit));
        escape.empty() ? text += static_cast<char>(unit) : text += escape;
    }
    return base::fromUtf8(text);
}

}
