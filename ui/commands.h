#pragma once

#include "catalog/parameters.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cstddef>
#include <optional>
#include <string_view>

namespace ui {

/// What the main window can be asked to do: first the buttons of `Toolbar1` by position, which counts from 1.
enum class Command { exit = 1, search, back, priceList, checkOut, print, email, clear, help, preview };

struct CommandRow {
    Command command;
    std::string_view key; ///< the command's identity, compared as exact text
    std::string_view caption;
    char letter;                     ///< underlined in the caption; Alt with it presses the button
    std::string_view shortcut;       ///< another key for it; empty where it has none
    std::string_view tip;            ///< its keys are added, unless it ends in brackets already
    std::string_view stroke;         ///< the picture, drawn on a square of 24 units
    std::optional<Command> menuOf{}; ///< the button in whose menu it stands; nothing for a button
};

/// All commands, in the order of their numbers. The letters that no button has are the delivery details'.
inline constexpr std::array commands{
    CommandRow{Command::exit, "Exit", "Exit", 'x', "Ctrl+Q", "Save the delivery details and leave",
               "M 14 4 L 6 4 L 6 20 L 14 20 M 11 12 L 21 12 M 17 8 L 21 12 L 17 16"},
    CommandRow{Command::search, "Search", "Search", 'S', "Ctrl+F",
               "Search the list for a code or a description", "C 10 10 6 M 14.5 14.5 L 20.5 20.5"},
    CommandRow{Command::back, "Back", "Back", 'k', "Alt+Left", "Go back to the page shown before",
               "M 20 12 L 4 12 M 10 6 L 4 12 L 10 18"},
    CommandRow{Command::priceList, "Plist", "Price List", 'L', "", "Show the list of products",
               "M 9 6 L 20 6 M 9 12 L 20 12 M 9 18 L 20 18 M 4 6 L 5 6 M 4 12 L 5 12 M 4 18 L 5 18"},
    CommandRow{Command::checkOut, "CheckOut", "Check Out", 'C', "", "Show the order and its delivery details",
               "M 2.5 4 L 5.5 4 L 8 15.5 L 18.5 15.5 L 21 7 L 6.2 7 C 9.5 19.5 1.4 C 17 19.5 1.4"},
    CommandRow{Command::print, "Print", "Print", 'i', "Ctrl+P",
               "Print the order (Ctrl+P), or see it as it will be printed (Ctrl+Shift+P)",
               "M 7 9 L 7 3.5 L 17 3.5 L 17 9 M 7 17 L 3.5 17 L 3.5 9 L 20.5 9 L 20.5 17 L 17 17 M 7 14 L 17 "
               "14 L 17 20.5 L 7 20.5 Z"},
    CommandRow{Command::email, "Email", "Email", 'm', "", "E-mail the order to the supplier",
               "M 3 5.5 L 21 5.5 L 21 18.5 L 3 18.5 Z M 3 6.5 L 12 13 L 21 6.5"},
    CommandRow{Command::clear, "Clear", "Clear", 'r', "", "Remove everything from the order",
               "M 4 6.5 L 20 6.5 M 9 6.5 L 9 3.5 L 15 3.5 L 15 6.5 M 6 6.5 L 7 20.5 L 17 20.5 L 18 6.5 M 10 "
               "10.5 L 10.3 16.5 M 14 10.5 L 13.7 16.5"},
    CommandRow{Command::help, "Help", "Help", 'H', "",
               "Open the help book (F1 opens it at what you are doing)",
               "C 12 12 9 M 9.3 9.8 L 9.3 9.2 L 10.6 7.4 L 13.2 7.2 L 14.7 8.8 L 14.3 10.8 L 12 12.6 L 12 14 "
               "M 12 16.8 L 12 17"},
    CommandRow{Command::preview, "Preview", "Print preview...", 'v', "Ctrl+Shift+P", "", "", Command::print},
};

[[nodiscard]] constexpr std::size_t indexOf(Command command) {
    return static_cast<std::size_t>(command) - 1;
}

[[nodiscard]] constexpr const CommandRow& rowOf(Command command) {
    return commands.at(indexOf(command));
}

static_assert(std::all_of(commands.begin(), commands.end(),
                          [](const CommandRow& row) { return &row == &rowOf(row.command); }));

/// Which commands are enabled and which are there at all.
class ToolbarState {
public:
    [[nodiscard]] bool enabled(Command command) const { return m_enabled[indexOf(command)]; }

    [[nodiscard]] bool visible(Command command) const { return !m_hidden[indexOf(command)]; }

    void enable(Command command, bool on) { m_enabled[indexOf(command)] = on; }

    void hide(Command command) { m_hidden[indexOf(command)] = true; }

    friend bool operator==(const ToolbarState&, const ToolbarState&) = default;

private:
    std::bitset<commands.size()> m_enabled;
    std::bitset<commands.size()> m_hidden;
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
