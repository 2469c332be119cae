#include "order/document_part.h"

#include "pages/template/template_text.h"

#include <algorithm>
#include <map>
#include <utility>

namespace order {
namespace {

using pages::MarkedText;

// A tag with a mark in it is no tag that anybody knows.
unsigned fieldOfTag(const MarkedText& tag, const pages::Fields& fields) {
    return std::any_of(tag.begin(), tag.end(), pages::isMark) ? 0 : fields.number(pages::bytesOf(tag));
}

// Marks of fields whose values decided are moved by so much.
constexpr unsigned decidedFields = 10'000;

}

void decideBlocks(MarkedText& text, const pages::Fields& fields, pages::DecidedValues& decided,
                  pages::RenderGuard& guard) {
    std::size_t from = 0;
    while (auto block = pages::firstBlock(text, from, guard)) {
        const auto field = fieldOfTag(block->tag, fields);
        const auto value =
            decided.keeps(field, fields) ? MarkedText(1, pages::markOf(field + decidedFields)) : MarkedText();
        from = pages::settleBlock(text, *std::move(block), value, guard);
    }
}

MarkedText withTagsMarked(const MarkedText& text, const pages::Fields& fields,
                          const pages::RenderGuard& guard) {
    MarkedText marked;
    std::size_t at = 0;
    for (auto open = text.find(u'{'); open != MarkedText::npos; open = text.find(u'{', at)) {
        const auto close = text.find(u'}', at);
        if (close == MarkedText::npos)
            break;
        if (close < open)
            guard.damaged();
        marked.append(text, at, open - at);
        marked += pages::markOf(fieldOfTag(text.substr(open, close - open + 1), fields));
        at = close + 1;
    }
    return marked.append(text, at);
}

DocumentPart::DocumentPart(const MarkedText& text, const pages::DecidedValues& decided,
                           std::string_view emptyValue)
    : m_emptyValue(emptyValue) {
    std::map<unsigned, Piece> values;
    for (const auto character : text) {
        if (!pages::isMark(character)) {
            addByte(static_cast<char>(character));
            continue;
        }
        const auto field = pages::fieldOf(character);
        if (field < decidedFields) {
            m_pieces.push_back({field, 0, 0});
            continue;
        }
        if (!values.contains(field))
            values.emplace(field, stored(decided.text(field - decidedFields)));
        m_pieces.push_back(values.at(field));
    }
}

void DocumentPart::addByte(char byte) {
    const auto isOpen = [this](const Piece& last) {
        return !last.field && last.start + last.size == m_texts.size();
    };
    if (m_pieces.empty() || !isOpen(m_pieces.back()))
        m_pieces.push_back({std::nullopt, m_texts.size(), 0});
    m_texts += byte;
    ++m_pieces.back().size;
}

DocumentPart::Piece DocumentPart::stored(std::string_view value) {
    m_texts += value;
    return {std::nullopt, m_texts.size() - value.size(), value.size()};
}

void DocumentPart::append(const pages::Fields& fields, std::string& out, pages::RenderGuard& guard) const {
    constexpr std::size_t costOfPiece = 4;
    for (const auto& piece : m_pieces) {
        guard.countReading(costOfPiece);
        const auto before = out.size();
        if (!piece.field) {
            out.append(m_texts, piece.start, piece.size);
        } else {
            if (*piece.field != 0)
                fields.append(*piece.field, out);
            if (out.size() == before)
                out += m_emptyValue;
        }
        checkDocumentSize(out, guard);
    }
}

void checkDocumentSize(const std::string& document, const pages::RenderGuard& guard) {
    constexpr std::size_t mostBytes = std::size_t{64} * 1024 * 1024;
    if (document.size() > mostBytes)
        guard.damaged();
}

}
