#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace platform {
class MessageBox;
}

/// Installed suppliers, as their marker files in `ProgramFolder` tell (docs/supplier-folders.md).
namespace app {

struct Supplier {
    std::string folderName;  ///< the marker file's name without its last four characters
    std::string identifier;  ///< the marker's first field, by which links name the supplier
    std::string displayName; ///< the marker's second field, cut to 100 characters
};

/// The supplier that a marker's first line describes; nothing when it has fewer than two fields. A field in
/// which nothing can be seen is the folder's name.
[[nodiscard]] std::optional<Supplier> parseMarker(std::string_view folderName, std::string_view firstLine);

/// The supplier with this folder name or, if none has it, with this identifier, in any letter case.
/// Deliberate: only listed suppliers are found, so no link leads to any other folder.
[[nodiscard]] std::optional<Supplier> findSupplier(const std::vector<Supplier>& listed,
                                                   std::string_view name);

/// The "*.Sup" files of `ProgramFolder`. A marker with fewer than two fields is passed over, and the user
/// is told so once a run.
class MarkerFiles {
public:
    MarkerFiles(std::filesystem::path programFolder, platform::MessageBox& messages);

    /// In order of their names without regard to case. A single marker always counts, since no list is
    /// shown; what it does not tell is the folder's name.
    [[nodiscard]] std::vector<Supplier> suppliers();

private:
    void reportOnce(const std::filesystem::path& marker);

    std::filesystem::path m_programFolder;
    platform::MessageBox& m_messages;
    std::set<std::filesystem::path> m_reported;
};

}
