#pragma once

#include "pages/browse/page_files.h"
#include "platform/browser.h"
#include "ui/qt/browser/page_loader.h"

#include <QTimer>
#include <QWebEngineView>
#include <QWidget>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace ui::qt {

/// A place in a window where pages are shown. The web view in it is made when the first page comes, so
/// that a window can be painted before the browser starts. One load is in flight at a time; of the pages
/// shown meanwhile only the last is loaded. A frame around the page shows where the focus is in it.
///
/// No page's script holds up the pages after it, whether it never ends while the page loads, later, or when
/// the page is left: then the browser's process is ended and the next page loaded in a new one. A page that
/// never comes to its end is taken away in the end. A page whose process dies by itself comes back, a few
/// times.
class PageBrowser final : public QWidget, public platform::Browser {
    Q_OBJECT

public:
    /// `name` becomes the view's object name. A page that takes longer than `patience` to load counts as up,
    /// and is ended as soon as another is shown, or after five times as long again.
    PageBrowser(const QString& name, const QString& accessibleName, QWidget* parent,
                std::chrono::milliseconds patience = std::chrono::seconds(5));
    ~PageBrowser() override;

    /// Whether the scripts of pages run.
    enum class Scripts { on, off };

    /// What the pages shown from now on may load. Must be called before the first one. What was shown before
    /// goes, and its process with it, so that no page meets what is allowed to another.
    void confineTo(pages::PageFiles files, Scripts scripts = Scripts::on);
    void onLink(LinkHandler handler);

    void show(const std::filesystem::path& file, std::string_view bytes,
              std::string_view place = {}) override;
    using QWidget::show;

    /// For this page and all later ones; 1 is the pages' own size.
    void setZoom(double factor);

    [[nodiscard]] double zoom() const { return m_zoom; }

    /// No page is being loaded or waits for it, or the one being loaded counts as up.
    [[nodiscard]] bool idle() const { return (!m_loading || m_overdue) && !m_next; }

    [[nodiscard]] QWebEngineView* view() const { return m_view; }

signals:
    /// The page shown last has been loaded, or counts as up.
    void loaded();
    void backAsked();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Page {
        std::filesystem::path file;
        std::string bytes;
        std::string place;
    };

    void makeView();
    void leaveView();
    void later(void (PageBrowser::*act)());
    void load();
    void loadInTurn();
    void finish();
    void loseProcess();
    void finishLostProcess();
    void losePatience();
    void giveUp();
    [[nodiscard]] bool waitsForFormerPage() const;
    void endProcess();
    void restoreAfterBlank(const QUrl& url);
    void restore();
    void takeTabPlace();

    QWidget* m_tabPlace; ///< never shown; where Tab comes to the page
    QString m_name;
    QString m_accessibleName;
    std::chrono::milliseconds m_patienceTime;
    std::optional<pages::PageFiles> m_files;
    LinkHandler m_linkHandler;
    ConfinedProfile* m_profile = nullptr;
    ConfinedPage* m_page = nullptr;
    QWebEngineView* m_view = nullptr;
    std::optional<PageLoader> m_loader; // made with the view
    std::optional<Page> m_next;
    Page m_current;
    Scripts m_scripts = Scripts::on;
    double m_zoom = 1;
    QTimer m_patience;          // while a page is being loaded
    qint64 m_formerProcess = 0; // in which the load in flight began; 0 for none
    int m_formerEntries = 0;    // of the history, then
    int m_restored = 0;         // times that the current page has come back
    bool m_loading = false;
    bool m_overdue = false;       // the page being loaded counts as up
    bool m_losingProcess = false; // until its end has been reported
};

}
