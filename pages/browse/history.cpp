#include "pages/browse/history.h"

namespace pages {

std::optional<std::int32_t> History::back(std::int32_t shown) {
    if (!m_records.empty() && m_records.back() == shown)
        m_records.pop_back();
    if (m_records.empty())
        return std::nullopt;
    const auto record = m_records.back();
    m_records.pop_back();
    return record;
}

}
