#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace order {

/// A part of an order's page that can be printed by itself.
struct PaperPiece {
    std::string text;
    std::size_t breaks; ///< how often a new sheet begins in it
    std::size_t ownSheets;
    bool repeatsFirst;   ///< begins with the page's first sheet, which an earlier piece has too
    bool hasEnd;         ///< ends with a sheet that is none of the page's
    std::size_t through; ///< up to which sheet the page is on paper with it, counted from 1
};

/// A long order's page in pieces, cut only where a new sheet begins. Each piece has the page's first sheet,
/// with its head and styles, before its own sheets, which so begin among what they begin among in the page.
/// All but the last end with a sheet more, so that theirs end as they do in the page.
class PaperPieces {
public:
    /// The page is kept only if there are several pieces.
    explicit PaperPieces(std::string_view page);

    /// 1 for a page that is to be printed whole.
    [[nodiscard]] std::size_t count() const { return m_cuts.size() - 1; }

    /// The page, where it is kept.
    [[nodiscard]] std::string_view page() const { return m_page; }

    /// How many sheets the page begins; one may be longer than the paper.
    [[nodiscard]] std::size_t sheets() const { return m_starts.size(); }

    /// Of several, counted from 0.
    [[nodiscard]] PaperPiece piece(std::size_t number) const;

private:
    [[nodiscard]] std::string_view between(std::size_t from, std::size_t to) const;
    void cut();

    std::string m_page;
    std::vector<std::size_t> m_starts;     // of the sheets, in the page
    std::vector<std::size_t> m_cuts{0, 1}; // piece i has the sheets from m_cuts[i] to the next
};

}
