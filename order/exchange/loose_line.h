#pragma once

#include "order/exchange/list_columns.h"
#include "order/wanted_line.h"

namespace order {

/// A line of UTF-8 in which blanks part code and quantity: "AB 12 5". The quantity is the last number, the
/// code what stands before it, or the other way round when only that is a code; a code alone is one piece.
/// Where the number could be a part of the code too, the line is unclear.
[[nodiscard]] WantedLine readLooseLine(std::string_view utf8, const IsCode& isCode);

}
