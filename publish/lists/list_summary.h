#pragma once

#include "publish/lists/list_opening.h"

#include <string>

namespace publish {

/// What was taken for what, in one line for the supplier (UTF-8).
[[nodiscard]] std::string summaryOf(const OpenedList& list);

}
