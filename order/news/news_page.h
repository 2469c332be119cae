#pragma once

#include "order/news/catalog_news.h"

#include <string>
#include <string_view>

namespace order {

/// What the page says beside the news. Texts are in the code page.
struct NewsPageTexts {
    std::string since; ///< a day, "12 March 2026"; empty where nobody knows
    std::string currency;
    bool chargesTax = true;
};

/// The name under which the page is to be shown, in any folder: its links lead to articles as a catalogue's
/// links do (pages::LinkRules).
inline constexpr std::string_view newsPageName = "News.htm";

/// In a line: "12 prices up, 3 down, 5 new articles, 1 gone".
[[nodiscard]] std::string sumOf(const CatalogNews& news);

/// A page of the program's own, in UTF-8, with that line on top and a part for each kind of news. It needs
/// no scripts and no other file.
[[nodiscard]] std::string newsPage(const CatalogNews& news, const NewsPageTexts& texts);

/// The same with one sentence, or several lines, in place of the news. The text is in the code page.
[[nodiscard]] std::string newsNotice(std::string_view text);

}
