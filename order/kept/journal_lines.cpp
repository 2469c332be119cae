#include "order/kept/journal_lines.h"

namespace order {

void JournalLines::set(std::int32_t product, float quantity) {
    const auto [known, isNew] = m_indexOf.try_emplace(product, m_lines.size());
    if (isNew) {
        m_lines.push_back({product, 0});
        m_isChanged.push_back(false);
    }
    change(known->second, quantity);
}

void JournalLines::change(std::size_t index, float quantity) {
    auto& line = m_lines[index];
    m_count += quantity != 0 ? 1U : 0U;
    m_count -= line.quantity != 0 ? 1U : 0U;
    line.quantity = quantity;
    if (!m_isChanged[index])
        m_changed.push_back(index);
    m_isChanged[index] = true;
}

void JournalLines::clear() {
    for (std::size_t i = 0; i < m_lines.size(); ++i)
        if (m_lines[i].quantity != 0)
            change(i, 0);
}

void JournalLines::forget() {
    *this = {};
}

std::vector<JournalLines::Line> JournalLines::changed() const {
    std::vector<Line> lines;
    lines.reserve(m_changed.size());
    for (const auto index : m_changed)
        lines.push_back(m_lines[index]);
    return lines;
}

void JournalLines::settle() {
    for (const auto index : m_changed)
        m_isChanged[index] = false;
    m_changed.clear();
}

}
