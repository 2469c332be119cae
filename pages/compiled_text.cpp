#include "pages/compiled_text.h"

#include <algorithm>
#include <cstring>
#include <set>

namespace pages {
namespace {

constexpr char16_t firstMark = 0x100;

bool holdsBrace(const std::string& text, std::size_t from) {
    return std::memchr(text.data() + from, '{', text.size() - from) != nullptr;
}

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

bool isMark(char16_t character) {
    return character >= firstMark;
}

std::string bytesOf(const MarkedText& text) {
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t c) { return static_cast<char>(c); });
    return bytes;
}

CompiledText::CompiledText(const MarkedText& text, const Fields& fields) {
    std::set<std::string> tags;
    std::size_t at = 0;
    for (;;) {
        const auto open = text.find(u'{', at);
        const auto close = open == MarkedText::npos ? open : text.find(u'}', open);
        m_endsOpen = open != close && close == MarkedText::npos;
        if (close == MarkedText::npos)
            break;
        const auto tag = text.substr(open, close - open + 1);
        // Values could change where such a tag begins or what it says.
        m_plainOnly = tag.find(u'{', 1) != MarkedText::npos || std::any_of(tag.begin(), tag.end(), isMark);
        if (m_plainOnly)
            return;
        addText(text, at, open);
        const auto name = bytesOf(tag);
        if (const auto field = fields.number(name); field != 0)
            m_pieces.push_back({Source::field, field, 0, 0});
        tags.insert(name);
        at = close + 1;
    }
    addText(text, at, text.size());
    m_replacements = tags.size();
}

void CompiledText::addText(const MarkedText& text, std::size_t start, std::size_t end) {
    for (auto at = start; at < end; ++at) {
        if (isMark(text[at])) {
            m_pieces.push_back({Source::decided, static_cast<unsigned>(text[at] - firstMark), 0, 0});
            continue;
        }
        if (m_pieces.empty() || m_pieces.back().source != Source::literal)
            m_pieces.push_back({Source::literal, 0, m_literals.size(), 0});
        m_literals += static_cast<char>(text[at]);
        ++m_pieces.back().size;
    }
}

bool CompiledText::append(const Fields& fields, const DecidedValues& decided, std::string& out,
                          RenderGuard& guard) const {
    guard.countReplacements(m_replacements);
    for (const auto& piece : m_pieces) {
        const auto before = out.size();
        switch (piece.source) {
        case Source::literal:
            out.append(m_literals, piece.start, piece.size);
            break;
        case Source::decided:
            out.append(decided.text(piece.field));
            break;
        case Source::field:
            fields.append(piece.field, out);
            if (holdsBrace(out, before))
                return false;
            break;
        }
        guard.checkSize(out.size());
    }
    return true;
}

}
