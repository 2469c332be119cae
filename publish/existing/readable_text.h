#pragma once

#include <string>
#include <string_view>

namespace publish {

/// A text of the data files as a source folder's files hold it: UTF-8, characters that the code page lacks as
/// themselves where reading gives the same bytes again. Control characters become blanks, and blanks at the
/// ends go.
[[nodiscard]] std::string readableLine(std::string_view text);

/// The same for texts of several lines, which end in single line feeds.
[[nodiscard]] std::string readableLines(std::string_view text);

/// Whether two texts of several lines are the same as `readableLines` gives them, found out without copies.
[[nodiscard]] bool readSameLines(std::string_view a, std::string_view b);

/// A field of a table, in quotation marks where it needs them.
void appendField(std::string& row, std::string_view utf8);

}
