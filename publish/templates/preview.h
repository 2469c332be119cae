#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace publish {

/// A page as the viewer would show it.
struct Preview {
    std::string bytes; ///< in Windows-1252, unless the page says otherwise in its head
    std::string title; ///< what it shows, UTF-8: "the page of A1", "an order, printed"
    bool isHtml;       ///< else plain text, as some order e-mails are
};

/// Renders a page of the catalogue in the folder, which holds data files, templates and content. {DIR} is the
/// folder by its full path. `what` is
/// - "welcome", "banner", "order" or "mail", in small letters; order and mail show a sample order of the
///   catalogue's first products, with tax where the catalogue charges it;
/// - the code of a product or group, UTF-8, in any letter case; else the number of a record, from 1;
/// - empty: the page that customers see first, the one of record 1.
/// What cannot be shown throws base::FileError, which says why (in the code page, as all of them).
[[nodiscard]] Preview preview(const std::filesystem::path& folder, std::string_view what);

}
