#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace support {

/// A zip archive made by a test. Entries stand in the order in which they are added.
class ZipBuilder {
public:
    /// Names as they are to stand in the archive; one that ends in "/" makes a folder.
    ZipBuilder& add(std::string name, std::string contents = {});

    /// A symbolic link, as archives from Unix hold it.
    ZipBuilder& addLink(std::string name, std::string target);

    ZipBuilder& addEncrypted(std::string name, std::string contents);

    /// Contents that do not shrink, so that bytes in the middle of the archive are this entry's.
    ZipBuilder& addStored(std::string name, std::string contents);

    void writeTo(const std::filesystem::path& path) const;

private:
    enum class Kind { plain, link, encrypted, stored };

    struct Entry {
        Kind kind;
        std::string name;
        std::string contents;
    };

    std::vector<Entry> m_entries;
};

}
