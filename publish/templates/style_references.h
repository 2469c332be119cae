#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// An address in a style sheet.
struct StyleReference {
    std::string address;
    std::size_t at;
};

/// What a style sheet loads, by `url(...)` and `@import "..."`, in order; comments are passed over.
[[nodiscard]] std::vector<StyleReference> styleReferences(std::string_view css);

}
