#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace publish {

/// What a template is made into.
enum class TemplateKind : std::uint8_t { product, group, banner, welcome, print, mail };

/// A template that the viewer asks for.
struct TemplateUse {
    std::string_view name; ///< as the viewer spells it
    TemplateKind kind;
    bool taxed = true; ///< of an order: with tax, so not the "_NT" one
};

/// The template of this file name, in any letter case; nothing for any other file.
[[nodiscard]] std::optional<TemplateUse> templateUse(std::string_view fileName);

}
