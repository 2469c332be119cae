#include "ui/system/archive/whole_entries.h"

#include <algorithm>
#include <libdeflate.h>

namespace ui::system {

WholeEntries::WholeEntries() : m_decompressor(libdeflate_alloc_decompressor()) {}

void WholeEntries::Close::operator()(libdeflate_decompressor* decompressor) const {
    libdeflate_free_decompressor(decompressor);
}

bool WholeEntries::takes(const ZipEntry& entry) {
    return entry.packing != ZipEntry::Packing::other && entry.checkSum &&
           std::max(entry.size, entry.packedSize) <= largest;
}

std::optional<std::span<const std::byte>> WholeEntries::read(const ZipReader& zip, const ZipEntry& entry) {
    if (!m_decompressor || !fillPacked(zip, entry))
        return std::nullopt;
    auto contents = std::span<const std::byte>(m_packed).first(static_cast<std::size_t>(entry.packedSize));
    if (entry.packing == ZipEntry::Packing::deflated) {
        m_contents.resize(largest);
        const auto size = static_cast<std::size_t>(entry.size);
        if (libdeflate_deflate_decompress(m_decompressor.get(), contents.data(), contents.size(),
                                          m_contents.data(), size, nullptr) != LIBDEFLATE_SUCCESS)
            return std::nullopt;
        contents = std::span<const std::byte>(m_contents).first(size);
    }
    if (contents.size() != entry.size || checkSum(0, contents) != entry.checkSum)
        return std::nullopt;
    return contents;
}

bool WholeEntries::fillPacked(const ZipReader& zip, const ZipEntry& entry) {
    m_packed.resize(largest);
    auto file = zip.openPacked(entry);
    for (std::size_t done = 0; done < entry.packedSize;) {
        std::size_t count = 0;
        static_cast<void>(file.read(std::span(m_packed).subspan(done), count));
        if (count == 0)
            return false;
        done += count;
    }
    return true;
}

std::uint32_t checkSum(std::uint32_t before, std::span<const std::byte> bytes) {
    return libdeflate_crc32(before, bytes.data(), bytes.size());
}

}
