#pragma once

#include <QObject>

#include <memory>

namespace ui::system {

/// Hears that the program is to end for a reason outside its windows. There is one at a time.
class StopRequests final : public QObject {
    Q_OBJECT

public:
    StopRequests();
    ~StopRequests() override;

signals:
    /// The user logs out. What is to be kept must be on the disk when this returns; nobody can be asked. The
    /// program goes on, for logging out may still be called off.
    void sessionEnds();

    /// The program is to end: SIGTERM, SIGHUP or SIGINT, unless whoever started it has them ignored.
    void stopAsked();

private:
    class Signals;
    std::unique_ptr<Signals> m_signals;
};

}
