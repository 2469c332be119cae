#include "tests/publish/zip_entries.h"

#include <zip.h>

namespace support {

std::map<std::string, std::string> zipEntries(const std::filesystem::path& path) {
    std::map<std::string, std::string> entries;
    const auto name = path.u8string();
    zip_t* zip = zip_open(reinterpret_cast<const char*>(name.c_str()), ZIP_RDONLY, nullptr);
    for (zip_int64_t i = 0; zip != nullptr && i < zip_get_num_entries(zip, 0); ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        zip_stat_t stat;
        zip_stat_index(zip, index, 0, &stat);
        std::string bytes(stat.size, '\0');
        zip_file_t* file = zip_fopen_index(zip, index, 0);
        zip_fread(file, bytes.data(), bytes.size());
        zip_fclose(file);
        entries[stat.name] = bytes;
    }
    if (zip != nullptr)
        zip_discard(zip);
    return entries;
}

}
