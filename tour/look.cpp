#include "tour/look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

namespace tour {
namespace {

constexpr QColor window(0x2b, 0x2e, 0x32);
constexpr QColor entry(0x1d, 0x1f, 0x22);
constexpr QColor text(0xee, 0xf0, 0xf2);
constexpr QColor disabled(0x8a, 0x8f, 0x95);
constexpr QColor highlight(0x2a, 0x6f, 0xb0);

QPalette darkPalette() {
    QPalette palette(text, window, window.lighter(150), window.darker(170), window.darker(130), text,
                     Qt::white, entry, window);
    palette.setColor(QPalette::AlternateBase, entry.lighter(118));
    palette.setColor(QPalette::ToolTipBase, window.lighter(130));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, disabled);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, highlight.lighter(160));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    return palette;
}

}

void apply(const Look& look) {
    if (look.dark) {
        QApplication::setStyle("fusion");
        QApplication::setPalette(darkPalette());
    }
    if (look.fontPoints > 0) {
        auto font = QApplication::font();
        font.setPointSizeF(look.fontPoints);
        QApplication::setFont(font);
    }
}

}
