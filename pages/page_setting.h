#pragma once

#include "catalog/catalog.h"
#include "pages/template/layout_sizes.h"

namespace pages {

/// What the pages of a catalogue depend on besides the catalogue itself; it does not change while it is open.
struct PageSetting {
    catalog::Folders folders;
    LayoutSizes layout;
    bool programFileReadOnly = false;
};

}
