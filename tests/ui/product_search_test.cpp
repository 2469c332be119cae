#include "base/files.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"
#include "ui/grid_cells.h"
#include "ui/product_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using catalog::ProductRecord;
using catalog::ProductTable;
using ui::Direction;
using ui::Field;
using ui::SearchedColumns;
using Row = std::optional<std::int32_t>;

constexpr SearchedColumns all{true, true, true};

bool holds(const std::string& cell, const std::string& phrase) {
    return !cell.empty() && base::upper(cell).find(phrase) != std::string::npos;
}

// Row by row, cell by cell, as a person would.
Row plainSearch(const ProductTable& products, const std::string& typed, SearchedColumns columns,
                std::int32_t start, int step) {
    const std::string phrase(base::trim(base::upper(typed)));
    for (auto row = start; row >= 0 && row < products.count(); row += step) {
        const auto cellHolds = [&](Field field) {
            return holds(ui::productCell(products.at(row + 1), {}, field), phrase);
        };
        if ((columns.code && cellHolds(Field::code)) ||
            (columns.description && cellHolds(Field::description)) ||
            (columns.other && cellHolds(Field::other)))
            return row;
    }
    return std::nullopt;
}

/// Catalogues of records with few different characters in them, so that phrases stand everywhere: in cells,
/// across their borders, in other fields and across records.
class RandomCatalogs {
public:
    explicit RandomCatalogs(unsigned seed) : m_random(seed) {}

    std::size_t below(std::size_t end) { return m_random() % end; }

    std::string text(std::size_t length) {
        constexpr std::string_view alphabet = "\n  aAbBxX1\xE9\xC9\xFF\x9F\x9A\x8A\xDF";
        std::string text(length, ' ');
        for (char& c : text)
            c = alphabet[below(alphabet.size())];
        return text;
    }

    std::string records(std::size_t count) {
        std::string bytes;
        for (std::size_t i = 0; i < count; ++i)
            bytes += record();
        return bytes;
    }

    /// Of what the records hold, or anything.
    std::string phrase(const std::string& bytes) {
        const auto length = below(below(3) == 0 ? 41 : 5);
        if (bytes.size() < 50 || below(3) == 0)
            return text(length);
        auto phrase = bytes.substr(below(bytes.size() - 41), length);
        for (char& c : phrase)
            c = below(2) == 0 ? base::upper(c) : c;
        return below(4) == 0 ? "  " + phrase + " " : phrase;
    }

private:
    std::string record() {
        auto bytes = text(ProductRecord::length);
        auto field = text(below(ProductRecord::textField.width + 1));
        if (below(5) == 0)
            std::replace(field.begin(), field.end(), '\n', '-');
        field.resize(ProductRecord::textField.width, ' ');
        return bytes.replace(ProductRecord::textField.offset, field.size(), field);
    }

    std::mt19937 m_random;
};

TEST(ProductSearch, EqualsAPlainSearchRowByRow) {
    const auto folder = support::testFolder();
    RandomCatalogs random(20);
    int found = 0;
    for (const std::size_t count : {0U, 1U, 2U, 3U, 40U, 41U, 300U, 300U}) {
        const auto bytes = random.records(count);
        const auto path = folder / ("Prdlst" + std::to_string(random.below(1'000'000)));
        base::replaceFile(path, bytes + random.text(random.below(ProductRecord::length)));
        const ProductTable products(path);
        const auto rows = static_cast<std::int32_t>(count);
        ASSERT_EQ(products.count(), rows);
        for (int i = 0; i < 1500; ++i) {
            const auto phrase = random.phrase(bytes);
            const auto mask = random.below(8);
            const SearchedColumns columns{(mask & 1) != 0, (mask & 2) != 0, (mask & 4) != 0};
            const auto start = static_cast<std::int32_t>(random.below(count + 3)) - 1;
            const auto down = ui::searchProducts(products, phrase, columns, start, Direction::down);
            ASSERT_EQ(down, plainSearch(products, phrase, columns, start, 1))
                << phrase << mask << " " << start;
            const auto up = ui::searchProducts(products, phrase, columns, start, Direction::up);
            ASSERT_EQ(up, plainSearch(products, phrase, columns, start, -1))
                << phrase << mask << " " << start;
            found += down.has_value() ? 1 : 0;
        }
    }
    EXPECT_GT(found, 2000); // or the phrases try nothing
}

TEST(ProductSearch, LooksIntoCellsAndNowhereElse) {
    support::CatalogBuilder builder;
    builder.products = {{.text = "A1\nSmall bolt\nBox of 9", .picture = "picture.jpg"},
                        {.text = "no line feed"},
                        {.text = "B2\nGro\xDF"
                                 "er M\xDCller\n\xFF\n  two  lines "},
                        {.text = "", .flag = 'N'},
                        {.text = "C3\n\n"}};
    const auto folder = support::testFolder();
    builder.writeTo(folder);
    const ProductTable products(folder / "Prdlst.dat");
    constexpr SearchedColumns code{true, false, false};
    constexpr SearchedColumns other{false, false, true};

    const struct {
        const char* what;
        const char* phrase;
        SearchedColumns columns;
        std::int32_t start;
        Row row;
    } cases[] = {
        {"any letter case", "bOLT", all, 0, 0},
        {"letters of the code page", "m\xFCLLER", all, 0, 2},
        {"a sharp s has one case", "gross", all, 0, {}},
        {"a letter whose capital is far away", "\x9F", all, 0, 2},
        {"a column that is not searched", "bolt", code, 0, {}},
        {"across columns", "A1 Small", all, 0, {}},
        {"across columns, with the line feed", "A1\nSmall", all, 0, {}},
        {"a line feed inside the last column", "\xFF\n  two", other, 0, 2},
        {"blanks inside count", "two  lines", all, 0, 2},
        {"blanks around the phrase do not", "  two ", all, 0, 2},
        {"a text without a line feed has no cells", "line feed", all, 0, {}},
        {"the picture's name", "picture", all, 0, {}},
        {"an empty phrase", "", all, 1, 2},
        {"an empty phrase, where only the code is there", "   ", all, 3, 4},
        {"an empty phrase in a column that is empty", "", other, 3, {}},
        {"longer than any cell",
         "Box of 9                                                                     "
         "                              x",
         all,
         0,
         {}},
        {"nothing ticked", "bolt", {}, 0, {}},
        {"above the first row", "bolt", all, -1, {}},
        {"below the last row", "bolt", all, 5, {}},
    };

    for (const auto& c : cases)
        EXPECT_EQ(ui::searchProducts(products, c.phrase, c.columns, c.start, Direction::down), c.row)
            << c.what;
}

}
