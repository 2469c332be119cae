#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace base {

/// Finds a phrase in a large text without regard to case, about as fast as the text can be read from
/// memory. Nothing of the text is copied; it must live as long as the finder.
class CaselessFinder {
public:
    /// The phrase is in upper case already and not empty.
    CaselessFinder(std::string_view text, std::string phrase);

    /// Whether the occurrence that begins there counts.
    using Judge = std::function<bool(std::size_t position)>;

    static bool all(std::size_t) { return true; }

    /// The first occurrence that counts and begins at `from` or behind it; npos where there is none.
    [[nodiscard]] std::size_t find(std::size_t from, const Judge& counts = all) const;

    /// The last occurrence that counts and begins before `end`; npos where there is none.
    [[nodiscard]] std::size_t findLast(std::size_t end, const Judge& counts = all) const;

    /// One of the two characters of the phrase that are looked for first. A byte of the text may be it when
    /// `(byte | mask) == value`; both letter cases are.
    struct Probe {
        std::size_t offset; ///< in the phrase
        unsigned char mask;
        unsigned char value;
    };

private:
    struct Comparison;

    [[nodiscard]] bool standsAt(std::size_t position) const;
    [[nodiscard]] std::size_t firstInBlock(std::size_t begin, const Judge& counts) const;
    [[nodiscard]] std::size_t lastInBlock(std::size_t begin, const Judge& counts) const;

    std::string_view m_text;
    std::string m_phrase;
    std::size_t m_starts; // how many places of the text have room for the phrase behind them
    std::array<Probe, 2> m_probes{};
};

}
