#include "ui/more_commands.h"

namespace ui {

bool makesSense(MoreCommand command, const MoreState& state) {
    switch (command) {
    case MoreCommand::orders:
    case MoreCommand::addresses:
        return state.keepsOrders;
    case MoreCommand::news:
        return state.hasNews;
    case MoreCommand::saveOrder:
    case MoreCommand::copyOrder:
        return !state.orderIsEmpty;
    case MoreCommand::preview:
        return state.toolbar.visible(Command::preview) && state.toolbar.enabled(Command::preview);
    case MoreCommand::searchPage:
    case MoreCommand::zoomIn:
    case MoreCommand::zoomOut:
    case MoreCommand::zoomNormal:
        return state.view == ViewMode::catalogue;
    case MoreCommand::quickEntry:
    case MoreCommand::openList:
    case MoreCommand::pasteList:
        break;
    }
    return true;
}

}
