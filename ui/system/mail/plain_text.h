#pragma once

#include "platform/mailer.h"

#include <QString>

namespace ui::system {

/// The body as a person reads it: of an HTML message the text that it shows, a table's cells separated by
/// tabs. Lines end in LF.
[[nodiscard]] QString plainText(const platform::Mail& mail);

}
