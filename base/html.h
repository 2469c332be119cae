#pragma once

#include <functional>
#include <string>
#include <string_view>

/// HTML as a row of tags and texts, in UTF-8. It is read once from beginning to end, so whatever it is, that
/// takes as long as it is long.
namespace base {

struct HtmlTag {
    std::string_view name; ///< as written, without the "/" of a closing tag
    std::string_view attributes;
    bool closing;

    /// The value in quotation marks; empty where there is none.
    [[nodiscard]] std::string_view attribute(std::string_view key) const;
};

/// Calls for every tag and for every text between two, in order; a text may come in several pieces.
/// Comments, declarations and what stands inside styles and scripts are passed over.
void readHtml(std::string_view html, const std::function<void(const HtmlTag&)>& onTag,
              const std::function<void(std::string_view)>& onText);

/// A text with its character references resolved, those of HTML 4 and numbers.
[[nodiscard]] std::string withoutReferences(std::string_view text);

/// A text in UTF-8 as a page shows it, in an attribute's value too: nothing in it is read as a tag or a
/// reference.
[[nodiscard]] std::string asHtml(std::string_view text);

}
