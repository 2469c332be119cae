#pragma once

#include "catalog/parameters.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <string_view>

namespace ui {

/// The buttons of `Toolbar1` by position, which counts from 1.
enum class Command { exit = 1, search, back, priceList, checkOut, print, email, clear, help };

struct ToolbarButton {
    Command command;
    std::string_view key; ///< the button's identity, compared as exact text
    std::string_view caption;
    std::string_view tip;
};

inline constexpr std::array toolbarButtons{
    ToolbarButton{Command::exit, "Exit", "Exit", "Save the delivery details and leave (Ctrl+Q)"},
    ToolbarButton{Command::search, "Search", "Search",
                  "Search the list for a code or a description (Ctrl+F)"},
    ToolbarButton{Command::back, "Back", "Back", "Go back to the page shown before (Alt+Left)"},
    ToolbarButton{Command::priceList, "Plist", "Price List", "Show the list of products"},
    ToolbarButton{Command::checkOut, "CheckOut", "Check Out", "Show the order and its delivery details"},
    ToolbarButton{Command::print, "Print", "Print",
                  "Print the order (Ctrl+P), or see it as it will be printed (Ctrl+Shift+P)"},
    ToolbarButton{Command::email, "Email", "Email", "E-mail the order to the supplier"},
    ToolbarButton{Command::clear, "Clear", "Clear", "Remove everything from the order"},
    ToolbarButton{Command::help, "Help", "Help", "Open the help book (F1 opens it at what you are doing)"},
};

/// Which buttons are enabled and which are there at all.
class ToolbarState {
public:
    [[nodiscard]] bool enabled(Command command) const { return m_enabled[index(command)]; }

    [[nodiscard]] bool visible(Command command) const { return !m_hidden[index(command)]; }

    void enable(Command command, bool on) { m_enabled[index(command)] = on; }

    void hide(Command command) { m_hidden[index(command)] = true; }

    friend bool operator==(const ToolbarState&, const ToolbarState&) = default;

private:
    static std::size_t index(Command command) { return static_cast<std::size_t>(command) - 1; }

    std::bitset<toolbarButtons.size()> m_enabled;
    std::bitset<toolbarButtons.size()> m_hidden;
};

/// Which of its two views the main window shows.
enum class ViewMode { catalogue, order };

/// The state in which the main window opens, with nothing ordered and nothing shown yet.
/// `emailStatus` is the setting Email/Status of Start.ini.
[[nodiscard]] ToolbarState openingToolbar(const catalog::Parameters& parameters,
                                          std::string_view emailStatus);

/// The buttons after each thing that happens to the order; those that it does not concern stay as they are.
/// "Check Out" is for the catalogue view with an order total other than 0, "Clear" for a total above 0.
[[nodiscard]] ToolbarState afterOrderChange(ToolbarState before, ViewMode view, double orderTotal);
[[nodiscard]] ToolbarState afterCheckOut(ToolbarState before, double orderTotal);

/// "Back" is enabled unless the history holds exactly one entry.
[[nodiscard]] ToolbarState afterPriceList(ToolbarState before, double orderTotal, std::size_t historySize);

/// The catalogue view is up.
[[nodiscard]] ToolbarState afterClear(ToolbarState before);

}
