#pragma once

#include "app/session.h"
#include "catalog/catalog.h"
#include "order/delivery_details.h"
#include "pages/group_lists.h"
#include "ui/browsing.h"
#include "ui/link_rules.h"
#include "ui/qt/find.h"
#include "ui/qt/group_boxes.h"
#include "ui/qt/guard.h"
#include "ui/qt/page_browser.h"
#include "ui/qt/page_search_bar.h"
#include "ui/qt/page_turner.h"
#include "ui/qt/product_grid.h"
#include "ui/qt/toolbar.h"
#include "ui/qt/window_memory.h"

#include <QCheckBox>
#include <QLabel>
#include <QMainWindow>
#include <QSplitter>

namespace ui::qt {

/// The main window, open on one catalogue. Making it opens the catalogue's files, and they stay open as
/// long as it lives; a missing one throws base::MissingFile. Closing it saves what is kept.
class Form1 final : public QMainWindow {
    Q_OBJECT

public:
    Form1(const app::Session& session, Guard& guard, platform::MessageBox& messages);
    ~Form1() override;

signals:
    /// The window has been closed and its settings are saved.
    void closed();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    QWidget* pagePane();
    QWidget* totalsBar();
    void fill();
    void connectControls();
    void addShortcuts();
    void addPageActions();
    void openPages();
    void restoreSplitter();
    void runCommand(Command command);
    void showRow(int row);
    void goTo(std::int32_t record);
    void goBack();
    void search();
    Find& find();
    void enable(Command command, bool on);
    void showSupplierPage(const std::filesystem::path& file);
    void followLink(const QUrl& address, bool clicked);
    void saveSettings();

    app::Session m_session;
    Guard& m_guard;
    platform::MessageBox& m_messages;
    WindowMemory m_memory;
    catalog::SettingsFile m_userSettings;
    catalog::Catalog m_catalog;
    order::DeliveryDetails m_details;

    Toolbar* m_toolbar;
    PageBrowser* m_banner;
    GroupBoxes* m_groupBoxes;
    QSplitter* m_splitter;
    ProductGrid* m_grid;
    PageBrowser* m_page;
    PageSearchBar* m_pageSearch;
    QCheckBox* m_tax;
    QLabel* m_taxTotalCaption;
    QLabel* m_taxTotal;
    QLabel* m_orderTotal;

    Browsing m_browsing;
    LinkRules m_links;
    pages::GroupLists m_groupLists;
    PageTurner* m_turner;
    Find* m_find = nullptr; // from its first use on
    ToolbarState m_toolbarState;
    bool m_goingBack = false;
};

}
