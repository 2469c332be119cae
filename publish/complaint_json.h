#pragma once

#include "publish/complaint.h"

#include <string>

namespace publish {

/// The complaints as one JSON array, an object a line, with a line end behind it: weight ("error" or
/// "warning"), rule, file, sheet, row, column, text. What does not apply is "" or 0. Always valid JSON in
/// UTF-8: of bytes that are not UTF-8 each stands there as the character of the code page.
[[nodiscard]] std::string complaintsAsJson(const Complaints& complaints);

}
