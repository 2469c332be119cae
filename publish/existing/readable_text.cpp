#include "publish/existing/readable_text.h"

#include "base/code_page.h"
#include "base/text.h"

namespace publish {
namespace {

bool isControl(char c) {
    return c >= 0 && c < ' ';
}

std::string withBlanks(std::string_view text, bool keepsLines) {
    std::string plain(text);
    for (char& c : plain)
        if (isControl(c) && !(keepsLines && (c == '\n' || c == '\t')))
            c = ' ';
    return plain;
}

std::string utf8Of(const std::string& text) {
    auto shown = base::shownAsUtf8(text);
    return base::fromUtf8(shown) == text ? shown : base::toUtf8(text);
}

}

std::string readableLine(std::string_view text) {
    return utf8Of(std::string(base::trim(withBlanks(text, false))));
}

std::string readableLines(std::string_view text) {
    auto lines = base::replaceAll(text, "\r\n", "\n");
    for (char& c : lines)
        if (c == '\r')
            c = '\n';
    return utf8Of(withBlanks(lines, true));
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
