#pragma once

#include <QString>
#include <QWidget>

#include <vector>

namespace ui::qt {

/// Where windows stood and how wide columns were, kept in the platform's configuration folder. What is
/// remembered never puts a window off the screen; nothing remembered leaves everything as designed. A folder
/// that cannot be written is as good as none: nothing is remembered, and nobody is told.
class WindowMemory {
public:
    /// This large at an ordinary font, larger with a larger font, and never a small spot on a large screen.
    /// Where the screen has not room for that, the window fills it.
    static void placeAsDesigned(QWidget& window, QSize size);

    void restore(QWidget& window) const;
    void save(const QWidget& window) const;

    /// The widths in pixels that the user has chosen for a set of columns, which `layout` names; empty where
    /// none were saved for this set.
    [[nodiscard]] std::vector<int> columnWidths(const QString& layout) const;
    void saveColumnWidths(const std::vector<int>& widths, const QString& layout) const;

    [[nodiscard]] double pageZoom() const;
    void savePageZoom(double factor) const;
};

}
