#include "base/text.h"
#include "tests/order/sample_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// The order templates of the catalogues that come with the program.
TEST(SampleTemplates, GiveOrdersInWhichNothingIsLeftToFill) {
    int templates = 0;
    for (const auto& entry : fs::recursive_directory_iterator(TAVORINE_SAMPLES)) {
        const auto name = base::upper(entry.path().filename().string());
        const bool isPage = name.starts_with("PRTORD");
        if (!isPage && !name.starts_with("EMLORD"))
            continue;
        SampleOrder sample;
        sample.fillRows(60);
        sample.contents.details.attention.clear();
        const auto text = base::readFile(entry.path()).value();
        const auto document = isPage ? sample.page(text) : sample.mailText(text);
        for (const auto* left : {"{", "}", "R1>", "PH>"})
            EXPECT_EQ(document.find(left), std::string::npos) << entry.path();
        EXPECT_THAT(document, testing::HasSubstr("A-7")) << entry.path();
        EXPECT_THAT(document, testing::HasSubstr("60")) << entry.path();
        EXPECT_EQ(document.find("page-break-before") != std::string::npos, isPage) << entry.path();
        ++templates;
    }
    EXPECT_GE(templates, 5);
}

}
