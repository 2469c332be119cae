#include "order/exchange/plain_text.h"

#include <algorithm>

namespace order {
namespace {

constexpr std::string_view formulaStarts = "=+-@\t\r";

// Behind any apostrophes, so that a text's own ones survive.
bool startsFormula(std::string_view text) {
    const auto first = text.find_first_not_of('\'');
    return first != std::string_view::npos && formulaStarts.find(text[first]) != std::string_view::npos;
}

}

std::string guardedText(std::string_view text) {
    std::string guarded(startsFormula(text) ? "'" : "");
    guarded += text;
    std::replace_if(
        guarded.begin(), guarded.end(),
        [](char character) { return static_cast<unsigned char>(character) < ' ' || character == '\x7F'; },
        ' ');
    return guarded;
}

std::string_view unguardedText(std::string_view text) {
    return text.starts_with('\'') && startsFormula(text) ? text.substr(1) : text;
}

}
