#pragma once

#include <string>
#include <string_view>

namespace order {

/// A text as a spreadsheet takes it for a text: one that it would take for a formula gets an apostrophe in
/// front. Control characters become blanks.
[[nodiscard]] std::string guardedText(std::string_view text);

/// Without that apostrophe.
[[nodiscard]] std::string_view unguardedText(std::string_view text);

}
