#include "order/paper/joined_pdf.h"

#include <gtest/gtest.h>

#include <random>
#include <regex>
#include <vector>

namespace {

/// A PDF of pages as wide as said.
std::string pdfOf(const std::vector<int>& widths, const std::string& scale = "1") {
    std::string pages;
    std::vector<std::string> objects{"<< /Type /Catalog /Pages 2 0 R >>", ""};
    for (const int width : widths) {
        const auto content = "q " + scale + " 0 0 1 0 0 cm 0 0 9 9 re f Q";
        const auto number = objects.size() + 1;
        pages += std::to_string(number) + " 0 R ";
        objects.push_back("<< /Type /Page /Parent 2 0 R /Contents " + std::to_string(number + 1) +
                          " 0 R /MediaBox [ 0 0 " + std::to_string(width) + " 9 ] >>");
        objects.push_back("<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content +
                          "\nendstream");
    }
    objects[1] = "<< /Type /Pages /Count " + std::to_string(widths.size()) + " /Kids [ " + pages + "] >>";
    std::string pdf = "%PDF-1.4\n";
    std::string places = "0000000000 65535 f \n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const auto place = std::to_string(pdf.size());
        places += std::string(10 - place.size(), '0') + place + " 00000 n \n";
        pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const auto size = std::to_string(objects.size() + 1);
    return pdf + "xref\n0 " + size + "\n" + places + "trailer\n<< /Size " + size +
           " /Root 1 0 R >>\nstartxref\n" + std::to_string(pdf.size()) + "\n%%EOF\n";
}

std::vector<int> widthsOf(const std::string& pdf) {
    static const std::regex box(R"(/MediaBox \[ 0 0 (\d+))");
    std::vector<int> widths;
    for (std::sregex_iterator it(pdf.begin(), pdf.end(), box), end; it != end; ++it)
        widths.push_back(std::stoi((*it)[1]));
    return widths;
}

bool every(int) {
    return true;
}

TEST(JoinedPdf, HoldsTheWantedPagesInTheirOrder) {
    order::JoinedPdf joined([](int page) { return page != 2; });
    EXPECT_TRUE(joined.add(pdfOf({11, 12, 13}), 0, 1));
    EXPECT_TRUE(joined.add(pdfOf({11, 21, 22, 23}), 1, 1));
    EXPECT_TRUE(joined.add(pdfOf({11, 31}), 1, 0));
    EXPECT_EQ(joined.pages(), 5);
    EXPECT_EQ(widthsOf(joined.bytes()), (std::vector{11, 21, 22, 31}));
}

TEST(JoinedPdf, IsEmptyWithoutAPage) {
    order::JoinedPdf joined([](int) { return false; });
    EXPECT_EQ(joined.bytes(), "");
    EXPECT_TRUE(joined.add(pdfOf({11}), 0, 0));
    EXPECT_EQ(joined.bytes(), "");
}

TEST(JoinedPdf, RefusesWhatIsNoPieceOfThePage) {
    for (const auto& piece : {std::string(), std::string(999, '\xFF'), std::string("%PDF-1.4\n%%EOF\n"),
                              pdfOf({}), pdfOf({11, 12}), pdfOf({11, 12, 13}, "0.9")}) {
        order::JoinedPdf joined(every);
        ASSERT_TRUE(joined.add(pdfOf({1, 2}), 0, 0));
        EXPECT_FALSE(joined.add(piece, 1, 1)) << piece;
    }
}

// The library mends what it can, by guessing; a page less would not be noticed on the paper.
TEST(JoinedPdf, RefusesADamagedPdf) {
    const auto pdf = pdfOf({11, 12, 13});
    for (std::size_t length = 0; length < pdf.find("startxref"); ++length)
        EXPECT_FALSE(order::JoinedPdf(every).add(std::string_view(pdf).substr(0, length), 0, 0)) << length;
    std::mt19937 random(1);
    for (int times = 0; times < 500; ++times) {
        auto damaged = pdf;
        for (int i = 0; i < 3; ++i)
            damaged[random() % damaged.size()] = static_cast<char>(random());
        order::JoinedPdf joined(every);
        const auto bytes = joined.add(damaged, 0, 0) ? joined.bytes() : std::string();
        order::JoinedPdf again(every);
        EXPECT_TRUE(bytes.empty() || again.add(bytes, 0, 0)) << damaged;
        EXPECT_EQ(again.pages(), bytes.empty() ? 0 : joined.pages()) << damaged;
    }
}

}
