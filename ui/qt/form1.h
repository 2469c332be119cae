#pragma once

#include "app/session.h"
#include "catalog/catalog.h"
#include "order/details_file.h"
#include "order/order_contents.h"
#include "pages/browse/browsing.h"
#include "pages/browse/group_lists.h"
#include "pages/browse/link_rules.h"
#include "platform/mailer.h"
#include "ui/ordering.h"
#include "ui/qt/browser/page_turner.h"
#include "ui/qt/catalog_view.h"
#include "ui/qt/find.h"
#include "ui/qt/grid/product_model.h"
#include "ui/qt/order/order_desk.h"
#include "ui/qt/order/order_view.h"
#include "ui/qt/order/totals_bar.h"
#include "ui/qt/toolbar.h"
#include "ui/qt/widgets/guard.h"
#include "ui/qt/widgets/window_memory.h"
#include "ui/system/disk_file.h"
#include "ui/system/lost_pages.h"

#include <QMainWindow>
#include <QStackedWidget>

namespace ui::qt {

/// The main window, open on one catalogue. Making it opens the catalogue's files, and they stay open as
/// long as it lives; a missing one throws base::MissingFile. Closing it saves what is kept.
class Form1 final : public QMainWindow {
    Q_OBJECT

public:
    Form1(const app::Session& session, Guard& guard, platform::MessageBox& messages,
          platform::Mailer& mailer);
    ~Form1() override;

    /// Saves what closing saves. A failure is not told.
    void saveSettings();

    /// Closes without waiting for an order that is being printed.
    void closeNow();

signals:
    /// The window has been closed and its settings are saved.
    void closed();
    void helpAsked();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    void fill();
    void restoreSettings();
    void connectControls();
    void addShortcuts();
    void addPageActions();
    void openPages();

    void runCommand(Command command);
    [[nodiscard]] ToolbarState toolbarToShow() const;
    void showToolbar();
    void enableBack(bool on);

    void showRow(int row);
    void goTo(std::int32_t record);
    void goBack();
    void search();
    Find& find();
    void showSupplierPage(const pages::LeadsToPage& page);
    void followLink(const QUrl& address, bool clicked);

    void editProduct(int row, std::string_view text);
    void editOrder(int row, std::string_view text);
    void showOrder();
    void setExempt(bool exempt);
    void checkOut();
    void showPriceList();
    void showCatalogView();
    void clearOrder();
    void printOrder();
    void previewOrder();
    [[nodiscard]] order::OrderContents orderContents();

    [[nodiscard]] bool takePending();
    void closePending();
    void saveDetails();

    app::Session m_session;
    Guard& m_guard;
    platform::MessageBox& m_messages;
    WindowMemory m_memory;
    catalog::SettingsFile m_userSettings;
    order::DetailsFile m_detailsFile;
    system::DiskFile m_basketOnDisk;
    std::optional<order::BasketFile> m_basketFile; // opened with the catalogue
    catalog::Catalog m_catalog;
    system::LostPages m_lostPages;
    ToolbarState m_toolbarState;
    Ordering m_ordering;
    order::DeliveryDetails m_details;
    OrderDesk m_orderDesk;
    pages::GroupLists m_groupLists;
    pages::LinkRules m_links;

    Toolbar* m_toolbar;
    PageBrowser* m_banner;
    QStackedWidget* m_views;
    CatalogView* m_catalogView;
    OrderView* m_orderView;
    TotalsBar* m_totals;
    Find* m_find = nullptr; // from its first use on
    ProductModel* m_products = nullptr;

    pages::Browsing m_browsing;
    PageTurner* m_turner;
    bool m_splitterPlaced = false;
    bool m_mustClose = false;
};

}
