#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// The names of everything that a catalogue's folder will hold at the customer's, found as the viewer finds
/// them: without regard to letter case. Names are UTF-8, with "/" between folders.
class CatalogFiles {
public:
    explicit CatalogFiles(const std::vector<std::string>& names);

    /// What lies in a folder and below it. A folder that cannot be read holds nothing.
    [[nodiscard]] static CatalogFiles in(const std::filesystem::path& folder);

    /// The name is in the code page; it may have "\" for "/", "." and ".." as parts, and blanks around it.
    /// Nothing outside the folder is held.
    [[nodiscard]] bool holds(std::string_view name) const;

private:
    std::set<std::string, std::less<>> m_names; // code page, upper case
};

/// Whether a name in such a form leads out of the folder.
[[nodiscard]] bool leadsOut(std::string_view name);

}
