#pragma once

#include "ui/qt/entry/intake_dialog.h"
#include "ui/qt/order/order_screen.h"
#include "ui/qt/widgets/guard.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <span>

namespace ui::qt {

/// Brings lines from elsewhere into the order, after a look at what would come of them.
class IntakeDesk final : public QObject {
    Q_OBJECT

public:
    /// All of it must outlive the desk.
    struct Surroundings {
        const catalog::Catalog& catalog;
        OrderScreen& order;
        Guard& guard;
        QWidget& window; ///< over which the dialog lies
    };

    explicit IntakeDesk(const Surroundings& surroundings) : m_around(surroundings) {}

    /// When the user is asked first: always, or only if a line cannot be ordered or has another price now.
    enum class Look { always, ifDifferent };

    struct Request {
        QString title;
        QString sentence; ///< where the lines come from
        Overlap overlap = Overlap::add;
        bool mayChooseOverlap = true;
        Look look = Look::always;
        std::function<void()> taken{};   ///< the lines are on the order
        std::function<void()> refused{}; ///< the user has thought better of it
    };

    /// Returns at once; the dialog holds the window up until it is answered.
    void take(std::span<const WantedLine> lines, Request request);

    /// The same of what is planned already, with the order as it is.
    void takePlanned(Intake intake, Request request);

private:
    void ask(Intake intake, Request request);

    Surroundings m_around;
    QPointer<IntakeDialog> m_dialog;
};

}
