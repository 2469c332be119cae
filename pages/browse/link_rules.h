#pragma once

#include "catalog/catalog.h"
#include "pages/browse/page_files.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace pages {

/// Where a link of a catalogue page leads.
struct LeadsNowhere {};

struct LeadsToProduct {
    std::int32_t record; ///< in Prdlst.dat
};

struct LeadsToMissingProduct {};

struct LeadsToPage {
    std::filesystem::path file; ///< exists, and pages may have it
    std::string place;          ///< where it opens: "#" and an encoded name; empty for its top
};

struct LeadsOutside {}; ///< to the web, for the system's browser

using LinkEnd = std::variant<LeadsNowhere, LeadsToProduct, LeadsToMissingProduct, LeadsToPage, LeadsOutside>;

/// The link rules of one open catalogue, which must outlive them.
///
/// Only addresses with ".htm" in them lead anywhere. A "?" or "|" in a file's address makes it a link to the
/// product whose code follows, in any letter case and with blanks around it. All this is asked of the part
/// behind the folder in which the page lies, since a folder's name may hold any of these characters.
class LinkRules {
public:
    LinkRules(const catalog::Catalog& catalog, const catalog::Folders& folders);

    /// The address as the browser encodes it.
    [[nodiscard]] LinkEnd follow(std::string_view encodedAddress) const;

private:
    [[nodiscard]] std::string_view behindFolder(std::string_view address) const;
    [[nodiscard]] LinkEnd toProduct(std::string_view code, bool slashesUncertain) const;
    [[nodiscard]] LinkEnd toPage(std::string_view encodedAddress) const;

    const catalog::Catalog& m_catalog;
    PageFiles m_files;
    std::vector<std::string> m_folders; // as addresses read, with a backslash at the end
};

}
