#pragma once

#include "pages/template/decided_values.h"
#include "pages/template/fields.h"
#include "pages/template/marked_text.h"
#include "pages/template/render_guard.h"

#include <cstddef>
#include <string>
#include <vector>

namespace pages {

/// A text taken apart once into literals and fields. Filling it gives what replacing its tags one after
/// the other gives, as long as no value holds a "{". The literals hold none either, so a "{" in a filled
/// text tells that a value had one.
class CompiledText {
public:
    CompiledText() = default;
    CompiledText(const MarkedText& text, const Fields& fields);

    /// The text has loose braces ("{a{b}", "{a"), so where its tags begin and end depends on the values:
    /// replace them one by one.
    [[nodiscard]] bool isExactOnly() const { return m_exactOnly; }

    /// How many different tags it has.
    [[nodiscard]] std::size_t replacements() const { return m_replacements; }

    /// Appends the filled text.
    void append(const Fields& fields, const DecidedValues& decided, std::string& out,
                RenderGuard& guard) const;

private:
    enum class Source : unsigned char { literal, field, decided };

    struct Piece {
        Source source;
        unsigned field;
        std::size_t start; // of the literal
        std::size_t size;
    };

    void addText(const MarkedText& text, std::size_t start, std::size_t end);

    std::string m_literals;
    std::vector<Piece> m_pieces;
    std::size_t m_replacements = 0;
    bool m_exactOnly = false;
};

}
