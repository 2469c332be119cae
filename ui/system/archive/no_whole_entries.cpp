#include "ui/system/archive/whole_entries.h"

#include <zlib.h>

// Where the library for them is missing, everything is unpacked in pieces.
namespace ui::system {

WholeEntries::WholeEntries() = default;

void WholeEntries::Close::operator()(libdeflate_decompressor* /*decompressor*/) const {}

bool WholeEntries::takes(const ZipEntry& /*entry*/) {
    return false;
}

std::optional<std::span<const std::byte>> WholeEntries::read(const ZipReader& /*zip*/,
                                                             const ZipEntry& /*entry*/) {
    return std::nullopt;
}

std::uint32_t checkSum(std::uint32_t before, std::span<const std::byte> bytes) {
    return static_cast<std::uint32_t>(
        crc32_z(before, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

}
