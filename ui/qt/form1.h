#pragma once

#include "app/session.h"
#include "ui/qt/catalog_desk.h"
#include "ui/qt/more_button.h"
#include "ui/qt/more_desk.h"
#include "ui/qt/order/order_desk.h"
#include "ui/qt/order/order_screen.h"
#include "ui/qt/toolbar.h"
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
    /// What is kept of orders goes to `keptFolder`; nothing is kept when it is empty.
    Form1(const app::Session& session, Guard& guard, platform::MessageBox& messages, platform::Mailer& mailer,
          const std::filesystem::path& keptFolder = {});
    ~Form1() override;

    /// Saves what closing saves. A failure is not reported.
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
    void connectControls();
    void addShortcuts();

    void runCommand(Command command);
    void runMore(MoreCommand command);
    void showToolbar();
    void enableBack(bool on);
    void chargeTax();
    void checkOut();
    void showPriceList();
    void showArticle(std::int32_t record);
    void clearOrder();
    void showCatalogView();

    app::Session m_session;
    Guard& m_guard;
    WindowMemory m_memory;
    catalog::SettingsFile m_userSettings;
    system::DiskFile m_basketOnDisk;
    std::optional<order::BasketFile> m_basketFile; // of a new order, started as the catalogue is opened
    catalog::Catalog m_catalog;
    system::LostPages m_lostPages;
    ToolbarState m_toolbarState;

    Toolbar* m_toolbar;
    MoreButton* m_more;
    PageBrowser* m_banner;
    OfferBar* m_offers;
    QStackedWidget* m_views;
    CatalogView* m_catalogView;
    OrderView* m_orderView;
    TotalsBar* m_totals;

    CatalogDesk m_catalogDesk;
    OrderScreen m_orderScreen;
    OrderDesk m_orderDesk;
    MoreDesk m_moreDesk;
    bool m_splitterPlaced = false;
    bool m_mustClose = false;
};

}
