#pragma once

#include "pages/browse/page_files.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// An address in a page.
struct HtmlReference {
    std::string address;      ///< as it stands there, but for character references
    pages::Resource resource; ///< what it is asked for; `link` for what is clicked
    std::size_t at;           ///< where its element begins
    bool hasStandIn;          ///< the element tells what to do when the file is missing
};

/// The addresses of a page's links, pictures, styles, scripts, frames and media, in order.
[[nodiscard]] std::vector<HtmlReference> htmlReferences(std::string_view html);

}
