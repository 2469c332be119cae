#include "ui/system/archive/background_archive.h"

#include "ui/system/background_work.h"

#include <QElapsedTimer>
#include <QScopeGuard>

#include <string>
#include <utility>

#ifdef __linux__
#include <fcntl.h>
#include <unistd.h>
#endif

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

// The zip goes once its catalogue is in place, so that has to be on the disk by then. One call for all files
// takes a fraction of what one for each would.
void flush([[maybe_unused]] const std::filesystem::path& folder) {
#ifdef __linux__
    const int file = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return;
    ::syncfs(file);
    ::close(file);
#endif
}

}

std::optional<std::vector<std::string>>
BackgroundArchive::topLevelFiles(const std::filesystem::path& archive) {
    std::optional<std::vector<std::string>> names;
    whileBusy([&] { names = ZipExtractor::topLevelFiles(archive); });
    return names;
}

platform::Archive::Result BackgroundArchive::extract(const std::filesystem::path& archive,
                                                     std::string_view mask,
                                                     const std::filesystem::path& folder) {
    if (m_cancelled)
        return Result::cancelled;
    ThrottledProgress reports(m_cancelled,
                              [this](quint64 done, quint64 total) { emit progress(done, total); });
    Result result = Result::failed;
    whileBusy([&, wanted = std::string(mask)] {
        result = m_extractor.extract(archive, wanted, folder, &reports);
        flush(folder);
    });
    return result;
}

void BackgroundArchive::whileBusy(const std::function<void()>& work) {
    m_busy = true;
    const auto idle = qScopeGuard([this] { m_busy = false; });
    runInBackground(work);
}

}
