#pragma once

#include <QEventLoop>

#include <functional>

namespace ui::system {

/// Does the work on a thread of its own while the caller waits in an event loop, so that windows stay alive.
/// What the work throws is thrown here.
void runInBackground(const std::function<void()>& work,
                     QEventLoop::ProcessEventsFlags events = QEventLoop::AllEvents);

}
