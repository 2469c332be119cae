#include "ui/article_suggestions.h"

#include "base/text.h"
#include "ui/product_search.h"

#include <algorithm>

namespace ui {
namespace {

constexpr std::size_t mostEntries = 10 * ArticleSuggestions::most; // looked at in the index
constexpr std::size_t shortestWord = 2;                            // that is worth a search

std::vector<std::string> wordsOf(std::string_view upperText) {
    std::vector<std::string> words;
    for (const auto word : base::split(upperText, ' '))
        if (!word.empty())
            words.emplace_back(word);
    std::sort(words.begin(), words.end(), [](const auto& a, const auto& b) { return a.size() > b.size(); });
    return words;
}

}

ArticleSuggestions::ArticleSuggestions(const catalog::Catalog& catalog, std::string_view typed)
    : m_catalog(catalog), m_words(wordsOf(base::upper(typed))) {
    const auto start = base::trim(typed);
    if (start.empty())
        return;
    for (const auto product : m_catalog.codes.beginningWith(start, mostEntries))
        if (base::startsIgnoringCase(m_catalog.products.at(product).code(), start))
            add(product);
    if (m_words.front().size() >= shortestWord && m_products.size() < most)
        m_end = m_catalog.products.count();
}

void ArticleSuggestions::goOn(std::int32_t rows) {
    constexpr SearchedColumns inTexts{.code = true, .description = true};
    const auto end = rows < m_end - m_next ? m_next + rows : m_end;
    while (m_next < end) {
        const auto row = searchRows(m_catalog.products, m_words.front(), inTexts, m_next, end);
        m_next = row ? *row + 1 : end;
        if (row && hasAllWords(*row + 1))
            add(*row + 1);
        if (m_products.size() >= most)
            m_next = m_end;
    }
}

void ArticleSuggestions::add(std::int32_t product) {
    const auto record = m_catalog.products.at(product);
    const bool isKnown = std::find(m_products.begin(), m_products.end(), product) != m_products.end();
    if (m_products.size() < most && !isKnown && record.isProduct() &&
        m_catalog.codes.find(record.code()) == product)
        m_products.push_back(product);
}

bool ArticleSuggestions::hasAllWords(std::int32_t product) const {
    const auto text = base::upper(m_catalog.products.at(product).text());
    return std::all_of(m_words.begin(), m_words.end(),
                       [&](const auto& word) { return text.find(word) != std::string::npos; });
}

}
