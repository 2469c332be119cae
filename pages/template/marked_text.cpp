#include "pages/template/marked_text.h"

#include <algorithm>

namespace pages {
namespace {

constexpr char16_t firstMark = 0x100;

MarkedText raised(std::string_view bytes, char16_t by) {
    MarkedText text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [by](char byte) { return static_cast<char16_t>(static_cast<unsigned char>(byte) + by); });
    return text;
}

}

MarkedText markedText(std::string_view bytes) {
    return raised(bytes, 0);
}

char16_t markOf(unsigned field) {
    return static_cast<char16_t>(firstMark + field);
}

unsigned fieldOf(char16_t mark) {
    return static_cast<unsigned>(mark - firstMark);
}

bool isMark(char16_t character) {
    return character >= firstMark;
}

MarkedText sealed(std::string_view value) {
    return raised(value, firstMark);
}

std::string bytesOf(const MarkedText& text) {
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t c) { return static_cast<char>(c); });
    return bytes;
}

}
