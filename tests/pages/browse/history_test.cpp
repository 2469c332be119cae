#include "pages/browse/history.h"

#include <gtest/gtest.h>

namespace {

// What pressing Back shows, with the record pushed again as the grid does.
int goBack(pages::History& history, int shown) {
    const auto record = history.back(shown);
    if (!record)
        return 0;
    history.push(*record);
    return *record;
}

TEST(History, GoesBackRecordByRecordToTheFirst) {
    pages::History history;
    for (const int record : {5, 9, 12})
        history.push(record);
    EXPECT_EQ(goBack(history, 12), 9);
    EXPECT_FALSE(history.holdsOnly(9));
    EXPECT_EQ(goBack(history, 9), 5);
    EXPECT_TRUE(history.holdsOnly(5));
}

TEST(History, ARecordShownTwiceInARowIsThereTwice) {
    pages::History history;
    for (const int record : {5, 9, 9})
        history.push(record);
    EXPECT_EQ(goBack(history, 9), 9);
    EXPECT_EQ(goBack(history, 9), 5);
}

TEST(History, ReturnsToTheNewestWhenAnotherRecordIsShown) {
    pages::History history;
    history.push(5);
    EXPECT_EQ(goBack(history, 7), 5);
}

TEST(History, EmptyItGoesNowhere) {
    pages::History history;
    EXPECT_EQ(goBack(history, 1), 0);
    EXPECT_EQ(history.size(), 0U);
}

}
