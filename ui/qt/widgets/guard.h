#pragma once

#include "platform/message_box.h"

#include <functional>
#include <type_traits>
#include <utility>

namespace ui::qt {

/// The one place where what the core throws is caught: every slot passes through it. ProgramEnd shows its
/// message and ends the program, Quit ends it without a message, anything else is shown in a message and the
/// program goes on.
class Guard {
public:
    explicit Guard(platform::MessageBox& messages) : m_messages(messages) {}

    /// The slot to connect. One that wants none of the signal's arguments is called without them.
    template <typename Slot>
    [[nodiscard]] auto operator()(Slot slot) {
        return [this, slot = std::move(slot)](auto&&... arguments) mutable -> void {
            if constexpr (std::is_invocable_v<Slot&, decltype(arguments)...>)
                run([&] { slot(std::forward<decltype(arguments)>(arguments)...); });
            else if constexpr (std::is_invocable_v<Slot&>)
                run([&] { slot(); });
        };
    }

    /// Runs this before and after everything that is guarded, until the next call: what it throws comes
    /// before whatever would have been done, or said, with it.
    void watch(std::function<void()> check) { m_check = std::move(check); }

    /// Does nothing once the program is ending.
    void run(const std::function<void()>& work);

    [[nodiscard]] bool ending() const { return m_ending; }

    /// Leaves the event loop; nothing that is guarded runs any more.
    void end(int exitCode);

private:
    platform::MessageBox& m_messages;
    std::function<void()> m_check = [] {};
    bool m_ending = false;
};

}
