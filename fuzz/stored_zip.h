#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace fuzz {

/// A zip archive with nothing packed, whose names may be anything, twice the same too. A fuzzer does not find
/// check sums by itself.
class StoredZip {
public:
    /// The mode is that of a file on Unix, 0 for an entry without one.
    void add(std::string_view name, std::string_view contents, std::uint32_t mode = 0);

    [[nodiscard]] std::string bytes() const;

private:
    std::string m_files;
    std::string m_directory;
    std::uint16_t m_count = 0;
};

}
