#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

namespace catalog {

/// The articles of a supplier's catalogue as they were before the last update that changed any, kept in a
/// folder of the user's own (docs/supplier-folders.md, "The catalogue of before"). Keeping them never fails:
/// where it cannot be done there are none, or those of before stay. A program in another folder keeps its own
/// in the same place; these are passed over here.
class PreviousCatalog {
public:
    /// For the catalogue in `dataFolder`. With an empty `keptFolder` there is none, and none will be.
    PreviousCatalog(const std::filesystem::path& keptFolder, std::string_view supplier,
                    std::filesystem::path dataFolder);

    /// Where `Prdlst.dat` and `PrdIdx.idx` of before are; nothing where there are none.
    [[nodiscard]] std::optional<std::filesystem::path> folder() const;

    /// It is there, it differs from the catalogue by size or time, and `markSeen` was not called since it
    /// came. Asks the disk a few questions and reads no data.
    [[nodiscard]] bool isUnseen() const;

    void markSeen() const;

    /// The file that `DataFolder` will have under this name after the update.
    using ComingFile = std::function<std::optional<std::filesystem::path>(std::string_view name)>;

    /// To be called before an update, while the catalogue is still as it was: makes its files safe beside the
    /// previous ones. Whether there is something to put in place; there is not where the same files come
    /// again. Takes no time where the file system can give a file a second name, else as long as copying.
    [[nodiscard]] bool layReady(const ComingFile& coming) const;

    /// After the update: what was laid ready takes the place of the previous files. Whatever ends the program
    /// meanwhile, the ones or the others are there, whole.
    void putInPlace() const;

    /// For a supplier that is removed, or comes anew.
    void forget() const;

private:
    [[nodiscard]] bool isAnothers(const std::filesystem::path& folder) const;

    std::filesystem::path m_place; // empty: none is kept
    std::filesystem::path m_dataFolder;
};

}
