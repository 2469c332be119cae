#include "base/caseless_finder.h"

#include "base/text.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// The loops below are written so that the compiler makes vector instructions of them; here it makes them
// twice, and the processor's better ones are chosen when the program starts.
#if defined(__GNUC__) && defined(__x86_64__) && defined(__linux__)
#define TAVORINE_VECTOR_LOOP __attribute__((target_clones("avx2", "default")))
#else
#define TAVORINE_VECTOR_LOOP
#endif

namespace base {
namespace {

using Byte = unsigned char;
using Probe = CaselessFinder::Probe;
using Counts = std::array<std::uint32_t, 256>;

constexpr std::size_t blockLength = 128;
constexpr std::size_t sampleCount = 8;
constexpr std::size_t sampleLength = 512;

/// Where a block's comparisons begin: the text shifted by the offset of each probe.
struct Compared {
    const Byte* first;
    const Byte* second;
    Probe firstProbe;
    Probe secondProbe;
};

inline Byte mayStandAt(const Compared& at, std::size_t i) {
    const auto first = static_cast<Byte>(at.first[i] | at.firstProbe.mask) == at.firstProbe.value;
    const auto second = static_cast<Byte>(at.second[i] | at.secondProbe.mask) == at.secondProbe.value;
    return static_cast<Byte>(first & second);
}

inline Byte anyInBlock(Compared at, std::size_t block) {
    at.first += block * blockLength;
    at.second += block * blockLength;
    Byte any = 0;
    for (std::size_t i = 0; i < blockLength; ++i)
        any = static_cast<Byte>(any | mayStandAt(at, i));
    return any;
}

// The first block in which the phrase may stand, or `blocks`.
TAVORINE_VECTOR_LOOP
std::size_t firstBlock(const Compared& at, std::size_t blocks) {
    std::size_t block = 0;
    while (block < blocks && anyInBlock(at, block) == 0)
        ++block;
    return block;
}

// One past the last block in which the phrase may stand, or 0.
TAVORINE_VECTOR_LOOP
std::size_t lastBlockEnd(const Compared& at, std::size_t blocks) {
    while (blocks > 0 && anyInBlock(at, blocks - 1) == 0)
        --blocks;
    return blocks;
}

/// Places of a block, a bit each, the first one lowest.
using Places = std::array<std::uint64_t, blockLength / 64>;

#ifdef __SSE2__
std::uint64_t placesAmong64(const Byte* flags) {
    std::uint64_t places = 0;
    for (unsigned i = 0; i < 64; i += sizeof(__m128i)) {
        const auto sixteen = _mm_loadu_si128(reinterpret_cast<const __m128i*>(flags + i));
        const auto isSet = _mm_movemask_epi8(_mm_sub_epi8(_mm_setzero_si128(), sixteen)); // the highest bits
        places |= std::uint64_t{static_cast<unsigned>(isSet)} << i;
    }
    return places;
}
#else
std::uint64_t placesAmong64(const Byte* flags) {
    std::uint64_t places = 0;
    for (unsigned i = 0; i < 64; ++i)
        places |= std::uint64_t{flags[i]} << i;
    return places;
}
#endif

using Flags = std::array<Byte, blockLength>;

// 1 for each place of the block where the phrase may stand, 0 for the others.
TAVORINE_VECTOR_LOOP
Flags flagsOf(const Compared& at) {
    Flags flags;
    for (std::size_t i = 0; i < blockLength; ++i)
        flags[i] = mayStandAt(at, i);
    return flags;
}

// Where the phrase may stand in the block.
Places placesOf(const Compared& at) {
    const auto flags = flagsOf(at);
    return {placesAmong64(flags.data()), placesAmong64(flags.data() + 64)};
}

// How often each character stands in a few pieces of the text.
Counts sampled(std::string_view text) {
    Counts counts{};
    for (std::size_t i = 0; i < sampleCount; ++i)
        for (const char c : text.substr(text.size() / sampleCount * i, sampleLength))
            ++counts[static_cast<Byte>(upper(c))];
    return counts;
}

char otherCase(char upperCase) {
    for (unsigned c = 0; c < 256; ++c)
        if (const auto other = static_cast<char>(c); other != upperCase && upper(other) == upperCase)
            return other;
    return upperCase;
}

Probe probeAt(std::string_view phrase, std::size_t offset) {
    const auto character = static_cast<Byte>(phrase[offset]);
    const auto mask = static_cast<Byte>(character ^ static_cast<Byte>(otherCase(phrase[offset])));
    return {offset, mask, static_cast<Byte>(character | mask)};
}

// The two places of the phrase whose characters are rarest in the text, so that little has to be looked
// at twice; the same place twice for a phrase of one character.
std::array<std::size_t, 2> rarestPlaces(std::string_view phrase, const Counts& counts) {
    const auto count = [&](std::size_t place) { return counts[static_cast<Byte>(phrase[place])]; };
    std::array<std::size_t, 2> rarest{0, phrase.size() - 1};
    if (phrase.size() > 1 && count(rarest[1]) < count(rarest[0]))
        std::swap(rarest[0], rarest[1]);
    for (std::size_t place = 1; place + 1 < phrase.size(); ++place) {
        if (count(place) < count(rarest[0]))
            rarest = {place, rarest[0]};
        else if (count(place) < count(rarest[1]))
            rarest[1] = place;
    }
    return rarest;
}

}

CaselessFinder::CaselessFinder(std::string_view text, std::string phrase)
    : m_text(text),
      m_phrase(std::move(phrase)),
      m_starts(text.size() < m_phrase.size() ? 0 : text.size() - m_phrase.size() + 1) {
    const auto places = rarestPlaces(m_phrase, sampled(text));
    m_probes = {probeAt(m_phrase, places[0]), probeAt(m_phrase, places[1])};
}

bool CaselessFinder::standsAt(std::size_t position) const {
    return std::equal(m_phrase.begin(), m_phrase.end(), m_text.data() + position,
                      [](char wanted, char found) { return wanted == upper(found); });
}

struct CaselessFinder::Comparison : Compared {
    Comparison(const CaselessFinder& finder, std::size_t begin)
        : Compared{byteAt(finder, begin, 0), byteAt(finder, begin, 1), finder.m_probes[0],
                   finder.m_probes[1]} {}

