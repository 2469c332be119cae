#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace publish {

/// A product or a group's own record, as people name it. Texts are UTF-8.
struct Named {
    std::string code = {};
    std::string description = {};
    std::string group = {}; ///< its path, "Bolts/Hex"
};

/// Of long descriptions a change holds so many characters from the beginning.
inline constexpr std::size_t longestShownDetails = 500;

/// Something that reads otherwise now. Texts are UTF-8 and as the viewer shows them.
struct TextChange {
    Named where = {};      ///< empty for a parameter
    std::string what = {}; ///< "price", "tax", "description", "picture", "Version"...
    std::string before = {};
    std::string after = {};
};

/// A price, as the viewer shows it.
struct PriceChange {
    Named product = {};
    float before = 0;
    float after = 0;

    /// Of the old price; 0 where that was 0.
    [[nodiscard]] double percent() const;
};

/// What two versions of a catalogue have in place of each other.
template <typename Item>
struct Turnover {
    std::vector<Item> added;
    std::vector<Item> gone;
};

/// Files by their names, UTF-8, "/" between folders.
struct FileChanges {
    std::vector<std::string> changed;
    std::vector<std::string> added;
    std::vector<std::string> gone;

    [[nodiscard]] std::size_t count() const { return changed.size() + added.size() + gone.size(); }
};

/// What customers will see that is different. Products are in the order of the newer catalogue, those that
/// are gone in the order of the older one; price changes begin with the greatest in percent.
struct CatalogDiff {
    std::vector<PriceChange> up;
    std::vector<PriceChange> down;
    std::vector<TextChange> taxes;
    Turnover<Named> products;
    std::vector<TextChange> texts;     ///< code, description, other, details, picture of products and groups
    std::vector<TextChange> moved;     ///< products that stand in another group: paths
    Turnover<std::string> groups;      ///< paths
    std::vector<TextChange> regrouped; ///< groups with another name or place: paths
    std::vector<TextChange> parameters;
    FileChanges templates;
    FileChanges files; ///< pictures, style sheets and everything else

    [[nodiscard]] bool isEmpty() const;
};

/// Compares two catalogues' folders, installed ones or unpacked zips. A product is the same where its code
/// is, as the viewer looks codes up: in any letter case, by 20 characters. Of a code that occurs several
/// times the first is compared with the first, the second with the second. Products without a code are
/// compared by their descriptions. A group is the same where its path is, or else the code of its own record.
/// Passwords are only said to be set, changed or removed. Throws base::FileError where one of the folders
/// holds no catalogue that the viewer opens.
[[nodiscard]] CatalogDiff compareCatalogs(const std::filesystem::path& older,
                                          const std::filesystem::path& newer);

/// The same without the files that are no data files.
[[nodiscard]] CatalogDiff compareData(const std::filesystem::path& older, const std::filesystem::path& newer);

/// One line: "12 prices up (most: +8.3 %), 3 down, 5 new products, 1 gone, 2 templates changed".
[[nodiscard]] std::string sumOf(const CatalogDiff& diff);

/// That line, then a section for each kind of change. UTF-8.
[[nodiscard]] std::string textOf(const CatalogDiff& diff);

/// The same for programs: one JSON object, UTF-8, with every member of `CatalogDiff` by its name.
[[nodiscard]] std::string jsonOf(const CatalogDiff& diff);

}
