#include "ui/commands.h"

#include "base/text.h"

#include <initializer_list>

namespace ui {
namespace {

void enable(ToolbarState& state, std::initializer_list<Command> some, bool on) {
    for (const auto command : some)
        state.enable(command, on);
}

// What can be done with an order while its view is up.
void enableHandingOver(ToolbarState& state, bool on) {
    enable(state, {Command::priceList, Command::print, Command::preview, Command::email}, on);
}

}

ToolbarState openingToolbar(const catalog::Parameters& parameters, std::string_view emailStatus) {
    using catalog::ParameterText;
    ToolbarState state;
    state.enable(Command::exit, true);
    state.enable(Command::search, true);
    state.enable(Command::help, true);
    if (parameters.text(ParameterText::supplierFax).empty()) {
        state.hide(Command::print);
        state.hide(Command::preview);
    }
    const bool mailSwitchedOff = base::upper(base::trim(emailStatus)) == "NO";
    if (parameters.text(ParameterText::supplierEmail).empty() || mailSwitchedOff)
        state.hide(Command::email);
    return state;
}

ToolbarState afterOrderChange(ToolbarState before, ViewMode view, double orderTotal) {
    before.enable(Command::clear, orderTotal > 0);
    before.enable(Command::checkOut, view == ViewMode::catalogue && orderTotal != 0);
    return before;
}

ToolbarState afterCheckOut(ToolbarState before, double orderTotal) {
    enable(before, {Command::back, Command::search}, false);
    enableHandingOver(before, true);
    return afterOrderChange(before, ViewMode::order, orderTotal);
}

ToolbarState afterPriceList(ToolbarState before, double orderTotal, std::size_t historySize) {
    before.enable(Command::back, historySize != 1);
    before.enable(Command::search, true);
    enableHandingOver(before, false);
    return afterOrderChange(before, ViewMode::catalogue, orderTotal);
}

ToolbarState afterClear(ToolbarState before) {
    enableHandingOver(before, false);
    enable(before, {Command::checkOut, Command::clear}, false);
    return before;
}

}
