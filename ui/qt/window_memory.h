#pragma once

#include "ui/qt/column_widths.h"

#include <QString>
#include <QWidget>

namespace ui::qt {

/// Where windows stood and how wide columns were, kept in the platform's configuration folder. What is
/// remembered never puts a window off the screen; nothing remembered leaves everything as designed. A folder
/// that can not be written is as good as none: nothing is remembered, and nobody is told.
class WindowMemory {
public:
    /// This large at an ordinary font, larger with a larger font, and never a small spot on a large screen.
    /// Where the screen has not room for that, the window fills it.
    static void placeAsDesigned(QWidget& window, QSize size);

    void restore(QWidget& window) const;
    void save(const QWidget& window) const;

    /// The widths that the user has chosen. `layout` names the set of columns: they are put back only to the
    /// set they were taken from.
    void restore(ColumnWidths& widths, const QString& layout) const;
    void save(const ColumnWidths& widths, const QString& layout) const;

    [[nodiscard]] double pageZoom() const;
    void savePageZoom(double factor) const;
};

}
