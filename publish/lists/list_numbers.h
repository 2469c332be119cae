#pragma once

#include "tables/table.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace publish {

enum class DecimalMark { unknown, point, comma };

/// Finds out from all numbers of a list what parts their decimals.
class DecimalMarkFinder {
public:
    void look(const tables::Cell& cell);

    /// Of numbers like "1,234" alone the delimiter of the text decides, since where semicolons part fields,
    /// commas part decimals.
    [[nodiscard]] DecimalMark found(char delimiter) const;

    /// Whether a number says it by itself: "1,20", "1.234,56".
    [[nodiscard]] bool isCertain() const { return m_points + m_commas > 0; }

private:
    std::size_t m_points = 0;
    std::size_t m_commas = 0;
    std::size_t m_unclearPoints = 0; // "1.234"
    std::size_t m_unclearCommas = 0;
    std::size_t m_longPlain = 0; // "1234": thousands are not separated here
};

/// Whether the cell is a number, perhaps with a currency or "%" beside it.
[[nodiscard]] bool looksLikeNumber(const tables::Cell& cell);

/// Whether it has decimals, whatever parts them.
[[nodiscard]] bool hasDecimals(const tables::Cell& cell);

/// Which texts are numbers: those of our own products.csv have digits and one point; of others, thousands may
/// be separated, and a currency or "%" stand beside them.
enum class NumberStyle { plain, asWritten };

/// A price or rate, the same as a single to the last digit; otherwise 0 and what is wrong.
struct ListNumber {
    float value = 0;
    std::string wrong = {};     ///< to be put behind the column's meaning: "is empty"
    const char* rule = nullptr; ///< of the complaint
};

[[nodiscard]] ListNumber readListNumber(const tables::Cell& cell, NumberStyle style, DecimalMark mark);

}
