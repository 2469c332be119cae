#include "catalog/record_file.h"

#include "base/errors.h"

#include <algorithm>
#include <limits>

namespace catalog {

RecordFile::RecordFile(const std::filesystem::path& path, std::size_t recordLength)
    : m_file(path),
      m_recordLength(recordLength),
      m_count(static_cast<std::int32_t>(std::min<std::size_t>(m_file.bytes().size() / recordLength,
                                                              std::numeric_limits<std::int32_t>::max()))) {}

void RecordFile::requireWhole() const {
    if (!m_file.isWhole())
        throw base::DamagedFile(m_file.path());
}

void RecordFile::requireRead() const {
    if (m_file.lost())
        throw base::DamagedFile(m_file.path());
}

RecordBytes RecordFile::record(std::int32_t number) const {
    if (number < 1 || number > m_count)
        return {};
    return m_file.bytes().subspan(static_cast<std::size_t>(number - 1) * m_recordLength, m_recordLength);
}

}
