#include "tests/publish/existing/random_catalog.h"

#include "base/files.h"
#include "catalog/catalog.h"

#include <algorithm>
#include <array>

namespace support {
namespace {

int below(Random& random, std::size_t end) {
    return static_cast<int>(random() % end);
}

template <typename Items>
auto oneOf(Random& random, const Items& items) {
    return items[random() % std::size(items)];
}

std::string randomText(Random& random) {
    constexpr const char* words[] = {"Bolt",   "M6 \xD7 30", "\"best\"", "a,b;c",
                                     "&#937;", "\x81",       "x/y",      "10 %"};
    std::string text = oneOf(random, words);
    for (int more = below(random, 3); more > 0; --more)
        text.append(" ").append(oneOf(random, words));
    return text;
}

std::string randomMemo(Random& random) {
    constexpr const char* lines[] = {"One", "two\n", "\n\n", "<b>bold</b>\r\n", " ", "\t", ""};
    std::string text;
    for (int more = below(random, 5); more > 0; --more)
        text += oneOf(random, lines);
    return text;
}

/// Puts groups and records in order.
class Builder {
public:
    explicit Builder(Random& random) : m_random(random) {}

    CatalogBuilder run() {
        m_catalog.version = oneOf(m_random, std::array{"00001", "1", "", "9.9 "});
        m_catalog.texts = {{catalog::ParameterText::supplierName, randomText(m_random)},
                           {catalog::ParameterText::taxName, "VAT%"}};
        m_catalog.catalogPassword = oneOf(m_random, std::array{"", "SECRET", "low"});
        m_catalog.groupPageStyle = oneOf(m_random, std::array{'I', 'T', 'x'});
        m_catalog.groups.push_back({.name = oneOf(m_random, std::array{"Table of Contents", "All"})});
        addGroup(0, 0);
        return m_catalog;
    }

private:
    // Children are numbered together, then each is written with what it holds.
    void addGroup(std::size_t group, int level) {
        const auto number = static_cast<std::int16_t>(group + 1);
        add({.text = "G" + std::to_string(number) + "\n" + m_catalog.groups[group].name + "\n",
             .group = number,
             .memo = randomMemo(m_random),
             .flag = 'N'});
        m_catalog.groups[group].headerRecord = static_cast<std::int32_t>(m_catalog.products.size());
        const int children = level < 3 ? below(m_random, level == 0 ? 4 : 3) : 0;
        const auto first = m_catalog.groups.size();
        for (int i = 0; i < children; ++i)
            m_catalog.groups.push_back({.name = randomText(m_random), .parent = number});
        if (children > 0)
            m_catalog.groups[group].firstChild = static_cast<std::int32_t>(first + 1);
        for (std::size_t i = 0; i < static_cast<std::size_t>(children); ++i)
            addGroup(first + i, level + 1);
        if (children == 0)
            for (int products = below(m_random, 4); products > 0; --products)
                addProduct(number);
    }

    void addProduct(std::int16_t group) {
        Product product{.text = "P" + std::to_string(m_catalog.products.size()) + "\n" + randomText(m_random),
                        .price = static_cast<float>(below(m_random, 100000)) / 100,
                        .taxRate = oneOf(m_random, std::array{0.0F, 7.5F, 20.0F}),
                        .group = group,
                        .memo = randomMemo(m_random),
                        .picture = oneOf(m_random, std::array{"", "p/x.jpg"})};
        if (below(m_random, 3) > 0)
            product.text += "\n" + randomText(m_random);
        if (below(m_random, 8) == 0)
            product.memoPlace = Product::Place{1, 5};
        add(std::move(product));
    }

    void add(Product product) { m_catalog.products.push_back(std::move(product)); }

    Random& m_random;
    CatalogBuilder m_catalog;
};

void flipBytes(std::string& bytes, Random& random) {
    for (int flips = below(random, 20) + 1; flips > 0 && !bytes.empty(); --flips)
        bytes[random() % bytes.size()] =
            oneOf(random, std::array{'\0', '\xFF', '\x01', 'N', '\n', ' ', '\x7F'});
}

void cut(std::string& bytes, Random& random) {
    bytes.resize(random() % (bytes.size() + 1));
}

void lengthen(std::string& bytes, Random& random) {
    bytes.append(random() % 200, oneOf(random, std::array{' ', '\0', 'Y'}));
}

void turn(std::string& bytes, Random& random) {
    std::rotate(bytes.begin(), bytes.begin() + below(random, bytes.size() + 1), bytes.end());
}

}

CatalogBuilder randomCatalog(Random& random) {
    return Builder(random).run();
}

void damage(const std::filesystem::path& folder, Random& random) {
    constexpr std::array files{catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                               catalog::indexFile, catalog::memosFile};
    constexpr std::array ways{flipBytes, cut, lengthen, turn};
    for (int times = below(random, 3) + 1; times > 0; --times) {
        const auto name = oneOf(random, files);
        auto bytes = base::readFile(folder / name).value();
        oneOf(random, ways)(bytes, random);
        if (name == catalog::parametersFile) // a shorter one is not opened
            bytes.resize(std::max<std::size_t>(bytes.size(), 760), ' ');
        base::replaceFile(folder / name, bytes);
    }
}

}
