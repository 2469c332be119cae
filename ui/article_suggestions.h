#pragma once

#include "catalog/catalog.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

/// The articles that a typed text may mean: those whose codes begin so, found at once, and then those that
/// have all its words in their code or description, a part of the list at a time. Only articles that their
/// own code leads to.
class ArticleSuggestions {
public:
    static constexpr std::size_t most = 12;

    /// The catalogue must live as long.
    ArticleSuggestions(const catalog::Catalog& catalog, std::string_view typed);

    /// By code, then in the order of the list.
    [[nodiscard]] const std::vector<std::int32_t>& products() const { return m_products; }

    /// There is nothing more to be found.
    [[nodiscard]] bool finished() const { return m_next >= m_end; }

    /// Looks at so many further rows of the list.
    void goOn(std::int32_t rows);

private:
    void add(std::int32_t product);
    [[nodiscard]] bool hasAllWords(std::int32_t product) const;

    const catalog::Catalog& m_catalog;
    std::vector<std::string> m_words; // in upper case, the longest first
    std::vector<std::int32_t> m_products;
    std::int32_t m_next = 0; // row of the list
    std::int32_t m_end = 0;
};

}
