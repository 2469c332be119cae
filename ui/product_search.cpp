#include "ui/product_search.h"

#include "base/caseless_finder.h"
#include "base/text.h"
#include "ui/grid_cells.h"

#include <algorithm>
#include <string>

namespace ui {
namespace {

using catalog::ProductRecord;
using catalog::ProductTable;

bool hasText(ProductRecord record, SearchedColumns columns) {
    return (columns.code && !productText(record, Field::code).empty()) ||
           (columns.description && !productText(record, Field::description).empty()) ||
           (columns.other && !productText(record, Field::other).empty());
}

/// Judges an occurrence by its place: the line feeds before it say in which column it stands, so no record is
/// taken apart.
class ColumnJudge {
public:
    ColumnJudge(const ProductTable& products, std::string_view phrase, SearchedColumns columns)
        : m_bytes(base::readText(products.bytes(), 0, products.bytes().size())),
          m_length(phrase.size()),
          m_hasLineFeed(phrase.find('\n') != std::string_view::npos),
          m_columns(columns) {}

    bool operator()(std::size_t position) const {
        constexpr auto field = ProductRecord::textField;
        const auto place = position % ProductRecord::length;
        if (place < field.offset || place + m_length > field.offset + field.width)
            return false;
        const auto text = m_bytes.substr(position - place + field.offset, field.width);
        return isSearched(text, place - field.offset);
    }

private:
    [[nodiscard]] bool isSearched(std::string_view text, std::size_t place) const {
        const auto first = text.find('\n');
        if (first == std::string_view::npos)
            return false; // such a record has no columns
        if (m_hasLineFeed || place > first)
            return isSearchedBehindCode(text, first, place);
        return m_columns.code;
    }

    [[nodiscard]] bool isSearchedBehindCode(std::string_view text, std::size_t first,
                                            std::size_t place) const {
        const auto second = text.find('\n', first + 1);
        return place > second ? m_columns.other && second != std::string_view::npos
                              : m_columns.description && !m_hasLineFeed;
    }

    std::string_view m_bytes;
    std::size_t m_length;
    bool m_hasLineFeed;
    SearchedColumns m_columns;
};

std::optional<std::int32_t> firstWithText(const ProductTable& products, SearchedColumns columns,
                                          std::int32_t start, Direction direction) {
    const int step = direction == Direction::down ? 1 : -1;
    for (auto row = start; row >= 0 && row < products.count(); row += step)
        if (hasText(products.at(row + 1), columns))
            return row;
    return std::nullopt;
}

/// Among the first `count` rows.
std::optional<std::int32_t> search(const ProductTable& products, std::string_view upperPhrase,
                                   SearchedColumns columns, std::int32_t start, Direction direction,
                                   std::int32_t count) {
    const auto bytes = products.bytes().first(static_cast<std::size_t>(count) * ProductRecord::length);
    const base::CaselessFinder finder(base::readText(bytes, 0, bytes.size()), std::string(upperPhrase));
    const ColumnJudge judge(products, upperPhrase, columns);
    const auto begin = static_cast<std::size_t>(start) * ProductRecord::length;
    const auto found = direction == Direction::down ? finder.find(begin, judge)
                                                    : finder.findLast(begin + ProductRecord::length, judge);
    if (found == std::string_view::npos)
        return std::nullopt;
    return static_cast<std::int32_t>(found / ProductRecord::length);
}

}

std::optional<std::int32_t> searchProducts(const ProductTable& products, std::string_view phrase,
                                           SearchedColumns columns, std::int32_t start, Direction direction) {
    const auto wanted = base::upper(base::trim(phrase));
    if (columns == SearchedColumns{} || wanted.size() > ProductRecord::textField.width || start < 0 ||
        start >= products.count())
        return std::nullopt;
    products.readAhead();
    if (wanted.empty())
        return firstWithText(products, columns, start, direction);
    return search(products, wanted, columns, start, direction, products.count());
}

std::optional<std::int32_t> searchRows(const ProductTable& products, std::string_view phrase,
                                       SearchedColumns columns, std::int32_t start, std::int32_t end) {
    const auto wanted = base::upper(base::trim(phrase));
    if (wanted.empty() || wanted.size() > ProductRecord::textField.width || start < 0 || start >= end ||
        end > products.count())
        return std::nullopt;
    return search(products, wanted, columns, start, Direction::down, end);
}

}
