#pragma once

#include "publish/existing/compare/compared_catalog.h"

#include <vector>

namespace publish {

/// What the parameters of two catalogues say differently, by the keys of catalog.ini. Passwords are only said
/// to be set, changed or removed.
[[nodiscard]] std::vector<TextChange> changedParameters(const ComparedCatalog& older,
                                                        const ComparedCatalog& newer);

}
