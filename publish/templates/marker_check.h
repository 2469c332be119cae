#pragma once

#include "publish/templates/brace_check.h"

#include <string>
#include <string_view>

namespace publish {

/// Takes the column tag or row marker out of a template's text, as the viewer does before anything else, and
/// complains where it takes more than was meant.
void takeLayoutMarker(std::string& text, TemplateKind kind, TemplateReport& report);

/// The part of a template that is repeated, from behind its first marker to its end marker.
struct RowPart {
    std::size_t start = 0;
    std::size_t end = 0; ///< equal to `start` where nothing is repeated
};

/// Complains of row markers that are missing, alone, misspelt or without meaning, and of a page header out of
/// place.
RowPart checkMarkers(std::string_view text, const TemplateUse& use, const std::vector<FoundBlock>& blocks,
                     TemplateReport& report);

}
