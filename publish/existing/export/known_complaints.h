#pragma once

#include "publish/complaint.h"

#include <filesystem>

namespace publish {

/// Writes down which errors an exported source has, in "exact/known.txt"; without errors there is no file.
/// Throws base::FileError.
void keepKnown(const Complaints& complaints, const std::filesystem::path& sourceFolder);

/// Turns errors that the source had when it was exported into warnings, so that a catalogue that was sold
/// like that can be built again: as many of each kind as there were. Where they stand may have changed. To be
/// called with all complaints of a build or check, before they are reported.
void demoteKnown(const std::filesystem::path& sourceFolder, Complaints& complaints);

}
