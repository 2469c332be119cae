#include "order/paper/paper_pieces.h"

#include "order/order_writer.h"

namespace order {
namespace {

// Shorter pages are printed whole.
constexpr std::size_t fewestSheets = 25;

// What the browser needs for a piece grows with both, some 16 MB a sheet of fifty lines.
constexpr std::size_t mostSheetsOfPiece = 20;
constexpr std::size_t mostBytesOfPiece = std::size_t{384} * 1024;

constexpr char contentOfEnd = '.';

std::vector<std::size_t> sheetStarts(std::string_view page) {
    std::vector<std::size_t> starts{0};
    for (auto at = page.find(sheetBreak); at != std::string_view::npos;
         at = page.find(sheetBreak, at + sheetBreak.size()))
        starts.push_back(at);
    return starts;
}

}

PaperPieces::PaperPieces(std::string_view page) : m_starts(sheetStarts(page)) {
    if (m_starts.size() < fewestSheets || m_starts[1] > mostBytesOfPiece)
        return;
    m_page = page;
    cut();
}

void PaperPieces::cut() {
    for (std::size_t sheet = 2; sheet < sheets(); ++sheet) {
        const auto from = m_cuts.back();
        if (sheet - from == mostSheetsOfPiece || between(from, sheet + 1).size() > mostBytesOfPiece)
            m_cuts.push_back(sheet);
    }
    m_cuts.push_back(sheets());
}

std::string_view PaperPieces::between(std::size_t from, std::size_t to) const {
    const auto end = to < sheets() ? m_starts[to] : m_page.size();
    return std::string_view(m_page).substr(m_starts[from], end - m_starts[from]);
}

PaperPiece PaperPieces::piece(std::size_t number) const {
    const auto from = m_cuts[number];
    const auto to = m_cuts[number + 1];
    PaperPiece piece{{}, to - from, to - from, number > 0, to < sheets(), to};
    if (piece.repeatsFirst)
        piece.text = between(0, 1);
    else
        --piece.breaks;
    piece.text += between(from, to);
    if (piece.hasEnd) {
        piece.text.append(sheetBreak) += contentOfEnd;
        ++piece.breaks;
    }
    return piece;
}

}
