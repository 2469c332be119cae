#pragma once

#include "publish/complaint.h"

#include <string>
#include <string_view>
#include <vector>

namespace ui::system {
struct ZipListing;
}

namespace publish {

/// What the viewer does not take of a zip's entries by their names and kinds, in their order: an error where
/// it refuses the whole zip, a warning where it passes over the entry.
[[nodiscard]] Complaints checkEntries(const std::vector<ui::system::ZipListing>& entries);

[[nodiscard]] Complaint entryComplaint(Complaint::Weight weight, std::string_view name, const char* rule,
                                       std::string text);

/// A name from a zip as it can stand in a message: UTF-8, no control characters, not endless.
[[nodiscard]] std::string shownName(std::string_view name);

}
