#include "order/news/news_page.h"
#include "pages/browse/link_rules.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using testing::Not;

order::NewsOfAKind some(std::size_t count) {
    return {count, {}};
}

TEST(NewsPageTest, SumsUpInALine) {
    EXPECT_EQ(order::sumOf({some(12), some(3), some(5), some(1)}),
              "12 prices up, 3 down, 5 new articles, 1 gone");
    EXPECT_EQ(order::sumOf({some(0), some(1), some(0), some(1234)}), "1 price down, 1,234 articles gone");
    EXPECT_EQ(order::sumOf({}), "No price and no article has changed");
}

TEST(NewsPageTest, ShowsWhatCataloguesSayAsTextAndPricesAsTheyAre) {
    order::CatalogNews news;
    news.up = {2, {{"<b>", "Caf\xE9 &#960; \"&amp;\"", 2, 2.5F, true, 1}}};
    news.down = {1, {{"D", "d", 0.0125F, 0, false, 2}}};
    news.gone = {1, {{"G", "g", 1234.5F, 0, false, 3}}};
    const auto page = newsPage(news, {"12 March 2026", "\x80", true});
    EXPECT_THAT(page, HasSubstr("<p>2 prices up, 1 down, 1 article gone since 12 March 2026.</p>"));
    EXPECT_THAT(page, HasSubstr("Prices are in \xE2\x82\xAC without tax."));
    EXPECT_THAT(
        page,
        HasSubstr(">&lt;b&gt;</a></td><td>Caf\xC3\xA9 \xCF\x80 &quot;&amp;amp;&quot;<span class=\"own\">"));
    EXPECT_THAT(
        page,
        HasSubstr("<td class=\"n \">2.00</td><td class=\"n \">2.50</td><td class=\"n up\">+25.0 %</td>"));
    EXPECT_THAT(page, HasSubstr("1 more article not shown"));
    EXPECT_THAT(page, HasSubstr("<td class=\"n \">0.0125</td><td class=\"n \">&ndash;</td>"));
    EXPECT_THAT(page, HasSubstr("<tr><td>G</td><td>g</td><td class=\"n \">1,234.50</td></tr>"));
    EXPECT_THAT(page, Not(HasSubstr("<script")));
}

// However odd a code is, its link leads to its record.
TEST(NewsPageTest, LinksLeadToTheirArticles) {
    const auto folder = support::testFolder();
    support::CatalogBuilder builder;
    for (const std::string code :
         {"A 1", "a/b\\c\"d", "\xC4#1", "5%", "<X>&'", "WHAT?", "A|B", "1+1=2", "\x80"})
        builder.products.push_back({code + "\nx", 1});
    builder.writeTo(folder);
    const auto catalog = catalog::openCatalog(folder);
    const pages::LinkRules links(catalog, {folder, folder, folder});
    for (std::int32_t record = 1; record <= catalog.products.count(); ++record) {
        order::CatalogNews news;
        news.added = {1, {{std::string(catalog.products.at(record).code()), "", 0, 1, false, record}}};
        const auto page = newsPage(news, {});
        const auto link = page.substr(page.find("href=\"") + 6);
        const auto end = links.follow("file://" + folder.string() + "/" + link.substr(0, link.find('"')));
        const auto* product = std::get_if<pages::LeadsToProduct>(&end);
        EXPECT_TRUE(product && product->record == record) << link.substr(0, 60);
    }
}

}
