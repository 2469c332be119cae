#include "ui/qt/print/order_title.h"

#include <QRegularExpression>

namespace ui::qt {

QString orderTitle(QString number) {
    constexpr int longest = 60;
    static const QRegularExpression notInNames(R"([\x00-\x1f/\\:*?"<>|.]+)");
    const auto shortened = number.replace(notInNames, "-").left(longest).trimmed();
    return shortened.isEmpty() ? QString("Order") : "Order " + shortened;
}

}
