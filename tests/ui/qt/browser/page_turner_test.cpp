#include "ui/qt/browser/page_turner.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

class PageTurnerTest : public testing::Test {
protected:
    PageTurnerTest() {
        turner.start();
        QTest::qWait(0);
    }

    std::vector<int> shown;
    ui::qt::PageBrowser browser{"WbPage", "Page", nullptr};
    ui::qt::PageTurner turner{browser, [this](int row) { shown.push_back(row); }, nullptr};
};

TEST_F(PageTurnerTest, ShowsTheLastRowOfABurst) {
    for (int row = 0; row < 1000; ++row)
        turner.turnTo(row);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !shown.empty(); }));
    QTest::qWait(0);
    EXPECT_EQ(shown, std::vector{999});
}

}
