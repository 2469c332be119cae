#pragma once

#include <QString>

namespace ui::qt {

/// What an order with this number is called in print queues and file names: without what file systems or the
/// print dialog would take for something else.
[[nodiscard]] QString orderTitle(QString number);

}
