#include "pages/template/compiled_text.h"

#include <algorithm>
#include <set>

namespace pages {

CompiledText::CompiledText(const MarkedText& text, const Fields& fields) {
    std::set<std::string> tags;
    std::size_t at = 0;
    for (auto open = text.find(u'{'); open != MarkedText::npos; open = text.find(u'{', at)) {
        const auto close = text.find(u'}', open);
        const auto inside = text.substr(open + 1, close - open - 1);
        m_exactOnly = close == MarkedText::npos || inside.find(u'{') != MarkedText::npos ||
                      std::any_of(inside.begin(), inside.end(), isMark);
        if (m_exactOnly)
            return;
        addText(text, at, open);
        const auto tag = "{" + bytesOf(inside) + "}";
        if (const auto field = fields.number(tag); field != 0)
            m_pieces.push_back({Source::field, field, 0, 0});
        tags.insert(tag);
        at = close + 1;
    }
    addText(text, at, text.size());
    m_replacements = tags.size();
}

void CompiledText::addText(const MarkedText& text, std::size_t start, std::size_t end) {
    for (auto at = start; at < end; ++at) {
        if (isMark(text[at])) {
            m_pieces.push_back({Source::decided, fieldOf(text[at]), 0, 0});
            continue;
        }
        if (m_pieces.empty() || m_pieces.back().source != Source::literal)
            m_pieces.push_back({Source::literal, 0, m_literals.size(), 0});
        m_literals += static_cast<char>(text[at]);
        ++m_pieces.back().size;
    }
}

void CompiledText::append(const Fields& fields, const DecidedValues& decided, std::string& out,
                          RenderGuard& guard) const {
    guard.countReplacements(m_replacements);
    for (const auto& piece : m_pieces) {
        switch (piece.source) {
        case Source::literal:
            out.append(m_literals, piece.start, piece.size);
            break;
        case Source::decided:
            out.append(decided.text(piece.field));
            break;
        case Source::field:
            fields.append(piece.field, out);
            break;
        }
        guard.checkSize(out.size());
    }
}

}
