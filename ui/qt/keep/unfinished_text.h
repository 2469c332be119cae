#pragma once

#include "order/kept/unfinished_orders.h"

#include <QDateTime>
#include <QString>

namespace ui::qt {

/// When something was, as it is said later: "today at 9:41", "Monday", or the date.
[[nodiscard]] QString whenText(const QDateTime& time, const QDateTime& now);

/// "an unfinished order of 12 lines from Monday, 327.06"
[[nodiscard]] QString unfinishedText(const order::UnfinishedOrder& order, const QDateTime& now);

}
