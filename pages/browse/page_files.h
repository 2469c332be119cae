#pragma once

#include "catalog/catalog.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace pages {

/// What a file is asked for: to be shown in a page's place, or as a part of the page.
enum class Resource { link, frame, picture, style, script, font, media, other };

/// Whether a file with this ending (".jpg", any letter case) may be had for this use.
[[nodiscard]] bool isOfKind(std::string_view ending, Resource resource);

/// Where the files of some pages lie. Each of the three may be empty.
struct PagePlaces {
    std::filesystem::path folder;        ///< with everything below it
    std::filesystem::path scratchPage;   ///< which a link may lead to, and nothing else
    std::filesystem::path pictureFolder; ///< whose pictures may be had, but nothing below it
};

/// The files that pages may load, found without regard to letter case: what pages are made of, each kind for
/// its own use only. So settings, data, index, template, marker and zip files are never among them. Symbolic
/// links are followed before places are compared, so nothing leads out.
class PageFiles {
public:
    explicit PageFiles(const PagePlaces& places);

    /// The file's true path; nothing where the page may not have it or there is none. A scratch page, whose
    /// text may be an order's, is in no frame.
    [[nodiscard]] std::optional<std::filesystem::path> find(const std::filesystem::path& asked,
                                                            Resource resource) const;

    /// Whether a path, existing or not, lies in the folder.
    [[nodiscard]] bool contains(const std::filesystem::path& path) const;

private:
    [[nodiscard]] std::optional<std::filesystem::path> inFolder(const std::filesystem::path& plain) const;
    [[nodiscard]] std::optional<std::filesystem::path> scratchPage(const std::filesystem::path& plain) const;
    [[nodiscard]] std::optional<std::filesystem::path>
    programPicture(const std::filesystem::path& plain) const;
    [[nodiscard]] bool isScratch(const std::filesystem::path& real) const;

    PagePlaces m_places; // canonical
};

/// The files that the pages of a catalogue may load.
[[nodiscard]] PageFiles pageFilesOf(const catalog::Folders& folders);

/// The files that the program's own page in `ProgramFolder`, the supplier list, may load: logos.
[[nodiscard]] PageFiles pageFilesOfProgram(const std::filesystem::path& programFolder);

}
