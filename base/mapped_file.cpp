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
};

MappedFile::MappedFile(const std::filesystem::path& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error || (size == 0 && !std::filesystem::is_regular_file(path, error)))
        throw MissingFile(path);
    if (size == 0)
        return; // an empty file cannot be mapped
    try {
        ipc::file_mapping file(path.c_str(), ipc::read_only);
        ipc::mapped_region region(file, ipc::read_only);
        region.advise(ipc::mapped_region::advice_random);
        m_bytes = {static_cast<const std::byte*>(region.get_address()), region.get_size()};
        m_mapping = std::make_unique<Mapping>(Mapping{std::move(file), std::move(region)});
    } catch (const ipc::interprocess_exception&) {
        throw MissingFile(path);
    }
}

void MappedFile::readAhead() const {
    if (m_mapping)
        m_mapping->region.advise(ipc::mapped_region::advice_sequential);
}

MappedFile::~MappedFile() = default;
MappedFile::MappedFile(MappedFile&&) noexcept = default;
MappedFile& MappedFile::operator=(MappedFile&&) noexcept = default;

}
