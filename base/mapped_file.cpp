#include "base/mapped_file.h"

#include "base/errors.h"

#include <boost/interprocess/file_mapping.hpp>
#include <boost/interprocess/mapped_region.hpp>
#include <system_error>

namespace base {
namespace ipc = boost::interprocess;

struct MappedFile::Mapping {
    ipc::file_mapping file;
    ipc::mapped_region region;
    std::atomic<bool> lost = false;
};

MappedFile::MappedFile(const std::filesystem::path& path)
    : m_path(path), m_mapping(std::make_unique<Mapping>()) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error || (size == 0 && !std::filesystem::is_regular_file(path, error)))
        throw MissingFile(path);
    if (size == 0)
        return; // an empty file cannot be mapped
    try {
        m_mapping->file = ipc::file_mapping(path.c_str(), ipc::read_only);
        m_mapping->region = ipc::mapped_region(m_mapping->file, ipc::read_only);
        m_mapping->region.advise(ipc::mapped_region::advice_random);
        m_bytes = {static_cast<const std::byte*>(m_mapping->region.get_address()),
                   m_mapping->region.get_size()};
    } catch (const ipc::interprocess_exception&) {
        throw MissingFile(path);
    }
}

void MappedFile::readAhead() const {
    m_mapping->region.advise(ipc::mapped_region::advice_sequential);
}

bool MappedFile::isWhole() const {
    std::error_code error;
    const auto size = std::filesystem::file_size(m_path, error);
    return !m_mapping->lost && !error && size >= m_bytes.size();
}

std::atomic<bool>& MappedFile::lost() const {
    return m_mapping->lost;
}

MappedFile::~MappedFile() = default;
MappedFile::MappedFile(MappedFile&&) noexcept = default;
MappedFile& MappedFile::operator=(MappedFile&&) noexcept = default;

}
