#pragma once

#include <string>
#include <string_view>

namespace pages {

/// Addresses as the link rules read them.
struct LinkAddress {
    /// As a person would read it: escapes decoded, `file:` prefix gone, separators as backslashes, in
    /// the code page ("\home\anna\prog\ACME\Tmp.htm?AB 1", "mailto:a@b").
    std::string text;
    bool isFile = false; ///< a file of this computer
};

/// From the address as the browser encodes it. A broken escape stays as it stands; one that the browser
/// escaped once more is read as it was written. What stands between "?" and "#" is in the page's
/// encoding, Windows-1252; everything else is UTF-8.
[[nodiscard]] LinkAddress readAddress(std::string_view encoded);

}
