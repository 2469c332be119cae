#include "ui/qt/catalog_desk.h"

#include "base/files.h"
#include "ui/zoom.h"

#include <QAction>
#include <QDesktopServices>
#include <QTimer>

#include <functional>
#include <utility>

namespace ui::qt {

CatalogDesk::CatalogDesk(const Surroundings& surroundings)
    : m_around(surroundings),
      m_groupLists(m_around.catalog),
      m_links(m_around.catalog, m_around.setting.folders),
      m_browsing(m_around.setting, m_around.catalog, m_around.banner, m_around.view.page()),
      m_turner(m_around.view.page(), m_around.guard([this](int row) { showRow(row); }), nullptr) {
    m_around.view.groupBoxes().open(m_groupLists);
    m_around.banner.confineTo(pages::pageFilesOf(m_around.setting.folders));
    m_around.view.page().confineTo(pages::pageFilesOf(m_around.setting.folders));
    connectControls();
    addPageActions();
}

void CatalogDesk::connectControls() {
    auto& guard = m_around.guard;
    connect(&m_around.view.grid(), &ProductGrid::currentRowChanged, &m_turner, &PageTurner::turnTo);
    connect(&m_around.view.groupBoxes(), &GroupBoxes::chosen, this,
            guard([this](int record) { goTo(record); }));
    m_around.view.page().onLink(
        guard([this](const QUrl& address, bool clicked) { followLink(address, clicked); }));
    // The banner must be up before the scratch page is written again.
    connect(&m_around.banner, &PageBrowser::loaded, &m_turner, &PageTurner::start);
}

// Offered in the page's own menu too.
void CatalogDesk::addPageActions() {
    auto* page = &m_around.view.page();
    const auto add = [this, page](const QString& text, const QKeySequence& keys, std::function<void()> act) {
        auto* action = new QAction(text, &m_around.window);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, m_around.guard(std::move(act)));
        m_around.window.addAction(action);
        page->addAction(action);
    };
    add("&Find on this page...", QKeySequence("Ctrl+Shift+F"), [this] { searchPage(); });
    add("&Larger", QKeySequence("Ctrl++"), [this] { zoomPage(1); });
    add("&Smaller", QKeySequence("Ctrl+-"), [this] { zoomPage(-1); });
    add("&Normal size", QKeySequence("Ctrl+0"), [this] { zoomPage(0); });
}

void CatalogDesk::zoomPage(int direction) {
    auto& page = m_around.view.page();
    page.setZoom(direction == 0 ? 1 : zoomedBy(page.zoom(), direction));
}

void CatalogDesk::open() {
    auto& grid = m_around.view.grid();
    if (m_around.catalog.products.count() > 0)
        grid.setCurrentRow(0);
    else
        m_turner.turnTo(0);
    grid.setFocus();
    // After the first paint of the window: making the browser takes longer than everything else.
    QTimer::singleShot(0, this, m_around.guard([this] { m_browsing.showBanner(); }));
}

void CatalogDesk::setTaxStatus(pages::TaxStatus status) {
    m_browsing.setTaxStatus(status);
}

// Every record shown can be left again.
void CatalogDesk::showRow(int row) {
    m_browsing.showRecord(row + 1);
    emit backChanged(true);
}

// Also when the row is current already but something else than its page is up.
void CatalogDesk::goTo(std::int32_t record) {
    if (m_around.view.grid().currentRow() != record - 1)
        m_around.view.grid().setCurrentRow(record - 1);
    else if (!m_browsing.recordIsUp())
        m_browsing.showAgain();
}

void CatalogDesk::goBack() {
    m_turner.catchUp();
    const auto record = m_browsing.stepBack();
    if (!record)
        return;
    m_around.view.grid().returnToRow(*record - 1);
    m_turner.turnTo(*record - 1); // the row may be current already
    m_turner.catchUp();           // at once: a row chosen next comes after this one
    if (m_browsing.history().holdsOnly(*record))
        emit backChanged(false);
}

// The scratch page stands for the current record's.
void CatalogDesk::showSupplierPage(const pages::LeadsToPage& page) {
    std::error_code error;
    if (std::filesystem::equivalent(page.file, m_browsing.scratchPage(), error))
        m_browsing.showAgain(page.place);
    else if (const auto bytes = base::readFile(page.file))
        m_browsing.showPage(page.file, *bytes, page.place);
}

void CatalogDesk::followLink(const QUrl& address, bool clicked) {
    const auto end = m_links.follow(address.toEncoded().toStdString());
    if (const auto* product = std::get_if<pages::LeadsToProduct>(&end))
        goTo(product->record);
    else if (std::holds_alternative<pages::LeadsToMissingProduct>(end) && clicked)
        m_around.messages.show(platform::Icon::critical, "Missing Product", "Product not found");
    else if (const auto* page = std::get_if<pages::LeadsToPage>(&end))
        showSupplierPage(*page);
    else if (std::holds_alternative<pages::LeadsOutside>(end) && clicked)
        QDesktopServices::openUrl(address);
}

Find& CatalogDesk::find() {
    if (!m_find)
        m_find = std::make_unique<Find>(Find::Surroundings{m_around.catalog, m_around.view.grid(),
                                                           m_around.messages, m_around.userSettings,
                                                           m_around.guard},
                                        &m_around.window);
    return *m_find;
}

// Back is there again with the next record shown.
void CatalogDesk::search() {
    emit backChanged(false);
    find().bringUp();
}

void CatalogDesk::stepAside() {
    if (m_find)
        m_find->stepAside();
}

void CatalogDesk::comeBack() {
    if (m_find)
        m_find->comeBack();
}

void CatalogDesk::closeSearch() {
    if (m_find)
        m_find->reject();
}

}
