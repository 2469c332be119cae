#pragma once

#include <QLabel>
#include <QTimer>

namespace ui::qt {

/// A short text beside what it speaks of. Unlike a tool tip it outlives the click and the keys that it
/// answers: it goes by itself after a while, and when its owner or the owner's window is left or moves.
class Hint final : public QLabel {
    Q_OBJECT

public:
    explicit Hint(QWidget& owner);

    /// Below the place, which is in the coordinates of the screen, or above it where the screen ends.
    void say(const QString& text, const QRect& place);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTimer m_readingTime;
};

}
