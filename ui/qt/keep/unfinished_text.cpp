#include "ui/qt/keep/unfinished_text.h"

#include "base/numbers.h"
#include "ui/qt/widgets/qt_text.h"

#include <QLocale>

namespace ui::qt {
namespace {

constexpr int daysWithNames = 6;

}

// A clock that went back leaves times that are still to come.
QString whenText(const QDateTime& time, const QDateTime& now) {
    const auto days = time.date().daysTo(now.date());
    if (days == 0 && time <= now)
        return "today at " + time.toString("h:mm");
    if (days > 0 && days <= daysWithNames)
        return QLocale(QLocale::English).dayName(time.date().dayOfWeek());
    return shortDate(time.date());
}

QString unfinishedText(const order::UnfinishedOrder& order, const QDateTime& now) {
    const auto count = order.lines.size();
    return "an unfinished order of " + QString::number(count) + (count == 1 ? " line" : " lines") + " from " +
           whenText(localTime(order.changed), now) + ", " + toQt(base::groupedText(order.total));
}

}
