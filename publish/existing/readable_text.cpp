#include "publish/existing/readable_text.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>

namespace publish {
namespace {

bool isControl(char c) {
    return c >= 0 && c < ' ';
}

std::string withBlanks(std::string_view text) {
    std::string plain(text);
    std::replace_if(plain.begin(), plain.end(), isControl, ' ');
    return plain;
}

// The next character of a text of several lines; CR LF and CR are LF.
char takeReadable(std::string_view& text) {
    text.remove_prefix(text.starts_with("\r\n") ? 1 : 0);
    const char c = text.front();
    text.remove_prefix(1);
    return c == '\r' ? '\n' : isControl(c) && c != '\n' && c != '\t' ? ' ' : c;
}

std::string utf8Of(const std::string& text) {
    auto shown = base::shownAsUtf8(text);
    return base::fromUtf8(shown) == text ? shown : base::toUtf8(text);
}

}

std::string readableLine(std::string_view text) {
    return utf8Of(std::string(base::trim(withBlanks(text))));
}

std::string readableLines(std::string_view text) {
    std::string lines;
    lines.reserve(text.size());
    while (!text.empty())
        lines += takeReadable(text);
    return utf8Of(lines);
}

bool readSameLines(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty())
        if (takeReadable(a) != takeReadable(b))
            return false;
    return a.empty() && b.empty();
}

void appendField(std::string& row, std::string_view utf8) {
    const bool isPlain = utf8.find_first_of(",;\t\"\n") == std::string_view::npos && !utf8.starts_with(' ') &&
                         !utf8.ends_with(' ');
    if (isPlain)
        row += utf8;
    else
        row.append("\"").append(base::replaceAll(utf8, "\"", "\"\"")).append("\"");
}

}
