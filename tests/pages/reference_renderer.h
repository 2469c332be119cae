#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// The rendering of a page written down step by step, with no thought of speed: find, replace, start
/// again. What the program does in a cleverer way is measured against it.
namespace reference {

using Values = std::map<std::string, std::string>; // by tag; what is missing is empty

struct Page {
    std::string text; // of the template
    bool isGroup = false;
    Values values;               // of the page's own record
    std::vector<Values> entries; // of the listed records
};

/// Nothing where the template is damaged.
std::optional<std::string> render(const Page& page);

}
