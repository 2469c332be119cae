#pragma once

#include "publish/complaint.h"

#include <cstdint>
#include <string>
#include <vector>

namespace publish {

/// What of a zip decides whether the viewer installs it as a catalogue. Texts are in the code page.
struct ZipOverview {
    std::string fileName = {}; ///< the zip's own
    std::vector<std::string> topLevelFiles = {};
    std::string markerLine = {};      ///< first line of the marker that counts
    std::uint64_t parametersSize = 0; ///< of PrdPrm.dat
};

/// A zip's file name without ".zip".
[[nodiscard]] std::string nameOfZip(const std::string& fileName);

/// Why the viewer would not install the zip, each time with what to do.
[[nodiscard]] Complaints checkCatalogZip(const ZipOverview& zip);

}
