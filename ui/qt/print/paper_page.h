#pragma once

#include "pages/browse/page_files.h"

#include <QByteArray>
#include <QObject>
#include <QPageLayout>
#include <QPageRanges>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string_view>

namespace ui::qt {

class ConfinedPage;
class ConfinedProfile;
class PageLoader;

/// A page loaded out of sight, confined like those on the screen, and made into a PDF in which texts are
/// texts. The browser works in a process of its own; deleting the page gives the work up.
class PaperPage final : public QObject {
    Q_OBJECT

public:
    /// Whether the page's own scripts run.
    enum class Scripts { on, off };

    PaperPage(pages::PageFiles files, Scripts scripts, QObject* parent);
    ~PaperPage() override;

    /// Loads bytes under the address of their file. Throws base::FileError as PageLoader does.
    void load(const std::filesystem::path& file, std::string_view bytes);

    /// Once the page is loaded: asks in what surroundings its sheets stand, so many of which begin with a
    /// break mark (see piece_check.h).
    void askSurroundings(std::size_t breaks);

    /// Once the page is loaded, and once at a time.
    void makePdf(const QPageLayout& layout, const QPageRanges& ranges);

signals:
    void loaded();
    void surroundings(const QString& tags);
    void made(const QByteArray& pdf);

    /// The page could not be loaded or made, or the browser's process has died.
    void failed();

private:
    std::unique_ptr<ConfinedProfile> m_profile;
    std::unique_ptr<ConfinedPage> m_page;
    std::unique_ptr<PageLoader> m_loader;
};

}
