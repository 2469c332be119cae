#include "ui/scan_watch.h"

#include <utility>

namespace ui {
namespace {

constexpr std::size_t fewestKeys = 4;         // of a code, without Enter
constexpr ScanWatch::Time longestGap{60};     // between two keys of a run
constexpr ScanWatch::Time longestMeanGap{20}; // of a scanner; single keys may come late

}

bool ScanWatch::goesOn(Time when) const {
    return !m_run.empty() && when >= m_last && when - m_last <= longestGap;
}

bool ScanWatch::keyTyped(std::string_view text, Time when) {
    const bool begins = !goesOn(when);
    if (begins) {
        m_run.clear();
        m_keys = 0;
        m_begun = when;
    }
    m_run += text;
    ++m_keys;
    m_last = when;
    return begins;
}

std::optional<std::string> ScanWatch::enterPressed(Time when) {
    const bool isScan = goesOn(when) && m_keys >= fewestKeys &&
                        when - m_begun <= longestMeanGap * static_cast<Time::rep>(m_keys);
    auto run = std::exchange(m_run, {});
    return isScan ? std::optional(std::move(run)) : std::nullopt;
}

}
