#pragma once

#include "catalog/catalog.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace order {

/// The articles of a catalogue of before (catalog::PreviousCatalog), open for reading.
struct EarlierArticles {
    catalog::ProductTable products;
    catalog::Table<catalog::IndexRecord> codes;

    /// The files that stay open. They move with this object.
    [[nodiscard]] std::array<const base::MappedFile*, 2> openFiles() const;
};

/// Throws base::FileError where one of the files is not there.
[[nodiscard]] EarlierArticles openEarlier(const std::filesystem::path& folder);

/// An article with which something has happened. Texts are in the code page.
struct NewsArticle {
    std::string code;
    std::string description;
    float before = 0; ///< its prices without tax; 0 where it was not there, or had none
    float now = 0;
    bool ordered = false; ///< ever, by this customer
    std::int32_t record;  ///< in the catalogue of now; of an article that is gone, in that of before
};

/// What happened to all of these.
struct NewsOfAKind {
    std::size_t count = 0;
    std::vector<NewsArticle> first; ///< at most `mostShownNews`: those ordered before, then by their records
};

inline constexpr std::size_t mostShownNews = 2'000;

struct CatalogNews {
    NewsOfAKind up; ///< prices; so does one come up that was 0
    NewsOfAKind down;
    NewsOfAKind added;
    NewsOfAKind gone;
};

/// What has changed for customers, by code as codes are found: their first 20 bytes, and the first article of
/// several. `ordered` are codes in upper case. Goes once through both indexes and builds nothing, so it
/// takes a fraction of a second for a million articles. Nothing when it was stopped. A damaged index, or an
/// earlier file that is cut meanwhile, throws base::FileError with a sentence for the user; a file of now
/// that is cut, base::DamagedFile.
[[nodiscard]] std::optional<CatalogNews> newsOf(const catalog::Catalog& now, const EarlierArticles& earlier,
                                                std::span<const std::string> ordered,
                                                const std::stop_token& stop = {});

}
