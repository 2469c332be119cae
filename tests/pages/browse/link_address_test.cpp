#include "pages/browse/link_address.h"

#include <gtest/gtest.h>

namespace {

TEST(LinkAddress, ReadsWhatTheBrowserMakesOfALinkAsItWasWritten) {
    const std::string folder = "file:///home/anna/ACME/";
    const std::string read = "\\home\\anna\\ACME\\";

    const struct {
        const char* encoded;
        const char* text;
    } cases[] = {
        {"Tmp.htm", "Tmp.htm"},
        {"Tmp.htm?AB%201", "Tmp.htm?AB 1"},
        {"Tmp.htm%7CAB%201", "Tmp.htm|AB 1"},
        {"Tmp.htm?A/B", "Tmp.htm?A/B"},
        {"Tmp.htm?A%5CB", "Tmp.htm?A\\B"},
        {"Tmp.htm?A#B", "Tmp.htm?A#B"},
        {"Tmp.htm?A%22B%3CC", "Tmp.htm?A\"B<C"},
        {"Tmp.htm?50%25%2520OFF", "Tmp.htm?50% OFF"},
        {"Tmp.htm%257C50%25%2520OFF", "Tmp.htm|50% OFF"},
        {"Tmp.htm?A%25B", "Tmp.htm?A%B"},
        {"Tmp.htm?%C4", "Tmp.htm?\xC4"},
        {"Tmp.htm%7C%C3%84", "Tmp.htm|\xC4"},
        {"Tmp.htm?%C4#%C3%84", "Tmp.htm?\xC4#\xC4"},
        {"Tmp.htm?%", "Tmp.htm?%"},
        {"Tmp.htm?%4", "Tmp.htm?%4"},
        {"-ACME", "-ACME"},
        {"Acme%20Co", "Acme Co"},
        {"Caf%C3%A9%CE%A9", "Caf\xE9&#937;"},
    };

    for (const auto& c : cases) {
        const auto address = pages::readAddress(folder + c.encoded);
        EXPECT_EQ(address.text, read + c.text) << c.encoded;
        EXPECT_TRUE(address.isFile) << c.encoded;
    }
}

TEST(LinkAddress, KnowsWhatIsNoFileOfThisComputer) {
    for (const char* encoded : {"http://example.com/X.HTM?AB%201", "mailto:a@b?subject=x",
                                "file://server/share/x.htm", "c:%5CProg%5CTmp.htm", "", "?", "%"})
        EXPECT_FALSE(pages::readAddress(encoded).isFile) << encoded;
    EXPECT_EQ(pages::readAddress("mailto:a%40b").text, "mailto:a@b");
    EXPECT_EQ(pages::readAddress("file:///C:/Prog/ACME/Tmp.htm?A").text, "C:\\Prog\\ACME\\Tmp.htm?A");
}

}
