#include "catalog/code_index.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace catalog {
namespace {

/// A key as three numbers, so that comparing it with an entry's takes one comparison nearly always.
class OrderedKey {
public:
    using Bytes = std::array<char, IndexRecord::keyField.width>;

    explicit OrderedKey(const Bytes& key) : m_key(key) {}

    [[nodiscard]] bool isBehind(const std::byte* entry) const {
        if (const auto theirs = bigEndian<std::uint64_t>(entry); theirs != m_first)
            return theirs < m_first;
        if (const auto theirs = bigEndian<std::uint64_t>(entry + secondOffset); theirs != m_second)
            return theirs < m_second;
        return bigEndian<std::uint32_t>(entry + thirdOffset) < m_third;
    }

    [[nodiscard]] bool equals(std::string_view key) const {
        return key == std::string_view(m_key.data(), m_key.size());
    }

private:
    static constexpr std::size_t secondOffset = sizeof(std::uint64_t);
    static constexpr std::size_t thirdOffset = 2 * sizeof(std::uint64_t);
    static_assert(thirdOffset + sizeof(std::uint32_t) == IndexRecord::keyField.width);
    static_assert(IndexRecord::keyField.offset == 0);

    // Numbers read this way are in the order of the bytes that they are read from.
    template <typename Number>
    static Number bigEndian(const std::byte* bytes) {
        Number value = 0;
        for (std::size_t i = 0; i < sizeof(Number); ++i)
            value = static_cast<Number>((value << 8U) | std::to_integer<Number>(bytes[i]));
        return value;
    }

    [[nodiscard]] const std::byte* bytes() const { return reinterpret_cast<const std::byte*>(m_key.data()); }

    Bytes m_key;
    std::uint64_t m_first = bigEndian<std::uint64_t>(bytes());
    std::uint64_t m_second = bigEndian<std::uint64_t>(bytes() + secondOffset);
    std::uint32_t m_third = bigEndian<std::uint32_t>(bytes() + thirdOffset);
};

inline void fetch(const std::byte* bytes) {
#if defined(__GNUC__)
    __builtin_prefetch(bytes);
#else
    static_cast<void>(bytes);
#endif
}

/// How many entries have a smaller key.
std::size_t entriesBefore(const OrderedKey& key, const Table<IndexRecord>& table) {
    const auto* entries = table.bytes().data();
    std::size_t before = 0;
    auto last = static_cast<std::size_t>(table.count());
    const auto entryAt = [entries](std::size_t number) { return entries + number * IndexRecord::length; };
    while (before < last) {
        const auto half = (last - before) / 2;
        const auto middle = before + half;
        // One of these two comes next: both are on their way from memory while this one is compared.
        fetch(entryAt(before + half / 2));
        fetch(entryAt(middle + 1 + half / 2));
        if (key.isBehind(entryAt(middle)))
            before = middle + 1;
        else
            last = middle;
    }
    return before;
}

/// The smallest key that begins so: keys end with blanks, and zeros come before them.
OrderedKey::Bytes smallestKey(std::string_view upperStart) {
    OrderedKey::Bytes key{};
    std::copy(upperStart.begin(), upperStart.end(), key.begin());
    return key;
}

}

std::int32_t CodeIndex::find(std::string_view code) const {
    const OrderedKey key(indexKey(code));
    const auto before = entriesBefore(key, m_entries);
    const auto entry = m_entries.at(static_cast<std::int32_t>(before) + 1);
    return key.equals(entry.key()) ? entry.product() : 0;
}

std::vector<std::int32_t> CodeIndex::beginningWith(std::string_view start, std::size_t most) const {
    const auto wanted = base::upper(start.substr(0, IndexRecord::keyField.width));
    std::vector<std::int32_t> products;
    auto number = static_cast<std::int32_t>(entriesBefore(OrderedKey(smallestKey(wanted)), m_entries)) + 1;
    for (; number <= m_entries.count() && products.size() < most; ++number) {
        const auto entry = m_entries.at(number);
        if (!entry.key().starts_with(wanted))
            break;
        products.push_back(entry.product());
    }
    return products;
}

}
