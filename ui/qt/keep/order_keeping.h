#pragma once

#include "order/kept/unfinished_orders.h"
#include "ui/qt/entry/intake_desk.h"
#include "ui/qt/keep/offer_bar.h"
#include "ui/qt/order/order_screen.h"
#include "ui/system/appended_file.h"

#include <QObject>
#include <QTimer>

#include <filesystem>
#include <thread>

namespace ui::qt {

/// Keeps the order that is being typed, a fraction of a second behind the keys, and offers those that were
/// not finished. What fails is said once, in the bar, and never holds ordering up.
class OrderKeeping final : public QObject, private order::OrderWatch {
    Q_OBJECT

public:
    /// All of it must outlive the object.
    struct Surroundings {
        const catalog::Catalog& catalog;
        OrderScreen& order;
        OfferBar& offers;
        IntakeDesk& intake;
        Guard& guard;
    };

    OrderKeeping(const Surroundings& surroundings, order::JournalOwner owner,
                 const std::filesystem::path& folder);
    ~OrderKeeping() override;

    /// Looks for unfinished orders on a thread of its own, and offers in the bar those that nobody has put
    /// off.
    void look();

    /// Puts its lines on the order, after a look at them where they are not what they were.
    void takeOver(const order::UnfinishedOrder& order);

    /// Writes what waits.
    void flush();

    /// An order has left; that of the window is finished if it still is the same.
    void orderLeft(const order::OrderContents& left);

signals:
    /// Those that there are have been offered.
    void looked();

private:
    void quantityChanged(std::int32_t product, float quantity) override;
    void cleared() override;
    void flushSoon();
    void flushAtLast();
    void tellFailure();

    void present(const order::FoundOrders& found);
    void offer(const order::UnfinishedOrder& order);
    void putOff(const order::UnfinishedOrder& order);
    void offerUndo(const order::UnfinishedOrder& order);
    [[nodiscard]] bool isSameOrder(const order::OrderContents& left) const;

    Surroundings m_around;
    order::JournalOwner m_owner;
    std::filesystem::path m_folder;
    system::AppendedFile m_file;
    order::OrderJournal m_journal;
    QTimer m_soon;
    std::jthread m_search; // last, so that it has ended before anything goes
};

}
