#pragma once

#include "platform/archive.h"
#include "ui/system/archive/zip_extractor.h"

#include <QObject>

#include <atomic>
#include <functional>

namespace ui::system {

/// Unpacks on a thread of its own while the caller waits in an event loop, so that windows stay alive. What
/// is extracted has reached the disk, where the system has a call for that.
class BackgroundArchive final : public QObject, public platform::Archive {
    Q_OBJECT

public:
    std::optional<std::vector<std::string>> topLevelFiles(const std::filesystem::path& archive) override;
    Result extract(const std::filesystem::path& archive, std::string_view mask,
                   const std::filesystem::path& folder) override;

    [[nodiscard]] bool busy() const { return m_busy; }

    /// The extraction under way ends soon with `cancelled`, and so does every later one.
    void cancel() { m_cancelled = true; }

signals:
    /// In unpacked bytes, at most some twenty times a second.
    void progress(quint64 done, quint64 total);

private:
    void whileBusy(const std::function<void()>& work);

    ZipExtractor m_extractor;
    std::atomic<bool> m_cancelled = false;
    bool m_busy = false;
};

}
