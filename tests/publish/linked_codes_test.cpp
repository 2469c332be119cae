#include "publish/linked_codes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

TEST(Links, CodesBehindThePageNameAreFound) {
    EXPECT_THAT(publish::linkedCodes(
                    "<a href=\"Tmp.htm?AB 1\">x</a> <a href='TMP.HTM|c%2fD'> <a href=Tmp.htm?a&amp;b>"
                    "<a href=\"Tmp.htm?{CODE}\"><a href=\"Tmp.htm\"> other.htm?x Tmp.htm??q"),
                ElementsAre("AB 1", "c/D", "a&b", "?q"));
}

}
