#pragma once

#include "publish/templates/marker_check.h"

namespace publish {

/// Complains where an order made from the template would fail, or leave out what the supplier needs to
/// deliver it.
void checkOrderTags(const Braces& braces, const RowPart& row, const TemplateUse& use, TemplateReport& report);

}
