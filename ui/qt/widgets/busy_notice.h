#pragma once

#include <QProgressDialog>
#include <QTimer>

namespace ui::qt {

/// While it lives the mouse shows that the program is busy; when that takes long and events are handled
/// meanwhile, a small window says with what.
class BusyNotice {
public:
    BusyNotice(const QString& text, QWidget& window);
    ~BusyNotice();
    BusyNotice(const BusyNotice&) = delete;
    BusyNotice& operator=(const BusyNotice&) = delete;

private:
    QProgressDialog m_box;
    QTimer m_delay;
};

}
