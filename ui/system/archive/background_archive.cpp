#include "ui/system/archive/background_archive.h"

#include "ui/system/background_work.h"

#include <QElapsedTimer>
#include <QScopeGuard>

#include <functional>
#include <string>
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

std::optional<std::vector<std::string>>
BackgroundArchive::topLevelFiles(const std::filesystem::path& archive) {
    return ZipExtractor::topLevelFiles(archive); // the end of the file tells, whatever its size
}

platform::Archive::Result BackgroundArchive::extract(const std::filesystem::path& archive,
                                                     std::string_view mask,
                                                     const std::filesystem::path& folder) {
    if (m_cancelled)
        return Result::cancelled;
    ThrottledProgress reports(m_cancelled,
                              [this](quint64 done, quint64 total) { emit progress(done, total); });
    Result result = Result::failed;
    m_busy = true;
    const auto idle = qScopeGuard([this] { m_busy = false; });
    runInBackground(
        [&, wanted = std::string(mask)] { result = m_extractor.extract(archive, wanted, folder, &reports); });
    return result;
}

}
