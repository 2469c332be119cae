#include "publish/existing/export/patch_file.h"

#include "base/bytes.h"
#include "base/code_page.h"
#include "base/errors.h"

#include <algorithm>
#include <fstream>

namespace publish {
namespace fs = std::filesystem;

namespace {

// The head of the file and of each range, numbers little-endian.
constexpr std::string_view mark = "Exact 1\n";
constexpr std::size_t togetherOffset = 8;
constexpr std::size_t builtOffset = 9;
constexpr std::size_t originalOffset = 25;
constexpr std::size_t countOffset = 41;
constexpr std::size_t headLength = 49;
constexpr std::size_t rangeHeadLength = 24;

constexpr std::size_t leastGap = 16;        // equal bytes that are worth a range of their own
constexpr std::size_t mostRanges = 1 << 20; // about; in larger files ranges lie farther apart

std::span<const std::byte> asBytes(std::string_view text) {
    return std::as_bytes(std::span(text));
}

std::uint64_t numberAt(std::string_view bytes, std::size_t offset) {
    return base::readNumber<std::uint64_t>(asBytes(bytes), offset);
}

Patch::Whole wholeAt(std::string_view bytes, std::size_t offset) {
    return {numberAt(bytes, offset), numberAt(bytes, offset + 8)};
}

void putWhole(std::span<std::byte> bytes, std::size_t offset, const Patch::Whole& whole) {
    base::writeNumber(bytes, offset, whole.size);
    base::writeNumber(bytes, offset + 8, whole.sum);
}

// Where the files are equal from `at` on for so many bytes, or where they end.
std::size_t endOfDifference(std::string_view a, std::string_view b, std::size_t at, std::size_t gap) {
    std::size_t equal = 0;
    for (; at < a.size() && equal < gap; ++at)
        equal = a[at] == b[at] ? equal + 1 : 0;
    return at - equal;
}

std::size_t nextDifference(std::string_view a, std::string_view b, std::size_t at) {
    const auto start = static_cast<std::ptrdiff_t>(at);
    return static_cast<std::size_t>(std::mismatch(a.begin() + start, a.end(), b.begin() + start).first -
                                    a.begin());
}

// Ranges fill what the built file lacks, without a hole, and keep their order.
bool makesSense(const Patch& patch) {
    std::uint64_t filled = std::min(patch.built.size, patch.original.size);
    std::uint64_t end = 0;
    for (const auto& range : patch.ranges) {
        if (range.offset < end || range.offset > filled || range.bytes.empty())
            return false;
        end = range.offset + range.bytes.size();
        filled = std::max(filled, end);
    }
    return filled == patch.original.size;
}

}

std::uint64_t checkSum(std::string_view bytes) {
    std::uint64_t sum = 0xCBF29CE484222325U; // FNV-1a
    for (const char c : bytes)
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return sum;
}

Patch::Whole wholeOf(std::string_view bytes) {
    return {bytes.size(), checkSum(bytes)};
}

std::string_view replacedBy(const Patch::Range& range, std::string_view built) {
    return range.offset < built.size() ? built.substr(range.offset, range.bytes.size()) : std::string_view{};
}

Patch differenceOf(std::string_view built, std::string_view original) {
    Patch patch{.built = wholeOf(built), .original = wholeOf(original)};
    const auto both = std::min(built.size(), original.size());
    const auto gap = std::max(leastGap, both / mostRanges);
    const auto a = built.substr(0, both);
    const auto b = original.substr(0, both);
    const auto add = [&](std::size_t from, std::size_t to) {
        patch.ranges.push_back({.offset = from, .bytes = original.substr(from, to - from)});
        patch.ranges.back().replacedSum = checkSum(replacedBy(patch.ranges.back(), built));
    };
    for (auto at = nextDifference(a, b, 0); at < both;) {
        const auto end = endOfDifference(a, b, at, gap);
        add(at, end);
        at = nextDifference(a, b, end);
    }
    if (original.size() > both)
        add(both, original.size());
    return patch;
}

std::optional<Patch> parsePatch(std::string_view bytes) {
    if (bytes.size() < headLength || !bytes.starts_with(mark))
        return std::nullopt;
    Patch patch{.together = bytes[togetherOffset] != 0,
                .built = wholeAt(bytes, builtOffset),
                .original = wholeAt(bytes, originalOffset)};
    auto count = numberAt(bytes, countOffset);
    bytes.remove_prefix(headLength);
    for (; count > 0 && bytes.size() >= rangeHeadLength; --count) {
        const auto length = numberAt(bytes, 8);
        Patch::Range range{.offset = numberAt(bytes, 0), .replacedSum = numberAt(bytes, 16)};
        bytes.remove_prefix(rangeHeadLength);
        if (length > bytes.size())
            return std::nullopt;
        range.bytes = bytes.substr(0, length);
        bytes.remove_prefix(length);
        patch.ranges.push_back(range);
    }
    return count == 0 && bytes.empty() && makesSense(patch) ? std::optional(patch) : std::nullopt;
}

void writePatch(const fs::path& path, const Patch& patch) {
    std::array<std::byte, headLength> head{};
    base::writeText(head, 0, mark.size(), mark);
    base::writeNumber<std::uint8_t>(head, togetherOffset, patch.together ? 1 : 0);
    putWhole(head, builtOffset, patch.built);
    putWhole(head, originalOffset, patch.original);
    base::writeNumber<std::uint64_t>(head, countOffset, patch.ranges.size());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(head.data()), head.size());
    for (const auto& range : patch.ranges) {
        std::array<std::byte, rangeHeadLength> rangeHead{};
        base::writeNumber(rangeHead, 0, range.offset);
        base::writeNumber<std::uint64_t>(rangeHead, 8, range.bytes.size());
        base::writeNumber(rangeHead, 16, range.replacedSum);
        file.write(reinterpret_cast<const char*>(rangeHead.data()), rangeHead.size());
        file.write(range.bytes.data(), static_cast<std::streamsize>(range.bytes.size()));
    }
    file.close();
    if (!file)
        throw base::FileError("Cannot write " + base::textOf(path) +
                              "\nPlease check that the disk is not full and that you may write there");
}

void putRanges(const fs::path& dataFile, const Patch& patch, const std::vector<Patch::Range>& ranges) {
    std::error_code error;
    if (patch.original.size != patch.built.size)
        fs::resize_file(dataFile, patch.original.size, error);
    std::fstream file(dataFile, std::ios::binary | std::ios::in | std::ios::out);
    for (const auto& range : ranges) {
        file.seekp(static_cast<std::streamoff>(range.offset));
        file.write(range.bytes.data(), static_cast<std::streamsize>(range.bytes.size()));
    }
    file.close();
    if (error || !file)
        throw base::FileError("Cannot write " + base::textOf(dataFile) +
                              "\nPlease check that the disk is not full and that you may write there");
}

}
