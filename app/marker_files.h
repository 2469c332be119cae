#pragma once

#include "app/supplier.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

namespace platform {
class MessageBox;
}

/// What the marker files in `ProgramFolder` say of the installed suppliers (docs/supplier-folders.md).
namespace app {

/// The supplier that a marker's first line describes; nothing when it has fewer than two fields. A field in
/// which nothing can be seen is the folder's name.
[[nodiscard]] std::optional<Supplier> parseMarker(std::string_view folderName, std::string_view firstLine);

/// The "*.Sup" files of `ProgramFolder`. A marker with fewer than two fields is passed over, which is
/// reported once a run.
class MarkerFiles {
public:
    MarkerFiles(std::filesystem::path programFolder, platform::MessageBox& messages);

    /// In order of their names without regard to case. A single marker always counts, since no list is
    /// shown; what it does not say is the folder's name. A marker whose name can be no folder's is passed
    /// over.
    [[nodiscard]] std::vector<Supplier> suppliers();

private:
    void reportOnce(const std::filesystem::path& marker);

    std::filesystem::path m_programFolder;
    platform::MessageBox& m_messages;
    std::set<std::filesystem::path> m_reported;
};

}
