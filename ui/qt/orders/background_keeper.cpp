#include "ui/qt/orders/background_keeper.h"

#include "ui/qt/widgets/qt_text.h"

#include <chrono>
#include <functional>
#include <optional>
#include <thread>
#include <utility>

namespace ui::qt {
namespace {

// Another program may be writing.
constexpr int mostTries = 3;
constexpr std::chrono::milliseconds retryAfter{300};

// In the user's words, which only some failures have.
std::optional<QString> failureOf(const std::function<void()>& work) {
    try {
        work();
        return std::nullopt;
    } catch (const base::FileError& error) {
        return toQt(error.what());
    } catch (const std::exception&) {
        return QString();
    }
}

}

BackgroundKeeper::BackgroundKeeper(std::filesystem::path file) : m_file(std::move(file)) {
    m_thread.setMaxThreadCount(1);
}

BackgroundKeeper::~BackgroundKeeper() {
    m_thread.waitForDone();
}

void BackgroundKeeper::left(order::KeptOrder order) {
    m_thread.start([this, order = std::move(order)] { keep(order); });
}

void BackgroundKeeper::keep(const order::KeptOrder& order) {
    for (int tries = mostTries; tries > 0; --tries) {
        const auto failure = failureOf([&] { add(order); });
        if (!failure)
            return;
        if (tries == 1)
            emit failed("The order has left, but it could not be kept among your orders. " + *failure);
        else
            std::this_thread::sleep_for(retryAfter);
    }
}

// The database is opened anew each time: orders leave seldom, and so nothing is shared with other threads.
void BackgroundKeeper::add(const order::KeptOrder& order) {
    order::KeptOrders orders(m_file);
    orders.add(order);
    if (!orders.complaint().empty())
        emit failed(toQt(orders.complaint()));
    emit kept();
}

}
