#include "catalog/memo_file.h"

namespace catalog {

std::string_view MemoFile::text(std::int32_t position, std::int16_t length) const {
    const auto bytes = m_file.bytes();
    if (position < 1 || length < 1 || static_cast<std::size_t>(position) > bytes.size())
        return {};
    const std::string_view all(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return all.substr(static_cast<std::size_t>(position) - 1, static_cast<std::size_t>(length));
}

}
