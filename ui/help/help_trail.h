#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

/// A place in the help book.
struct HelpPlace {
    std::string page;
    std::string anchor; ///< empty for the page's top
    double top = -1;    ///< how far down the page was when it was left, in its own pixels; -1 if it was not

    /// Of "page.html#anchor" or "page.html".
    [[nodiscard]] static HelpPlace of(std::string_view target);
};

/// The places that were shown, for going back and forward. There is a current one once `go` was called.
class HelpTrail {
public:
    /// Forgets what lay ahead.
    void go(HelpPlace place);

    [[nodiscard]] bool empty() const { return m_places.empty(); }

    [[nodiscard]] HelpPlace& current() { return m_places.at(m_at); }

    /// The current place is that one, however far down.
    [[nodiscard]] bool isAt(const HelpPlace& place) const;

    [[nodiscard]] bool canStep(int by) const;

    /// -1 back, 1 forward; nothing happens where `canStep` is false.
    void step(int by);

private:
    std::vector<HelpPlace> m_places;
    std::size_t m_at = 0;
};

}
