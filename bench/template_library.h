#pragma once

#include "pages/template/fields.h"

#include <ctemplate/template.h>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The yardstick's interface: the program's own values, put into ctemplate's dictionaries.
namespace bench {

/// A tag, and the name that ctemplate knows it by.
struct Tag {
    std::string_view ours;
    const char* theirs;
};

[[nodiscard]] std::string inTheirNames(std::string text, std::span<const Tag> tags);

/// The numbers under which the fields know these tags.
[[nodiscard]] std::vector<unsigned> numbersOf(std::span<const Tag> tags, const pages::Fields& fields);

/// The buffer is for each value in turn, so that it costs no memory of its own.
void fillTags(ctemplate::TemplateDictionary& dictionary, std::span<const Tag> tags,
              std::span<const unsigned> numbers, const pages::Fields& fields, std::string& buffer);

/// Replaces `out` by the page.
void expand(const char* name, const ctemplate::TemplateDictionary& dictionary, std::string& out);

}
