#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace pages {

/// A tag, braces included, and what it stands for.
template <typename Value>
struct Tag {
    std::string_view tag;
    Value value;
};

// Compilers before the deduction of aggregates, clang 14 among them, need it.
template <typename Value>
Tag(std::string_view, Value) -> Tag<Value>;

/// The tags of one kind of values, numbered in their order for `Fields`. Several tables serve one kind of
/// page when each begins with the number at which the one before it ends; `areDistinct` checks that.
template <typename Value, std::size_t Count>
class TagTable {
public:
    /// `first` is at least 1.
    constexpr TagTable(unsigned first, const std::array<Tag<Value>, Count>& tags)
        : m_first(first), m_tags(tags) {}

    /// The number behind the last tag's.
    [[nodiscard]] constexpr unsigned end() const { return m_first + static_cast<unsigned>(Count); }

    /// 0 for a tag that is not in the table.
    [[nodiscard]] constexpr unsigned number(std::string_view tag) const {
        const auto found =
            std::find_if(m_tags.begin(), m_tags.end(), [&](const auto& known) { return known.tag == tag; });
        return found == m_tags.end() ? 0 : m_first + static_cast<unsigned>(found - m_tags.begin());
    }

    [[nodiscard]] constexpr bool holds(unsigned number) const { return number >= m_first && number < end(); }

    /// The number must be one of this table's.
    [[nodiscard]] constexpr const Value& operator[](unsigned number) const {
        return m_tags[number - m_first].value;
    }

    [[nodiscard]] constexpr const auto& tags() const { return m_tags; }

private:
    unsigned m_first;
    std::array<Tag<Value>, Count> m_tags;
};

/// All tags of these tables, braces included.
template <typename... Tables>
[[nodiscard]] std::vector<std::string_view> tagsOf(const Tables&... tables) {
    std::vector<std::string_view> all;
    const auto append = [&all](const auto& table) {
        for (const auto& tag : table.tags())
            all.push_back(tag.tag);
    };
    (append(tables), ...);
    return all;
}

/// Whether no tag stands twice in a table.
template <typename Value, std::size_t Count>
[[nodiscard]] constexpr bool isDistinct(const TagTable<Value, Count>& table) {
    return std::all_of(table.tags().begin(), table.tags().end(), [&](const auto& tag) {
        return std::count_if(table.tags().begin(), table.tags().end(),
                             [&](const auto& other) { return other.tag == tag.tag; }) == 1;
    });
}

/// Whether no tag and no number stands in both tables.
template <typename One, typename Other>
[[nodiscard]] constexpr bool areDistinct(const One& one, const Other& other) {
    return std::all_of(one.tags().begin(), one.tags().end(), [&](const auto& tag) {
        return other.number(tag.tag) == 0 && !other.holds(one.number(tag.tag));
    });
}

}
