#pragma once

#include "pages/template/decided_values.h"
#include "pages/template/fields.h"
#include "pages/template/marked_text.h"
#include "pages/template/render_guard.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace order {

/// Resolves the conditional blocks. In the place of a kept block's first tag stands a mark: the value that
/// decided is shown there, in every row.
void decideBlocks(pages::MarkedText& text, const pages::Fields& fields, pages::DecidedValues& decided,
                  pages::RenderGuard& guard);

/// The text with a mark in the place of every tag; an unknown tag's field is 0. Reports the template as
/// damaged where a "}" stands before the first "{" of what is left; a "{" that nothing closes is text.
[[nodiscard]] pages::MarkedText withTagsMarked(const pages::MarkedText& text, const pages::Fields& fields,
                                               const pages::RenderGuard& guard);

/// A marked text taken apart once, to be filled many times. What a value holds is put in and never looked
/// at again.
class DocumentPart {
public:
    /// What is empty when it is filled in shows as `emptyValue`, a literal.
    DocumentPart(const pages::MarkedText& text, const pages::DecidedValues& decided,
                 std::string_view emptyValue = {});

    /// The bytes that it has before it is filled.
    [[nodiscard]] std::size_t textSize() const { return m_texts.size(); }

    /// Appends the filled text. Reports the template as damaged when the document grows beyond all sense.
    void append(const pages::Fields& fields, std::string& out, pages::RenderGuard& guard) const;

private:
    struct Piece {
        std::optional<unsigned> field; // none for a piece of `m_texts`
        std::size_t start;
        std::size_t size;
    };

    void addByte(char byte);
    [[nodiscard]] Piece stored(std::string_view value);

    std::string m_texts; // literals and decided values
    std::vector<Piece> m_pieces;
    std::string_view m_emptyValue;
};

/// Reports the template as damaged when the document is larger than any order's.
void checkDocumentSize(const std::string& document, const pages::RenderGuard& guard);

}
