#pragma once

#include <string>
#include <string_view>

namespace ui::system {

/// What an HTML message says, both in UTF-8: a line for each paragraph and for each row of a table, whose
/// cells are separated by tabs. A table of one column only places what it holds. Lines end in LF. Takes as
/// long as the message is long, whatever stands in it.
[[nodiscard]] std::string textOfHtml(std::string_view html);

}
