#include "tables/packed_file.h"

#include "base/errors.h"

#include <zip.h>

#include <array>
#include <cstdint>

namespace tables {
namespace {

constexpr std::uint64_t mostUnpacked = std::uint64_t{1} << 29;

[[noreturn]] void failDamaged() {
    throw base::FileError("is damaged or not complete\nPlease copy or save it again");
}

[[noreturn]] void failTooLarge() {
    throw base::FileError(
        "unpacks to more than a product list can need\nPlease save the list alone as a new file");
}

using OpenPart = std::unique_ptr<zip_file_t, decltype(&zip_fclose)>;

}

struct PackedFile::Zip {
    std::unique_ptr<zip_t, decltype(&zip_discard)> archive{nullptr, &zip_discard};
    std::uint64_t left = mostUnpacked; // of what may still be unpacked
};

PackedFile::PackedFile(std::span<const std::byte> bytes) : m_zip(std::make_unique<Zip>()) {
    constexpr int keepBytes = 0;
    auto* const source = zip_source_buffer_create(bytes.data(), bytes.size(), keepBytes, nullptr);
    m_zip->archive.reset(source == nullptr ? nullptr : zip_open_from_source(source, ZIP_RDONLY, nullptr));
    if (m_zip->archive)
        return;
    zip_source_free(source);
    failDamaged();
}

PackedFile::~PackedFile() = default;

bool PackedFile::has(const std::string& part) const {
    return zip_name_locate(m_zip->archive.get(), part.c_str(), ZIP_FL_NOCASE) >= 0;
}

void PackedFile::read(const std::string& part, const std::function<void(std::string_view)>& take) const {
    zip_stat_t stat;
    auto* const archive = m_zip->archive.get();
    if (zip_stat(archive, part.c_str(), ZIP_FL_NOCASE, &stat) != 0 || (stat.valid & ZIP_STAT_SIZE) == 0)
        failDamaged();
    if (stat.size > m_zip->left)
        failTooLarge();
    const OpenPart file(zip_fopen_index(archive, stat.index, 0), &zip_fclose);
    if (!file)
        failDamaged();
    std::array<char, 1 << 16> piece{};
    for (;;) {
        const auto size = zip_fread(file.get(), piece.data(), piece.size());
        if (size < 0)
            failDamaged();
        if (size == 0)
            return;
        const auto unpacked = static_cast<std::uint64_t>(size);
        if (unpacked > m_zip->left)
            failTooLarge();
        m_zip->left -= unpacked;
        take({piece.data(), static_cast<std::size_t>(size)});
    }
}

}
