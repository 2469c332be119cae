#include "order/news/news_page.h"

#include "base/code_page.h"
#include "base/html.h"
#include "base/money.h"
#include "base/numbers.h"
#include "base/text.h"

#include <cmath>

namespace order {
namespace {

constexpr std::string_view head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>What is new</title>
<style>
* { box-sizing: border-box; }
html { background: #fff; }
body { max-width: 62em; margin: 0; padding: 22px clamp(14px, 3vw, 36px) 40px; color: #22303d; font: 15px/1.5 "Segoe UI", "Helvetica Neue", "Liberation Sans", Arial, sans-serif; overflow-wrap: anywhere; }
h1 { margin: 0; font-size: 1.6em; line-height: 1.2; font-weight: 600; color: #17232e; }
h2 { margin: 1.7em 0 .3em; font-size: 1.15em; font-weight: 600; color: #17232e; }
p { margin: 6px 0 0; }
.quiet, th { color: #5c6b79; }
table { width: 100%; border-collapse: collapse; }
th, td { padding: .35em .9em .35em 0; border-bottom: 1px solid #e1e6eb; text-align: left; vertical-align: top; font-weight: 400; }
th { font-size: .9em; }
th:first-child { width: 20%; }
th.n, td.n { padding-right: 0; padding-left: .9em; text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums; }
a { color: #1b659a; }
a:focus-visible { outline: 2px solid #2f7fb8; outline-offset: 2px; border-radius: 2px; }
.up { color: #a12a22; }
.down { color: #1d6b3a; }
.own { margin-left: .5em; padding: .05em .5em; border-radius: 8px; background: #e3ebf2; font-size: .8em; color: #2b4a63; white-space: nowrap; }
[data-desktop=dark] { background: #26292d; }
[data-desktop=dark] body { color: #dfe4e8; }
[data-desktop=dark] h1, [data-desktop=dark] h2 { color: #f3f5f7; }
[data-desktop=dark] .quiet, [data-desktop=dark] th { color: #aab4bd; }
[data-desktop=dark] th, [data-desktop=dark] td { border-bottom-color: #454b52; }
[data-desktop=dark] a { color: #7fc0ee; }
[data-desktop=dark] .up { color: #ff9d94; }
[data-desktop=dark] .down { color: #8fd6a8; }
[data-desktop=dark] .own { color: #cfe2f2; background: #3c4a57; }
</style>
</head>
<body>
<h1>What is new</h1>
)";
constexpr std::string_view foot = "</body>\n</html>\n";

std::string countText(std::size_t count) {
    auto text = base::groupedText(static_cast<double>(count));
    text.resize(text.size() - std::string_view(".00").size());
    return text;
}

std::string countOf(std::size_t count, std::string_view what) {
    return countText(count).append(" ").append(what).append(count == 1 ? "" : "s");
}

// "12 prices up", or after another sum of prices only "12 up".
void appendSum(std::string& sum, std::size_t count, std::string_view what, std::string_view verb) {
    if (count == 0)
        return;
    sum.append(sum.empty() ? "" : ", ");
    sum.append(what.empty() ? countText(count) : countOf(count, what)).append(verb);
}

std::string textInPage(std::string_view text) {
    return base::asHtml(base::shownAsUtf8(text));
}

/// As the program's own grid shows prices, but never with fewer than two decimals.
std::string priceText(float price) {
    if (price == 0)
        return "&ndash;";
    const auto plain = base::textOf(price);
    const auto point = plain.find('.');
    const bool isFine = point != std::string::npos && plain.size() - point - 1 > base::moneyDecimals;
    return isFine ? plain : base::groupedText(double{price});
}

// Of a price that was nothing there is no such number, and a very large one says nothing.
std::string percentText(const NewsArticle& article) {
    constexpr double most = 1000;
    const double before = article.before;
    const double percent = (double{article.now} - before) / before * 100;
    if (before <= 0 || std::fabs(percent) >= most)
        return {};
    if (std::fabs(percent) < 0.05)
        return percent > 0 ? "under +0.1 %" : "under &minus;0.1 %";
    return (percent > 0 ? "+" : "&minus;") + base::fixedText(std::fabs(percent), 1) + " %";
}

// What stands behind the "?" of a link is read as bytes of the code page.
std::string escapedCode(std::string_view code) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : code) {
        const auto byte = static_cast<unsigned char>(c);
        if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))
            escaped += c;
        else
            escaped.append("%").append({digits[byte / 16], digits[byte % 16]});
    }
    return escaped;
}

std::string codeCell(const NewsArticle& article, bool isThere) {
    const auto code = textInPage(article.code);
    std::string cell = "<td>";
    if (isThere)
        cell.append("<a href=\"").append(newsPageName).append("?");
    if (isThere)
        cell.append(escapedCode(article.code)).append("\">").append(code).append("</a>");
    else
        cell.append(code);
    return cell + "</td>";
}

std::string describedCell(const NewsArticle& article) {
    return "<td>" + textInPage(article.description) +
           (article.ordered ? "<span class=\"own\">ordered before</span>" : "") + "</td>";
}

std::string numberCell(std::string_view text, std::string_view kind = {}) {
    return std::string("<td class=\"n ").append(kind).append("\">").append(text).append("</td>");
}

/// A part of the page.
struct Part {
    std::string_view title;
    std::string_view headings; ///< of the columns behind code and description
    bool areThere;             ///< these articles can be gone to
    std::string (*prices)(const NewsArticle& article);
};

std::string changedPrices(const NewsArticle& article) {
    const auto* kind = article.now > article.before ? "up" : "down";
    return numberCell(priceText(article.before)) + numberCell(priceText(article.now)) +
           numberCell(percentText(article), kind);
}

std::string priceNow(const NewsArticle& article) {
    return numberCell(priceText(article.now));
}

std::string priceBefore(const NewsArticle& article) {
    return numberCell(priceText(article.before));
}

constexpr std::string_view changeHeadings =
    "<th class=\"n\">Before</th><th class=\"n\">Now</th><th class=\"n\">Change</th>";
constexpr Part up{"Prices that went up", changeHeadings, true, changedPrices};
constexpr Part down{"Prices that went down", changeHeadings, true, changedPrices};
constexpr Part added{"New articles", "<th class=\"n\">Price</th>", true, priceNow};
constexpr Part gone{"Articles that are gone", "<th class=\"n\">Price before</th>", false, priceBefore};

void appendPart(std::string& page, const Part& part, const NewsOfAKind& news) {
    if (news.count == 0)
        return;
    page.append("<h2>").append(part.title).append("</h2>\n<table>\n<tr><th>Code</th><th>Description</th>");
    page.append(part.headings).append("</tr>\n");
    for (const auto& article : news.first)
        page.append("<tr>")
            .append(codeCell(article, part.areThere))
            .append(describedCell(article))
            .append(part.prices(article))
            .append("</tr>\n");
    page.append("</table>\n");
    if (const auto others = news.count - news.first.size(); others > 0)
        page.append("<p class=\"quiet\">")
            .append(countOf(others, "more article"))
            .append(" not shown here.</p>\n");
}

std::string whatPricesAre(const NewsPageTexts& texts) {
    const auto currency = texts.currency.empty() ? "" : " in " + textInPage(texts.currency);
    const std::string_view tax = texts.chargesTax ? " without tax" : "";
    if (currency.empty() && tax.empty())
        return {};
    return std::string("<p class=\"quiet\">Prices are").append(currency).append(tax).append(".</p>\n");
}

}

std::string sumOf(const CatalogNews& news) {
    std::string sum;
    appendSum(sum, news.up.count, "price", " up");
    appendSum(sum, news.down.count, sum.empty() ? "price" : "", " down");
    appendSum(sum, news.added.count, "new article", "");
    appendSum(sum, news.gone.count, news.added.count == 0 ? "article" : "", " gone");
    return sum.empty() ? "No price and no article has changed" : sum;
}

std::string newsPage(const CatalogNews& news, const NewsPageTexts& texts) {
    std::string page(head);
    page.append("<p>").append(sumOf(news));
    if (!texts.since.empty())
        page.append(" since ").append(textInPage(texts.since));
    page.append(".</p>\n").append(whatPricesAre(texts));
    appendPart(page, up, news.up);
    appendPart(page, down, news.down);
    appendPart(page, added, news.added);
    appendPart(page, gone, news.gone);
    return page.append(foot);
}

std::string newsNotice(std::string_view text) {
    return std::string(head)
        .append("<p>")
        .append(base::replaceAll(textInPage(text), "\n", "</p>\n<p>"))
        .append("</p>\n")
        .append(foot);
}

}
