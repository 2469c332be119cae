#pragma once

#include "publish/complaint.h"

#include <filesystem>

namespace publish {

/// Examines the five data files of a catalogue's folder themselves, whoever made them: lengths, numbers that
/// lead nowhere, the order of the index, the tree of groups, prices. An error is what the viewer refuses to
/// open or shows wrongly, a warning what it tolerates (docs/publishing.md). Of each kind the first few are
/// named by record and the rest counted. `Place::file` is the data file, `Place::row` the record number.
void checkDataFiles(const std::filesystem::path& folder, Complaints& complaints);

}
