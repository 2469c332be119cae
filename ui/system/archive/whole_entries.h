#pragma once

#include "ui/system/archive/zip_reader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

struct libdeflate_decompressor;

namespace ui::system {

/// Unpacks entries that may be in memory as a whole, in half the time that unpacking in pieces takes. Each
/// thread has its own.
class WholeEntries {
public:
    static constexpr std::size_t largest = std::size_t{1} << 20U;

    WholeEntries();

    /// Whether it can unpack such an entry: one of a common packing and of at most so many bytes. None where
    /// the program was built without the library for it.
    [[nodiscard]] static bool takes(const ZipEntry& entry);

    /// The contents, until the next call; nothing where they are damaged, or not of the size or check sum
    /// that the archive says.
    [[nodiscard]] std::optional<std::span<const std::byte>> read(const ZipReader& zip, const ZipEntry& entry);

private:
    struct Close {
        void operator()(libdeflate_decompressor* decompressor) const;
    };

    [[nodiscard]] bool fillPacked(const ZipReader& zip, const ZipEntry& entry);

    std::unique_ptr<libdeflate_decompressor, Close> m_decompressor;
    std::vector<std::byte> m_packed;
    std::vector<std::byte> m_contents;
};

/// The CRC-32 of bytes that follow those whose sum is given; that of none is 0.
[[nodiscard]] std::uint32_t checkSum(std::uint32_t before, std::span<const std::byte> bytes);

}
