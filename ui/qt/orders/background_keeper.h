#pragma once

#include "order/kept/order_keeper.h"

#include <QObject>
#include <QThreadPool>

#include <filesystem>

namespace ui::qt {

/// Keeps orders that have left on a thread of its own, one after the other. Going, it waits for those that
/// are still to be written.
class BackgroundKeeper final : public QObject, public order::OrderKeeper {
    Q_OBJECT

public:
    explicit BackgroundKeeper(std::filesystem::path file);
    ~BackgroundKeeper() override;

    void left(order::KeptOrder order) override;

signals:
    void kept();

    /// A sentence for the user: an order could not be kept, or something had to be done to keep it.
    void failed(const QString& sentence);

private:
    void keep(const order::KeptOrder& order);
    void add(const order::KeptOrder& order);

    std::filesystem::path m_file;
    QThreadPool m_thread;
};

}
