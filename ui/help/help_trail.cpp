#include "ui/help/help_trail.h"

#include <utility>

namespace ui {

HelpPlace HelpPlace::of(std::string_view target) {
    const auto mark = target.find('#');
    if (mark == std::string_view::npos)
        return {std::string(target), {}};
    return {std::string(target.substr(0, mark)), std::string(target.substr(mark + 1))};
}

void HelpTrail::go(HelpPlace place) {
    if (!m_places.empty())
        m_places.resize(m_at + 1);
    m_places.push_back(std::move(place));
    m_at = m_places.size() - 1;
}

bool HelpTrail::isAt(const HelpPlace& place) const {
    return !m_places.empty() && m_places[m_at].page == place.page && m_places[m_at].anchor == place.anchor;
}

bool HelpTrail::canStep(int by) const {
    const auto to = static_cast<std::ptrdiff_t>(m_at) + by;
    return to >= 0 && to < static_cast<std::ptrdiff_t>(m_places.size());
}

void HelpTrail::step(int by) {
    if (canStep(by))
        m_at = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(m_at) + by);
}

}
