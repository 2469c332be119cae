#pragma once

#include "publish/complaint.h"

#include <filesystem>
#include <string>

namespace publish {

/// What a new source folder is to begin with. Texts are UTF-8.
struct Beginning {
    std::filesystem::path list;    ///< the supplier's own product list; empty: a small example
    std::string supplierName = {}; ///< empty: a name to be replaced
    std::string email = {};        ///< the same
};

/// Makes a source folder that builds at once: parameters with comments, templates, placeholders for logo and
/// pictures, and the list, with what was found in it written down in list.ini. Headings of the list become
/// those of the viewer's columns; a list without a tax column makes a catalogue without tax.
///
/// The folder must be new or empty. It is complete or not there: where the list makes no catalogue, it is
/// complained of and nothing is left. Answers with how the list was read, a line. Throws base::FileError.
std::string makeSourceFolder(const std::filesystem::path& folder, const Beginning& beginning,
                             Complaints& complaints);

}
