#pragma once

#include "publish/templates/template_kind.h"

#include <string_view>

namespace publish {

/// How rendering with plain values ended.
enum class Trial : std::uint8_t { passed, damaged, notANumber };

/// Renders a template with the program's own code: with plain values for all of its tags and with none, a
/// group's page with as many entries as it can have.
[[nodiscard]] Trial tryRendering(std::string_view text, const TemplateUse& use);

}
