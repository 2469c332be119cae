#pragma once

#include "pages/browse/browsing.h"
#include "pages/browse/group_lists.h"
#include "pages/browse/link_rules.h"
#include "ui/qt/browser/page_turner.h"
#include "ui/qt/catalog_view.h"
#include "ui/qt/find.h"

#include <QObject>

#include <memory>

namespace ui::qt {

/// Leads through the catalogue: whichever way a record is chosen, by its row, a group list, a link, the way
/// back or a search, its page is shown, and can be left again.
class CatalogDesk final : public QObject {
    Q_OBJECT

public:
    /// All of it must outlive the desk. `window` is the one that the search window lies over and that
    /// hears the page's keys.
    struct Surroundings {
        const pages::PageSetting& setting;
        const catalog::Catalog& catalog;
        const catalog::SettingsFile& userSettings;
        platform::MessageBox& messages;
        Guard& guard;
        PageBrowser& banner;
        CatalogView& view;
        QWidget& window;
    };

    explicit CatalogDesk(const Surroundings& surroundings);

    /// Chooses the first record. Its page comes after the banner, and both after the window's first paint.
    void open();

    /// For all pages from now on, the one that is up too.
    void setTaxStatus(pages::TaxStatus status);

    /// Marks the record's row and shows its page.
    void goTo(std::int32_t record);

    void goBack();

    /// How many records the way back holds.
    [[nodiscard]] std::size_t historySize() const { return m_browsing.history().size(); }

    /// Shows the page that is still due, which so cannot be written over another one later.
    void catchUp() { m_turner.catchUp(); }

    void search();

    void searchPage() { m_around.view.searchPage(); }

    /// A step up or down, or with 0 to the page's own size.
    void zoomPage(int direction);

    void searchNext() { find().searchNext(); }

    void searchPrevious() { find().searchPrevious(); }

    /// The search window goes out of sight while the catalogue does.
    void stepAside();
    void comeBack();

    /// Closes the search window, which saves its place.
    void closeSearch();

signals:
    /// Whether "Back" has anywhere to lead.
    void backChanged(bool possible);

private:
    void connectControls();
    void addPageActions();
    void showRow(int row);
    void showSupplierPage(const pages::LeadsToPage& page);
    void followLink(const QUrl& address, bool clicked);
    [[nodiscard]] Find& find();

    Surroundings m_around;
    pages::GroupLists m_groupLists;
    pages::LinkRules m_links;
    pages::Browsing m_browsing;
    PageTurner m_turner;
    std::unique_ptr<Find> m_find; // from its first use on
};

}
