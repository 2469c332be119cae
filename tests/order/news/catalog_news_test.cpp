#include "base/errors.h"
#include "base/files.h"
#include "order/news/catalog_news.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>

#include <map>
#include <random>
#include <set>
#include <thread>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class CatalogNewsTest : public testing::Test {
protected:
    using Products = std::vector<support::Product>;

    void write(const Products& before, const Products& now) const {
        support::CatalogBuilder earlier;
        earlier.products = before;
        earlier.writeTo(folder / "before");
        support::CatalogBuilder later;
        later.products = now;
        later.writeTo(folder / "now");
    }

    [[nodiscard]] order::CatalogNews news(const std::vector<std::string>& ordered = {}) const {
        return order::newsOf(catalog::openCatalog(folder / "now"), order::openEarlier(folder / "before"),
                             ordered)
            .value();
    }

    /// What it says when it cannot tell.
    [[nodiscard]] std::string refusal() const {
        try {
            return std::to_string(news().up.count) + " up";
        } catch (const base::FileError& error) {
            return error.what();
        }
    }

    fs::path folder = support::testFolder();
};

std::string linesOf(const order::NewsOfAKind& news) {
    std::string lines = std::to_string(news.count) + ":";
    for (const auto& article : news.first)
        lines += " " + article.code + (article.ordered ? "!" : "") + "@" + std::to_string(article.record);
    return lines;
}

std::string linesOf(const order::CatalogNews& news) {
    return linesOf(news.up) + "\n" + linesOf(news.down) + "\n" + linesOf(news.added) + "\n" +
           linesOf(news.gone);
}

/// The same from maps, by key, in the most obvious way.
struct PlainComparison {
    struct Kind {
        std::map<std::pair<bool, int>, std::string> lines; // by what comes first

        void add(const std::string& code, bool isOrdered, int record) {
            lines[{!isOrdered, record}] = " " + code + (isOrdered ? "!" : "") + "@" + std::to_string(record);
        }

        [[nodiscard]] std::string text() const {
            auto all = std::to_string(lines.size()) + ":";
            for (const auto& line : lines)
                all += line.second;
            return all;
        }
    };

    static std::map<std::string, int> firstOfEach(const std::vector<support::Product>& products) {
        std::map<std::string, int> records;
        for (std::size_t i = 0; i < products.size(); ++i)
            if (const auto code = products[i].text.substr(0, products[i].text.find('\n')); !code.empty())
                records.try_emplace(base::upper(code).substr(0, 20), static_cast<int>(i + 1));
        std::erase_if(records, [&](const auto& entry) {
            return products[static_cast<std::size_t>(entry.second - 1)].flag != 'Y';
        });
        return records;
    }

    static std::string of(const std::vector<support::Product>& before,
                          const std::vector<support::Product>& now, const std::set<std::string>& ordered) {
        std::array<Kind, 4> kinds;
        const auto earlier = firstOfEach(before);
        const auto later = firstOfEach(now);
        const auto at = [](const auto& products, int record) {
            return products[static_cast<std::size_t>(record - 1)];
        };
        const auto codeOf = [](const support::Product& product) {
            return product.text.substr(0, product.text.find('\n'));
        };
        for (const auto& [key, record] : later) {
            const auto found = earlier.find(key);
            const auto product = at(now, record);
            const float old = found == earlier.end() ? product.price : at(before, found->second).price;
            if (found == earlier.end() || old != product.price)
                kinds.at(found == earlier.end() ? 2
                         : product.price > old  ? 0
                                                : 1)
                    .add(codeOf(product), ordered.contains(key), record);
        }
        for (const auto& [key, record] : earlier)
            if (!later.contains(key))
                kinds[3].add(codeOf(at(before, record)), ordered.contains(key), record);
        return kinds[0].text() + "\n" + kinds[1].text() + "\n" + kinds[2].text() + "\n" + kinds[3].text();
    }
};

