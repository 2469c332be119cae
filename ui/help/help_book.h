#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

/// The first page of the help book, which names the others.
inline constexpr std::string_view helpContentsPage = "index.html";

struct HelpSection {
    std::string anchor; ///< the heading's id
    std::string title;
};

struct HelpPage {
    std::string file; ///< its name in the book's folder
    std::string title;
    std::vector<HelpSection> sections; ///< second-level headings that links can lead to
    std::string text;                  ///< what is read on it, without its lists of links
};

/// Titles are the page's own headings.
[[nodiscard]] HelpPage readHelpPage(const std::string& file, std::string_view html);

/// A page that holds what was searched for, and what to mark on it.
struct HelpHit {
    std::size_t page; ///< in pages()
    std::string marked;
};

/// The help book: pages in a folder beside the program, in the order of its contents page, which comes
/// first. A page that the contents page names and that is not there is left out. Without a contents page
/// there is no book: base::FileError.
class HelpBook {
public:
    explicit HelpBook(const std::filesystem::path& folder);

    [[nodiscard]] const std::vector<HelpPage>& pages() const { return m_pages; }

    /// The pages that hold the phrase, or failing that all of its words, in any letter case. Curly and
    /// straight quotation marks are the same. Those with it in their titles come first. Nothing holds an
    /// empty phrase.
    [[nodiscard]] std::vector<HelpHit> search(std::string_view phrase) const;

private:
    std::vector<HelpPage> m_pages;
    std::vector<std::string> m_searched; // each page's text, folded
};

}
