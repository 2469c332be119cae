#pragma once

#include <QByteArray>
#include <QProcess>

#include <chrono>
#include <optional>

namespace ui::system {

/// Starts the process, which has its program and arguments, gives it the input and waits in an event loop,
/// so that windows stay alive, until it has ended or the time is over; then it may still run. What the user
/// does meanwhile takes effect afterwards. False when the process has not taken all of the input.
bool runFor(QProcess& process, const QByteArray& input, std::chrono::milliseconds timeLimit);

/// As `runFor`, and a process that is not done in time is ended. Whether it has taken all of the input and
/// then ended by itself with the exit code 0.
[[nodiscard]] bool runToSuccess(QProcess& process, const QByteArray& input,
                                std::chrono::milliseconds timeLimit);

/// Nothing for a process that still runs, was killed or could not be started.
[[nodiscard]] std::optional<int> exitCodeOf(const QProcess& process);

}
