#include "fuzz/stored_zip.h"

namespace fuzz {
namespace {

void put(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i, value >>= 8U)
        out += static_cast<char>(value & 0xFFU);
}

std::uint32_t checkSum(std::string_view bytes) {
    constexpr std::uint32_t polynomial = 0xEDB88320;
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? polynomial : 0);
    }
    return ~sum;
}

// What both headers of an entry share: from the version needed to the length of the extra field.
std::string commonPart(std::string_view name, std::string_view contents) {
    std::string out;
    put(out, 20, 2);
    put(out, 0, 2); // flags
    put(out, 0, 2); // stored
    put(out, 0, 4); // time and date
    put(out, checkSum(contents), 4);
    put(out, static_cast<std::uint32_t>(contents.size()), 4);
    put(out, static_cast<std::uint32_t>(contents.size()), 4);
    put(out, static_cast<std::uint32_t>(name.size()), 2);
    put(out, 0, 2);
    return out;
}

}

void StoredZip::add(std::string_view name, std::string_view contents, std::uint32_t mode) {
    const auto offset = static_cast<std::uint32_t>(m_files.size());
    const auto common = commonPart(name, contents);
    m_files.append("PK\x03\x04").append(common).append(name).append(contents);
    m_directory.append("PK\x01\x02");
    put(m_directory, mode != 0 ? 0x0314 : 0x0014, 2); // made on Unix, or not
    m_directory += common;
    put(m_directory, 0, 2);
    put(m_directory, 0, 2);
    put(m_directory, 0, 2);
    put(m_directory, mode << 16U, 4);
    put(m_directory, offset, 4);
    m_directory += name;
    ++m_count;
}

std::string StoredZip::bytes() const {
    auto out = m_files + m_directory;
    out.append("PK\x05\x06");
    put(out, 0, 4);
    put(out, m_count, 2);
    put(out, m_count, 2);
    put(out, static_cast<std::uint32_t>(m_directory.size()), 4);
    put(out, static_cast<std::uint32_t>(m_files.size()), 4);
    put(out, 0, 2);
    return out;
}

}
