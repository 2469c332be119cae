#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace order {

/// What is to be kept of an order's lines, and which of them have changed. Products are their records'
/// numbers.
class JournalLines {
public:
    struct Line {
        std::int32_t product;
        float quantity; ///< 0 when it was taken off
    };

    void set(std::int32_t product, float quantity);

    /// All quantities are 0.
    void clear();

    /// There never were any.
    void forget();

    /// Those of a quantity.
    [[nodiscard]] std::size_t count() const { return m_count; }

    /// In the order in which they were typed first.
    [[nodiscard]] const std::vector<Line>& all() const { return m_lines; }

    /// Those that have changed since the last `settle`, each once.
    [[nodiscard]] std::vector<Line> changed() const;

    [[nodiscard]] bool haveChanged() const { return !m_changed.empty(); }

    void settle();

private:
    void change(std::size_t index, float quantity);

    std::vector<Line> m_lines;
    std::vector<bool> m_isChanged; // by index
    std::vector<std::size_t> m_changed;
    std::unordered_map<std::int32_t, std::size_t> m_indexOf; // by product
    std::size_t m_count = 0;
};

}
