#pragma once

#include <QObject>
#include <QScreen>

namespace ui::qt {

/// While it lives, every window that is open is brought back onto a screen when its own has gone or has
/// become smaller.
class ScreenWatch final : public QObject {
    Q_OBJECT

public:
    ScreenWatch();

private:
    void watch(const QScreen* screen);
    void bringWindowsBack();
};

}
