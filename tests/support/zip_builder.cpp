#include "tests/support/zip_builder.h"

#include <zip.h>

#include <stdexcept>
#include <utility>

namespace support {

ZipBuilder& ZipBuilder::add(std::string name, std::string contents) {
    m_entries.push_back({Kind::plain, std::move(name), std::move(contents)});
    return *this;
}

ZipBuilder& ZipBuilder::addLink(std::string name, std::string target) {
    m_entries.push_back({Kind::link, std::move(name), std::move(target)});
    return *this;
}

ZipBuilder& ZipBuilder::addEncrypted(std::string name, std::string contents) {
    m_entries.push_back({Kind::encrypted, std::move(name), std::move(contents)});
    return *this;
}

ZipBuilder& ZipBuilder::addStored(std::string name, std::string contents) {
    m_entries.push_back({Kind::stored, std::move(name), std::move(contents)});
    return *this;
}

void ZipBuilder::writeTo(const std::filesystem::path& path) const {
    constexpr zip_uint32_t linkMode = 0120777U << 16U;
    const auto name = path.u8string();
    auto* archive = zip_open(reinterpret_cast<const char*>(name.c_str()), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    for (const auto& entry : m_entries) {
        auto* source = zip_source_buffer(archive, entry.contents.data(), entry.contents.size(), 0);
        const bool isFolder = entry.name.ends_with('/');
        const auto index = isFolder ? zip_dir_add(archive, entry.name.c_str(), ZIP_FL_ENC_GUESS)
                                    : zip_file_add(archive, entry.name.c_str(), source, ZIP_FL_ENC_GUESS);
        if (index < 0)
            throw std::logic_error("entry " + entry.name + " cannot be added");
        const auto at = static_cast<zip_uint64_t>(index);
        if (isFolder)
            zip_source_free(source);
        if (entry.kind == Kind::link)
            zip_file_set_external_attributes(archive, at, 0, ZIP_OPSYS_UNIX, linkMode);
        if (entry.kind == Kind::encrypted)
            zip_file_set_encryption(archive, at, ZIP_EM_AES_256, "secret");
        if (entry.kind == Kind::stored)
            zip_set_file_compression(archive, at, ZIP_CM_STORE, 0);
    }
    if (zip_close(archive) != 0)
        throw std::logic_error("archive cannot be written");
}

}
