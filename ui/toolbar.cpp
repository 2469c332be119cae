#include "ui/toolbar.h"

#include "base/text.h"

namespace ui {

ToolbarState openingToolbar(const catalog::Parameters& parameters, std::string_view emailStatus) {
    using catalog::ParameterText;
    ToolbarState state;
    state.enable(Command::exit, true);
    if (parameters.text(ParameterText::supplierFax).empty())
        state.hide(Command::print);
    const bool mailSwitchedOff = base::upper(base::trim(emailStatus)) == "NO";
    if (parameters.text(ParameterText::supplierEmail).empty() || mailSwitchedOff)
        state.hide(Command::email);
    return state;
}

}
