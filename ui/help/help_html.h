#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Just enough of HTML to read the help book, which is well-formed UTF-8. Whatever else it is given, it
/// comes to an end and makes no more of it than text.
namespace ui {

struct HtmlTag {
    std::string_view name; ///< as written, without the "/" of a closing tag
    std::string_view attributes;
    bool closing;

    /// The value in quotation marks; empty where there is none.
    [[nodiscard]] std::string_view attribute(std::string_view key) const;
};

/// Calls for every tag and for every text between two, in order. Comments and declarations are passed over.
void readHtml(std::string_view html, const std::function<void(const HtmlTag&)>& onTag,
              const std::function<void(std::string_view)>& onText);

/// The text as it is read: Windows-1252, character references resolved, white space drawn together and
/// none of it at the ends.
[[nodiscard]] std::string plainText(std::string_view htmlText);

}
