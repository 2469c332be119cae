#pragma once

#include "publish/templates/template_kind.h"
#include "publish/templates/template_report.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace publish {

struct FoundTag {
    std::string_view tag; ///< braces included
    std::size_t at;
};

/// A conditional block, from its opening braces up to behind its closing ones.
struct FoundBlock {
    std::size_t start;
    std::size_t end;
};

/// What the braces of a template enclose, in order.
struct Braces {
    std::vector<FoundTag> tags; ///< those that the viewer fills
    std::vector<FoundBlock> blocks;
};

/// Goes through the braces as the viewer does and complains of all that are neither a tag that this kind of
/// template fills nor a block that begins, ends and is decided as it should. The result views the text.
[[nodiscard]] Braces checkBraces(std::string_view text, const TemplateUse& use, TemplateReport& report);

}
