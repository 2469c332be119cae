#pragma once

#include "pages/page_setting.h"

#include <string>

namespace app {

/// What start-up finds out and the main window works with; it does not change after that.
struct Session : pages::PageSetting {
    std::string SelectedSupplier; ///< its folder's name in `ProgramFolder`
};

}
