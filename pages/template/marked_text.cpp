#include "pages/template/marked_text.h"

#include <algorithm>

namespace pages {
namespace {

constexpr char16_t firstMark = 0x100;

}

MarkedText markedText(std::string_view bytes) {
    MarkedText text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return static_cast<char16_t>(static_cast<unsigned char>(byte)); });
    return text;
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

std::string bytesOf(const MarkedText& text) {
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t c) { return static_cast<char>(c); });
    return bytes;
}

}
