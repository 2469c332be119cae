#include "base/caseless_finder.h"
#include "base/text.h"

#include <gtest/gtest.h>

#include <random>

namespace {

constexpr auto npos = std::string_view::npos;

std::string randomText(std::mt19937& random, std::size_t length, std::string_view alphabet) {
    std::string text(length, ' ');
    for (char& c : text)
        c = alphabet[random() % alphabet.size()];
    return text;
}

TEST(CaselessFinder, FindsWhatAPlainSearchFindsInBothDirections) {
    std::mt19937 random(7);
    constexpr std::string_view alphabet = "abAB\xE4\xC4\xFF\x9F\x9A\x8A";
    for (int round = 0; round < 400; ++round) {
        const auto text = randomText(random, random() % 700, alphabet);
        const auto phrase = base::upper(randomText(random, 1 + random() % 6, alphabet));
        const base::CaselessFinder finder(text, phrase);
        const auto plain = base::upper(text);
        for (std::size_t from = 0; from <= text.size() + 1; from += 1 + random() % 40) {
            ASSERT_EQ(finder.find(from), plain.find(phrase, from)) << round;
            ASSERT_EQ(finder.findLast(from), from == 0 ? npos : plain.rfind(phrase, from - 1)) << round;
        }
    }
}

TEST(CaselessFinder, TellsEveryByteFromThoseThatAreNotItsOtherCase) {
    for (unsigned wanted = 0; wanted < 256; ++wanted)
        for (unsigned found = 0; found < 256; ++found) {
            const std::string text(200, static_cast<char>(found));
            const auto phrase = base::upper(std::string(1, static_cast<char>(wanted)));
            const bool equal = base::upper(text)[0] == phrase[0];
            ASSERT_EQ(base::CaselessFinder(text, phrase).find(0), equal ? 0 : npos) << wanted << " " << found;
            ASSERT_EQ(base::CaselessFinder(text, phrase).findLast(200), equal ? 199 : npos)
                << wanted << " " << found;
        }
}

}
