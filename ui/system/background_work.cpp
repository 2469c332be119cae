#include "ui/system/background_work.h"

#include <exception>
#include <thread>

namespace ui::system {

void runInBackground(const std::function<void()>& work, QEventLoop::ProcessEventsFlags events) {
    std::exception_ptr failure;
    QEventLoop loop;
    std::thread worker([&] {
        try {
            work();
        } catch (...) { // Deliberate: carried over to the thread that waits, and thrown there
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec(events);
    worker.join();
    if (failure)
        std::rethrow_exception(failure);
}

}