    static const Byte* byteAt(const CaselessFinder& finder, std::size_t begin, std::size_t probe) {
        return reinterpret_cast<const Byte*>(finder.m_text.data()) + begin + finder.m_probes[probe].offset;
    }
};

std::size_t CaselessFinder::firstInBlock(std::size_t begin, const Judge& counts) const {
    const auto places = placesOf(Comparison(*this, begin));
    for (std::size_t word = 0; word < places.size(); ++word)
        for (auto rest = places[word]; rest != 0; rest &= rest - 1) {
            const auto position = begin + word * 64 + static_cast<std::size_t>(std::countr_zero(rest));
            if (standsAt(position) && counts(position))
                return position;
        }
    return std::string_view::npos;
}

std::size_t CaselessFinder::lastInBlock(std::size_t begin, const Judge& counts) const {
    const auto places = placesOf(Comparison(*this, begin));
    for (std::size_t word = places.size(); word-- > 0;)
        for (auto rest = places[word]; rest != 0; rest = std::bit_floor(rest) ^ rest) {
            const auto position = begin + word * 64 + static_cast<std::size_t>(std::bit_width(rest)) - 1;
            if (standsAt(position) && counts(position))
                return position;
        }
    return std::string_view::npos;
}

std::size_t CaselessFinder::find(std::size_t from, const Judge& counts) const {
    while (from + blockLength <= m_starts) {
        const auto blocks = (m_starts - from) / blockLength;
        const auto block = firstBlock(Comparison(*this, from), blocks);
        from += block * blockLength;
        if (block == blocks)
            break;
        if (const auto found = firstInBlock(from, counts); found != std::string_view::npos)
            return found;
        from += blockLength;
    }
    for (; from < m_starts; ++from)
        if (standsAt(from) && counts(from))
            return from;
    return std::string_view::npos;
}

std::size_t CaselessFinder::findLast(std::size_t end, const Judge& counts) const {
    end = std::min(end, m_starts);
    while (end >= blockLength) {
        const auto begin = end % blockLength; // the blocks reach up to `end`
        end = begin + lastBlockEnd(Comparison(*this, begin), end / blockLength) * blockLength;
        if (end == begin)
            break;
        if (const auto found = lastInBlock(end - blockLength, counts); found != std::string_view::npos)
            return found;
        end -= blockLength;
    }
    while (end > 0)
        if (standsAt(--end) && counts(end))
            return end;
    return std::string_view::npos;
}

}
