#pragma once

#include <filesystem>
#include <string>

namespace bench {

/// Writes a catalogue zip of some 203 MB, "ACME.zip", into the folder: 5,000 pictures, of sizes and with
/// bytes that shrink as little as those of photographs, and 8 MB of data files. Two versions have no picture
/// alike.
void makePictureZip(const std::filesystem::path& folder, const std::string& version);

}
