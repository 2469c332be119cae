#include "ui/product_search.h"

#include "base/caseless_finder.h"
#include "base/text.h"
#include "ui/grid_cells.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>

namespace ui {
namespace {

using catalog::ProductRecord;
using catalog::ProductTable;

bool holds(std::string_view cell, std::string_view upperPhrase) {
    if (upperPhrase.empty())
        return !cell.empty();
    return std::search(cell.begin(), cell.end(), upperPhrase.begin(), upperPhrase.end(),
                       [](char c, char wanted) { return base::upper(c) == wanted; }) != cell.end();
}

bool matches(ProductRecord record, std::string_view upperPhrase, SearchedColumns columns) {
    const std::array searched{std::pair{columns.code, Field::code},
                              std::pair{columns.description, Field::description},
                              std::pair{columns.other, Field::other}};
    return std::any_of(searched.begin(), searched.end(), [&](const auto& column) {
        return column.first && holds(productText(record, column.second), upperPhrase);
    });
}

/// The rows that are worth a look: those whose record has the phrase anywhere in its bytes, or every row
/// when there is no phrase.
class Candidates {
public:
    /// Of the first `count` rows.
    Candidates(const ProductTable& products, const std::string& upperPhrase, Direction direction,
               std::int32_t count)
        : m_count(count), m_direction(direction) {
        const auto bytes = products.bytes().first(static_cast<std::size_t>(m_count) * ProductRecord::length);
        if (!upperPhrase.empty())
            m_finder =
                std::make_unique<base::CaselessFinder>(base::readText(bytes, 0, bytes.size()), upperPhrase);
    }

    /// This row or the nearest one behind it in the direction of the search.
    [[nodiscard]] std::optional<std::int32_t> from(std::int32_t row) const {
        if (row < 0 || row >= m_count)
            return std::nullopt;
        if (!m_finder)
            return row;
        const auto begin = static_cast<std::size_t>(row) * ProductRecord::length;
        const auto found = m_direction == Direction::down ? m_finder->find(begin)
                                                          : m_finder->findLast(begin + ProductRecord::length);
        if (found == std::string_view::npos)
            return std::nullopt;
        return static_cast<std::int32_t>(found / ProductRecord::length);
    }

    /// As `from`, without this row.
    [[nodiscard]] std::optional<std::int32_t> behind(std::int32_t row) const {
        return from(m_direction == Direction::down ? row + 1 : row - 1);
    }

private:
    std::int32_t m_count;
    Direction m_direction;
    std::unique_ptr<const base::CaselessFinder> m_finder; // none without a phrase
};

std::optional<std::int32_t> search(const ProductTable& products, std::string_view phrase,
                                   SearchedColumns columns, std::int32_t start, Direction direction,
                                   std::int32_t count) {
    const auto wanted = base::upper(base::trim(phrase));
    if (columns == SearchedColumns{} || wanted.size() > ProductRecord::textField.width)
        return std::nullopt;
    const Candidates candidates(products, wanted, direction, count);
    auto row = candidates.from(start);
    while (row && !matches(products.at(*row + 1), wanted, columns))
        row = candidates.behind(*row);
    return row;
}

}

std::optional<std::int32_t> searchProducts(const ProductTable& products, std::string_view phrase,
                                           SearchedColumns columns, std::int32_t start, Direction direction) {
    products.readAhead();
    return search(products, phrase, columns, start, direction, products.count());
}

std::optional<std::int32_t> searchRows(const ProductTable& products, std::string_view phrase,
                                       SearchedColumns columns, std::int32_t start, std::int32_t end) {
    return search(products, phrase, columns, start, Direction::down, std::clamp(end, 0, products.count()));
}
}
