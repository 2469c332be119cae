#pragma once

#include <QHeaderView>
#include <QString>
#include <QWidget>

namespace ui::qt {

/// Where windows stood and how wide columns were, kept in the platform's configuration folder. What is
/// remembered never puts a window off the screen; nothing remembered leaves everything as designed.
class WindowMemory {
public:
    /// This large, or as large as the screen has room for.
    static void placeAsDesigned(QWidget& window, QSize size);

    void restore(QWidget& window) const;
    void save(const QWidget& window) const;

    /// `layout` names the set of columns: widths are put back only to the set they were taken from.
    void restore(QHeaderView& header, const QString& layout) const;
    void save(const QHeaderView& header, const QString& layout) const;

    [[nodiscard]] double pageZoom() const;
    void savePageZoom(double factor) const;
};

}
