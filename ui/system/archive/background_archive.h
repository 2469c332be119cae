#pragma once

#include "platform/archive.h"
#include "ui/system/archive/zip_extractor.h"

#include <QObject>

#include <atomic>
#include <functional>

namespace ui::system {

/// Unpacks on threads of its own, two where there are two processors, while the caller waits in an event
/// loop, so that windows stay alive. What is extracted has reached the disk, where the system has a call for
/// that.
class BackgroundArchive final : public QObject, public platform::Archive {
    Q_OBJECT

public:
    std::optional<std::vector<std::string>> topLevelFiles(const std::filesystem::path& archive) override;
    Result extract(const std::filesystem::path& archive, std::string_view mask,
                   const std::filesystem::path& folder) override;
    Result extractChanged(const std::filesystem::path& archive, const std::filesystem::path& folder,
                          const std::filesystem::path& installed) override;

    [[nodiscard]] bool busy() const { return m_busy; }

    /// The extraction under way ends soon with `cancelled`, and so does every later one.
    void cancel() { m_cancelled = true; }

signals:
    /// In unpacked bytes, at most some twenty times a second.
    void progress(quint64 done, quint64 total);

private:
    using Extract = std::function<Result(const ZipExtractor& extractor, ExtractionProgress& progress)>;

    Result run(const std::filesystem::path& folder, const Extract& extract);
    void whileBusy(const std::function<void()>& work);

    std::atomic<bool> m_cancelled = false;
    bool m_busy = false;
};

}
