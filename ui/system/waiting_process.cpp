#include "ui/system/waiting_process.h"

#include <QEventLoop>
#include <QTimer>

namespace ui::system {

bool runFor(QProcess& process, const QByteArray& input, std::chrono::milliseconds timeLimit) {
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    QEventLoop loop;
    QObject::connect(&process, &QProcess::stateChanged, &loop, [&loop](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning)
            loop.quit();
    });
    qsizetype taken = 0;
    QObject::connect(&process, &QProcess::bytesWritten, &loop, [&taken](qint64 count) { taken += count; });
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(timeLimit);
    process.start();
    process.write(input);
    process.closeWriteChannel();
    if (process.state() != QProcess::NotRunning)
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return taken == input.size();
}

std::optional<int> exitCodeOf(const QProcess& process) {
    if (process.state() != QProcess::NotRunning || process.error() == QProcess::FailedToStart ||
        process.exitStatus() != QProcess::NormalExit)
        return std::nullopt;
    return process.exitCode();
}

bool runToSuccess(QProcess& process, const QByteArray& input, std::chrono::milliseconds timeLimit) {
    const bool tookAll = runFor(process, input, timeLimit);
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
        return false;
    }
    return tookAll && exitCodeOf(process) == 0;
}

}
