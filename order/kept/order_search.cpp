#include "order/kept/order_search.h"

#include <algorithm>

namespace order {
namespace {

bool isBetweenWords(char c) {
    return static_cast<unsigned char>(c) <= ' ' || c == '\x7F';
}

// Characters of words of any language are letters here; the index knows better.
bool isOfWord(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
           static_cast<unsigned char>(c) >= 0x80;
}

void addPhrase(std::string& query, std::string_view word) {
    query += query.empty() ? "\"" : " \"";
    for (const char c : word)
        query.append(c == '"' ? 2 : 1, c);
    query += "\"*";
}

}

std::string searchQuery(std::string_view text) {
    std::string query;
    while (!text.empty()) {
        const auto* const end = std::find_if(text.begin(), text.end(), isBetweenWords);
        const auto word = text.substr(0, static_cast<std::size_t>(end - text.begin()));
        if (std::any_of(word.begin(), word.end(), isOfWord))
            addPhrase(query, word);
        text.remove_prefix(std::min(text.size(), word.size() + 1));
    }
    return query;
}

}
