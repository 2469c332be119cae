#include "ui/qt/orders/background_keeper.h"

#include "ui/qt/widgets/qt_text.h"

#include <memory>
#include <utility>

namespace ui::qt {

BackgroundKeeper::BackgroundKeeper(std::filesystem::path file) : m_file(std::move(file)) {
    m_thread.setMaxThreadCount(1);
}

BackgroundKeeper::~BackgroundKeeper() {
    m_thread.waitForDone();
}

void BackgroundKeeper::left(order::KeptOrder order) {
    m_thread.start([this, kept = std::make_shared<order::KeptOrder>(std::move(order))] { keep(*kept); });
}

// The database is opened anew each time: orders leave seldom, and so nothing is shared with other threads.
void BackgroundKeeper::keep(const order::KeptOrder& order) {
    try {
        order::KeptOrders(m_file).add(order);
        emit kept();
    } catch (const base::FileError& error) {
        emit failed("The order has left, but it could not be kept among your orders. " + toQt(error.what()));
    } catch (const std::exception&) {
        emit failed("The order has left, but it could not be kept among your orders.");
    }
}

}
