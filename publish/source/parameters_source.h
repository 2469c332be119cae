#pragma once

#include "catalog/record_codec.h"
#include "publish/complaint.h"

#include <string>
#include <string_view>

namespace publish {

/// What catalog.ini says (docs/publishing.md, "The parameters").
struct ParametersSource {
    catalog::ParameterValues values;
    bool countsVersion = true; ///< no version of the supplier's own
    std::string supplierId;    ///< the zip's name without ".zip"; empty where none is given
    std::string displayName;   ///< for the supplier list; the supplier's name where none is given
};

/// Reads the text of catalog.ini, in UTF-8. Complaints name the lines; what they complain of is left out.
[[nodiscard]] ParametersSource readParameters(std::string_view text, Complaints& complaints);

}
