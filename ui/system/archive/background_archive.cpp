#include "ui/system/archive/background_archive.h"

#include "ui/system/background_work.h"

#include <QElapsedTimer>
#include <QScopeGuard>

#include <algorithm>
#include <string>
#include <thread>
#include <utility>

#ifdef __linux__
#include <fcntl.h>
#include <sched.h>
#include <unistd.h>
#endif

namespace ui::system {
namespace {

constexpr qint64 reportIntervalMs = 50;
constexpr unsigned mostWorkers = 2; // a third one finds the disk busy

// Those that this process may use.
unsigned processors() {
#ifdef __linux__
    cpu_set_t set;
    if (sched_getaffinity(0, sizeof set, &set) == 0)
        return static_cast<unsigned>(CPU_COUNT(&set));
#endif
    return std::max(std::thread::hardware_concurrency(), 1U);
}

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
    return run(folder, [&, wanted = std::string(mask)](const auto& extractor, auto& progress) {
        return extractor.extract(archive, wanted, folder, &progress);
    });
}

platform::Archive::Result BackgroundArchive::extractChanged(const std::filesystem::path& archive,
                                                            const std::filesystem::path& folder,
                                                            const std::filesystem::path& installed) {
    return run(folder, [&](const auto& extractor, auto& progress) {
        return extractor.extractChanged(archive, folder, installed, &progress);
    });
}

platform::Archive::Result BackgroundArchive::run(const std::filesystem::path& folder,
                                                 const Extract& extract) {
    if (m_cancelled)
        return Result::cancelled;
    ThrottledProgress reports(m_cancelled,
                              [this](quint64 done, quint64 total) { emit progress(done, total); });
    const ZipExtractor extractor({}, std::min(processors(), mostWorkers));
    Result result = Result::failed;
    whileBusy([&] {
        result = extract(extractor, reports);
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
