#pragma once

#include "platform/browser.h"
#include "ui/page_files.h"
#include "ui/qt/page_loader.h"

#include <QWebEngineView>
#include <QWidget>

#include <filesystem>
#include <optional>
#include <string>

namespace ui::qt {

/// A place in a window where pages are shown. The web view in it is made when the first page comes, so
/// that a window can be painted before the browser starts. One load is in flight at a time; of the pages
/// shown meanwhile only the last is loaded. A frame around the page shows where the focus is in it.
class PageBrowser final : public QWidget, public platform::Browser {
    Q_OBJECT

public:
    /// `name` becomes the view's object name.
    PageBrowser(const QString& name, const QString& accessibleName, QWidget* parent);
    ~PageBrowser() override;

    /// Must be called before the first page is shown.
    void confineTo(PageFiles files);
    void onLink(LinkHandler handler);

    /// The pages' own scripts do not run. Must be called before the first page is shown.
    void withoutScripts() { m_scripts = false; }

    void show(const std::filesystem::path& file, std::string_view bytes) override;
    using QWidget::show;

    /// For this page and all later ones; 1 is the pages' own size.
    void setZoom(double factor);

    [[nodiscard]] double zoom() const { return m_zoom; }

    /// No page is being loaded or waits for it.
    [[nodiscard]] bool idle() const { return !m_loading && !m_next; }

    [[nodiscard]] QWebEngineView* view() const { return m_view; }

signals:
    /// The page shown last has been loaded.
    void loaded();
    void backAsked();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Page {
        std::filesystem::path file;
        std::string bytes;
    };

    void makeView();
    void load();
    void finish();
    void restoreAfterBlank(const QUrl& url);
    void takeTabPlace();

    QWidget* m_tabPlace; ///< never shown; where Tab comes to the page
    QString m_name;
    QString m_accessibleName;
    std::optional<PageFiles> m_files;
    LinkHandler m_linkHandler;
    ConfinedProfile* m_profile = nullptr;
    ConfinedPage* m_page = nullptr;
    QWebEngineView* m_view = nullptr;
    std::optional<PageLoader> m_loader; // made with the view
    std::optional<Page> m_next;
    Page m_current;
    double m_zoom = 1;
    bool m_loading = false;
    bool m_scripts = true;
};

}
