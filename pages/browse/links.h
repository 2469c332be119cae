#pragma once

#include "catalog/code_index.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace pages {

/// What becomes of a link inside a catalogue page.
enum class LinkTarget {
    nothing, ///< the page stays; nothing happens
    page,    ///< an ordinary page of the supplier's
    product, ///< the product whose code the link names
    outside  ///< a page of the web, for the system's browser
};

struct Link {
    LinkTarget target = LinkTarget::nothing;
    std::string code; ///< for `product`: trimmed, in upper case, may be empty
    /// The code stood in the path of the address, where the browser turns "\" into "/": either may be meant.
    bool slashesUncertain = false;

    friend bool operator==(const Link&, const Link&) = default;
};

/// Judges an address as a person reads it: escapes decoded, no `file:` in front, backslashes as separators.
/// `isFile` tells that it is a file of this computer. What is said of ".htm", "?" and "|" holds for the
/// part behind the folder in which the page lies, since a folder's name may hold any of them; the first of
/// `folders`, which end in a backslash, that the address starts with is taken off.
[[nodiscard]] Link judgeLink(std::string_view address, bool isFile, std::span<const std::string> folders);

/// The record number of the product that the link names; 0 when there is none. A "?" in the code stands for
/// "|"; where no product has that code, for itself.
[[nodiscard]] std::int32_t findLinked(const Link& link, const catalog::CodeIndex& codes);

}
