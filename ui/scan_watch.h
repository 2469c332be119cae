#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ui {

/// Tells a barcode scanner from a hand by the times of its keys. A hand that is driven 30 keys a second is
/// still a hand.
class ScanWatch {
public:
    using Time = std::chrono::milliseconds; ///< since any beginning

    /// A key has written this text. True when it begins a run of keys, after a pause or another kind of key.
    bool keyTyped(std::string_view text, Time when);

    /// Enter has been pressed. The run before it when that was a scanner's.
    [[nodiscard]] std::optional<std::string> enterPressed(Time when);

    /// Something else than a key that writes.
    void forget() { m_run.clear(); }

private:
    [[nodiscard]] bool goesOn(Time when) const;

    std::string m_run;
    std::size_t m_keys = 0;
    Time m_begun{};
    Time m_last{};
};

}