TEST_F(CatalogNewsTest, AreWhatAPlainComparisonFinds) {
    std::mt19937 random(7);
    const auto below = [&](unsigned end) { return static_cast<int>(random() % end); };
    const auto some = [&] {
        Products products(static_cast<std::size_t>(1 + below(60)));
        for (auto& product : products) {
            const auto number = std::to_string(below(80));
            const std::array codes{"K" + number, "k" + number, std::string(19, 'x') + number,
                                   "\xE9 " + number, std::string()};
            product.text = codes.at(static_cast<std::size_t>(below(codes.size()))) + "\nArticle";
            product.price = 0.25F * static_cast<float>(below(4));
            product.flag = below(10) == 0 ? 'N' : 'Y';
        }
        return products;
    };
    for (int round = 0; round < 100 && !HasFailure(); ++round) {
        const auto before = some();
        const auto now = some();
        std::set<std::string> ordered;
        for (int i = 0; i < 30; ++i)
            ordered.insert("K" + std::to_string(below(80)));
        write(before, now);
        EXPECT_EQ(linesOf(news({ordered.begin(), ordered.end()})), PlainComparison::of(before, now, ordered));
    }
}

TEST_F(CatalogNewsTest, AreCountedAllAndThoseKeptThatComeFirst) {
    Products before;
    Products now;
    for (int i = 5000; i > 0; --i) {
        before.push_back({std::to_string(i) + "\nA", 1});
        now.push_back({std::to_string(i) + "\nA", 2});
    }
    write(before, now);
    const auto up = news({"1", "17"}).up;
    EXPECT_EQ(up.count, 5000U);
    ASSERT_EQ(up.first.size(), order::mostShownNews);
    EXPECT_EQ(up.first[0].code, "17");
    EXPECT_EQ(up.first[1].code, "1");
    EXPECT_EQ(up.first[2].code, "5000");
    EXPECT_EQ(up.first.back().code, "3003");
    EXPECT_EQ(up.first[0].before, 1);
    EXPECT_EQ(up.first[0].now, 2);
}

TEST_F(CatalogNewsTest, AreToldToBeUnknownWhereFilesAreDamaged) {
    write({{"A\nx", 1}, {"B\nx", 1}}, {{"A\nx", 2}, {"B\nx", 2}});
    const auto index = base::readFile(folder / "before" / "PrdIdx.idx").value();
    base::replaceFile(folder / "before" / "PrdIdx.idx", index.substr(24) + index.substr(0, 24));
    EXPECT_THAT(refusal(), HasSubstr("PrdIdx.idx is damaged\n"));
    base::replaceFile(folder / "before" / "PrdIdx.idx", "");
    EXPECT_THAT(refusal(), HasSubstr("PrdIdx.idx is damaged\n"));
    fs::remove(folder / "before" / "PrdIdx.idx");
    EXPECT_THAT(refusal(), HasSubstr("cannot be read\n"));
}

// Any bytes give an answer: a wrong record is no article, and nothing is read outside.
TEST_F(CatalogNewsTest, OfAnyBytesAreAnAnswer) {
    std::mt19937 random(3);
    write({{"A\nx", 1}, {"B\nx", 1}, {"C\nx", 3}}, {{"A\nx", 2}, {"B\nx", 1}, {"D\nx", 3}});
    const auto index = base::readFile(folder / "now" / "PrdIdx.idx").value();
    for (int round = 0; round < 200; ++round) {
        auto bytes = index.substr(0, random() % (index.size() + 1));
        for (int i = 0; i < 3 && !bytes.empty(); ++i)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        base::replaceFile(folder / "now" / "PrdIdx.idx", bytes);
        EXPECT_THAT(refusal(), testing::AnyOf("0 up", "1 up", HasSubstr(" is damaged\n")));
    }
}

TEST_F(CatalogNewsTest, CanBeStopped) {
    write({{"A\nx", 1}}, {{"A\nx", 2}});
    std::stop_source stop;
    stop.request_stop();
    EXPECT_FALSE(order::newsOf(catalog::openCatalog(folder / "now"), order::openEarlier(folder / "before"),
                               {}, stop.get_token()));
}

}
