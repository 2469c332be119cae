#pragma once

#include "ui/commands.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace ui {

/// What the menu of the button "More" offers, beside the commands of `Toolbar1`.
enum class MoreCommand {
    orders,
    quickEntry,
    openList,
    pasteList,
    saveOrder,
    copyOrder,
    news,
    addresses,
    preview,
    searchPage,
    zoomIn,
    zoomOut,
    zoomNormal
};

struct MoreCommandRow {
    MoreCommand command;
    std::string_view key;      ///< its action's object name
    std::string_view caption;  ///< with "&" before the letter that chooses it in the menu
    std::string_view shortcut; ///< works in the whole window
    bool startsSection = false;
    bool keyIsTaken = false; ///< another action of the window hears the shortcut; the menu only shows it
};

/// In the menu's order.
inline constexpr std::array moreCommands{
    MoreCommandRow{MoreCommand::orders, "MoreOrders", "&Orders...", "Ctrl+O"},
    MoreCommandRow{MoreCommand::news, "MoreNews", "What is &new", "Ctrl+N"},
    MoreCommandRow{MoreCommand::addresses, "MoreAddresses", "Delivery &addresses...", "Ctrl+D"},
    MoreCommandRow{MoreCommand::quickEntry, "MoreQuickEntry", "&Quick entry", "Ctrl+K", true},
    MoreCommandRow{MoreCommand::openList, "MoreOpenList", "Order from a &list...", "Ctrl+L"},
    MoreCommandRow{MoreCommand::pasteList, "MorePasteList", "Order from the &clipboard...", "Ctrl+Shift+V"},
    MoreCommandRow{MoreCommand::saveOrder, "MoreSaveOrder", "&Save the order as...", "Ctrl+S"},
    MoreCommandRow{MoreCommand::copyOrder, "MoreCopyOrder", "Cop&y the order as a table", "Ctrl+Shift+C"},
    MoreCommandRow{MoreCommand::preview, "MorePreview", "Print pre&view...", "Ctrl+Shift+P", true, true},
    MoreCommandRow{MoreCommand::searchPage, "MoreSearchPage", "&Find on the page", "Ctrl+Shift+F", false,
                   true},
    MoreCommandRow{MoreCommand::zoomIn, "MoreZoomIn", "Page lar&ger", "Ctrl++", false, true},
    MoreCommandRow{MoreCommand::zoomOut, "MoreZoomOut", "Page s&maller", "Ctrl+-", false, true},
    MoreCommandRow{MoreCommand::zoomNormal, "MoreZoomNormal", "Page in its own si&ze", "Ctrl+0", false, true},
};

[[nodiscard]] constexpr std::size_t indexOf(MoreCommand command) {
    std::size_t index = 0;
    while (moreCommands.at(index).command != command)
        ++index;
    return index;
}

/// What the menu's entries depend on.
struct MoreState {
    bool orderIsEmpty = true;
    bool keepsOrders = false; ///< there is a folder to keep them in
    bool hasNews = false;     ///< the catalogue has changed since an earlier one
    ViewMode view = ViewMode::catalogue;
    ToolbarState toolbar{};
};

/// Whether the command makes sense now.
[[nodiscard]] bool makesSense(MoreCommand command, const MoreState& state);

}
