#include "catalog/code_index.h"

namespace catalog {

std::int32_t CodeIndex::find(std::string_view code) const {
    const auto padded = indexKey(code);
    const std::string_view key(padded.data(), padded.size());
    std::int32_t before = 0; // every entry up to here has a smaller key
    std::int32_t last = m_entries.count();
    while (before < last) {
        const auto middle = before + (last - before) / 2 + 1;
        if (m_entries.at(middle).key() < key) // unsigned bytes
            before = middle;
        else
            last = middle - 1;
    }
    const auto entry = m_entries.at(before + 1);
    return entry.key() == key ? entry.product() : 0;
}

}
