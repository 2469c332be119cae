#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Installed suppliers (docs/supplier-folders.md).
namespace app {

struct Supplier {
    std::string folderName;  ///< the marker file's name without its last four characters
    std::string identifier;  ///< the marker's first field, by which links name the supplier
    std::string displayName; ///< the marker's second field, cut to 100 characters
};

/// The supplier with this folder name or, if none has it, with this identifier, in any letter case.
/// Deliberate: only listed suppliers are found, so no link leads to any other folder.
[[nodiscard]] std::optional<Supplier> findSupplier(const std::vector<Supplier>& listed,
                                                   std::string_view name);

}
