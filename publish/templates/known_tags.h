#pragma once

#include "publish/templates/template_kind.h"

#include <optional>
#include <string_view>

namespace publish {

/// What the viewer's own tables say about a tag, braces included, in one kind of template.
enum class TagStanding : std::uint8_t {
    filled,
    elsewhere, ///< of another kind of template; here it is unknown, like the rest
    unknown
};

[[nodiscard]] TagStanding standingOf(std::string_view tag, TemplateKind kind);

/// The tag of this kind that was probably meant by an unknown one: "{PRICEEXC}" for "{PRICE}".
[[nodiscard]] std::optional<std::string_view> meantBy(std::string_view tag, TemplateKind kind);

}
