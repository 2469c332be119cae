#include "catalog/code_index.h"

namespace catalog {

std::int32_t CodeIndex::find(std::string_view code) const {
    const auto padded = indexKey(code);
    const std::string_view key(padded.data(), padded.size());
    std::int32_t first = 1;
    std::int32_t last = m_entries.count();
    while (first <= last) {
        const auto middle = first + (last - first) / 2;
        const auto entry = m_entries.at(middle);
        const int order = entry.key().compare(key); // compares as unsigned bytes
        if (order == 0)
            return entry.product();
        if (order < 0)
            first = middle + 1;
        else
            last = middle - 1;
    }
    return 0;
}

}
