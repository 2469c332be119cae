#pragma once

#include "catalog/catalog.h"
#include "pages/template/layout_sizes.h"

#include <string>

namespace app {

/// What start-up finds out and the main window works with; it does not change after that.
struct Session {
    catalog::Folders folders;
    pages::LayoutSizes layout;
    std::string SelectedSupplier; ///< its folder's name in `ProgramFolder`
    bool programFileReadOnly = false;
};

}
