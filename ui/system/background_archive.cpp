#include "ui/system/background_archive.h"

#include <QElapsedTimer>
#include <QEventLoop>

#include <exception>
#include <functional>
#include <string>
#include <thread>
#include <utility>

namespace ui::system {
namespace {

constexpr qint64 reportIntervalMs = 50;

/// Passes progress on, not more often than a person can see it.
class ThrottledProgress final : public ExtractionProgress {
public:
    ThrottledProgress(std::atomic<bool>& cancelled, std::function<void(quint64, quint64)> report)
        : m_cancelled(cancelled), m_report(std::move(report)) {}

    bool advanced(std::uint64_t done, std::uint64_t total) override {
        if (!m_sinceReport.isValid() || m_sinceReport.elapsed() >= reportIntervalMs || done == total) {
            m_sinceReport.start();
            m_report(done, total);
        }
        return !m_cancelled;
    }

private:
    std::atomic<bool>& m_cancelled;
    std::function<void(quint64, quint64)> m_report;
    QElapsedTimer m_sinceReport;
};

}

platform::Archive::Result BackgroundArchive::extract(const std::filesystem::path& archive,
                                                     std::string_view mask,
                                                     const std::filesystem::path& folder) {
    if (m_cancelled)
        return Result::cancelled;
    ThrottledProgress reports(m_cancelled,
                              [this](quint64 done, quint64 total) { emit progress(done, total); });
    Result result = Result::failed;
    std::exception_ptr failure;
    QEventLoop loop;
    std::thread worker([&, wanted = std::string(mask)] {
        try {
            result = m_extractor.extract(archive, wanted, folder, &reports);
        } catch (...) { // Deliberate: carried over to the thread that waits, and thrown there
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    m_busy = true;
    loop.exec();
    m_busy = false;
    worker.join();
    if (failure)
        std::rethrow_exception(failure);
    return result;
}

}
