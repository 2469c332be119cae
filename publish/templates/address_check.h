#pragma once

#include "pages/browse/page_files.h"
#include "publish/complaint.h"
#include "publish/templates/catalog_files.h"

#include <optional>
#include <string>
#include <string_view>

namespace publish {

/// What is wrong with an address in a page, without a place.
struct BadAddress {
    Complaint::Weight weight;
    std::string_view rule;
    std::string text; ///< UTF-8
};

/// Judges an address as the viewer will, which loads and opens only what lies in the catalogue's folder. It
/// is relative to that folder, where {DIR} would stand too. Links to products are not looked at.
[[nodiscard]] std::optional<BadAddress> judge(std::string_view address, pages::Resource resource,
                                              const CatalogFiles& files);

/// The name of the file that such an address names, in the code page: without query and place,
/// percent-escapes decoded.
[[nodiscard]] std::string fileNameIn(std::string_view address);

}
