#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// How a data file that was built becomes the one that a catalogue had (docs/file-formats.md, "Exact bytes").
struct Patch {
    /// Bytes that replace those of the built file; behind its end they are added.
    struct Range {
        std::uint64_t offset = 0;
        std::uint64_t replacedSum = 0; ///< check sum of the built bytes in its place
        std::string_view bytes = {};   ///< of the patch or of the original; lives as long
    };

    /// A file's size and check sum.
    struct Whole {
        std::uint64_t size = 0;
        std::uint64_t sum = 0;

        bool operator==(const Whole&) const = default;
    };

    bool together = false; ///< applied only where all patches of this kind can be
    Whole built = {};
    Whole original = {};
    std::vector<Range> ranges = {}; ///< ascending, apart
};

/// Not secret, only quick: tells one file from another.
[[nodiscard]] std::uint64_t checkSum(std::string_view bytes);
[[nodiscard]] Patch::Whole wholeOf(std::string_view bytes);

/// The bytes of the built file that a range replaces.
[[nodiscard]] std::string_view replacedBy(const Patch::Range& range, std::string_view built);

/// Where the original differs. Differences that stand close together share a range.
[[nodiscard]] Patch differenceOf(std::string_view built, std::string_view original);

/// The patch that the bytes of a patch file are; nothing where they are none that makes sense.
[[nodiscard]] std::optional<Patch> parsePatch(std::string_view bytes);

/// Throws base::FileError.
void writePatch(const std::filesystem::path& path, const Patch& patch);

/// Writes these ranges into a built file and gives it the original's size. Throws base::FileError.
void putRanges(const std::filesystem::path& dataFile, const Patch& patch,
               const std::vector<Patch::Range>& ranges);

}
