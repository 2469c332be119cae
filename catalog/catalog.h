#pragma once

#include "catalog/code_index.h"
#include "catalog/memo_file.h"
#include "catalog/parameters.h"
#include "catalog/record_file.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string_view>

namespace catalog {

/// The data files of a catalogue, by the names under which they stand in `DataFolder`.
inline constexpr std::string_view parametersFile = "PrdPrm.dat";
inline constexpr std::string_view productsFile = "Prdlst.dat";
inline constexpr std::string_view groupsFile = "GrpIdx.idx";
inline constexpr std::string_view indexFile = "PrdIdx.idx";
inline constexpr std::string_view memosFile = "PrdMem.Dat";

/// The three folders of a run. `DataFolder` and `UserFolder` are empty until a supplier is chosen.
struct Folders {
    std::filesystem::path ProgramFolder; ///< holds the program file
    std::filesystem::path DataFolder;    ///< the chosen supplier's catalogue
    std::filesystem::path UserFolder;    ///< User.ini, Basket.dat and the scratch page
};

/// One supplier's catalogue, open for reading as long as this object lives. The views that its tables
/// hand out live as long.
struct Catalog {
    Parameters parameters;
    ProductTable products;
    GroupTable groups;
    CodeIndex codes;
    MemoFile memos;

    /// The name of the group with this record number, trimmed; empty outside the file.
    [[nodiscard]] std::string_view groupName(std::int32_t group) const { return groups.at(group).name(); }

    /// The files that stay open. They move with this object.
    [[nodiscard]] std::array<const base::MappedFile*, 4> openFiles() const;

    /// None of the open files has become shorter since, or is gone.
    [[nodiscard]] bool isWhole() const;

    /// To be called after something was read and before anything comes of it; base::DamagedFile names the
    /// first file that is not whole.
    void requireWhole() const;
};

/// Opens all files of the folder, one after the other; the first one missing throws base::MissingFile.
/// `betweenProductsAndGroups` is done when the products are open and the groups are not.
[[nodiscard]] Catalog openCatalog(
    const std::filesystem::path& dataFolder, const std::function<void()>& betweenProductsAndGroups = [] {});

}
