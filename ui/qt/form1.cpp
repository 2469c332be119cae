#include "ui/qt/form1.h"

#include "base/files.h"
#include "base/numbers.h"
#include "ui/document_rows.h"
#include "ui/qt/widgets/qt_text.h"
#include "ui/zoom.h"

#include <QAction>
#include <QCloseEvent>
#include <QDate>
#include <QDesktopServices>
#include <QLocale>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace ui::qt {
namespace {

using catalog::ParameterText;

constexpr int bannerHeight = 88; // of its page, which grows with the screen's scaling and not with the font
constexpr QSize designedSize{1000, 720};

// The basket of a new order is started between the products and the groups, as every load does.
catalog::Catalog open(const app::Session& session, std::optional<order::BasketFile>& basket,
                      platform::PositionedFile& basketOnDisk, platform::MessageBox& messages) {
    const auto file = [&](std::string_view name) { return base::filePath(session.folders.DataFolder, name); };
    catalog::Parameters parameters(file(catalog::parametersFile));
    catalog::ProductTable products(file(catalog::productsFile));
    basket.emplace(session.folders.UserFolder, basketOnDisk, messages);
    return {std::move(parameters), std::move(products), catalog::GroupTable(file(catalog::groupsFile)),
            catalog::CodeIndex(file(catalog::indexFile)), catalog::MemoFile(file(catalog::memosFile))};
}

pages::TaxStatus statusOf(bool exempt) {
    return exempt ? pages::TaxStatus::exempt : pages::TaxStatus::taxed;
}

QString columnsOf(const Grid& grid) {
    return grid.objectName() + QString::number(grid.model()->columnCount());
}

}

Form1::Form1(const app::Session& session, Guard& guard, platform::MessageBox& messages,
             platform::Mailer& mailer)
    : m_session(session),
      m_guard(guard),
      m_messages(messages),
      m_userSettings(base::filePath(session.folders.UserFolder, catalog::userSettingsFile)),
      m_detailsFile(m_userSettings, messages),
      m_catalog(open(session, m_basketFile, m_basketOnDisk, messages)),
      m_lostPages(m_catalog.openFiles()),
      m_ordering(m_catalog, *m_basketFile, messages, m_toolbarState),
      m_orderDesk(m_session, m_catalog.parameters, mailer, messages, guard, *this),
      m_groupLists(m_catalog),
      m_links(m_catalog, m_session.folders),
      m_toolbar(new Toolbar(this)),
      m_banner(new PageBrowser("wbBanner", "Banner", this)),
      m_views(new QStackedWidget(this)),
      m_catalogView(new CatalogView(this)),
      m_orderView(new OrderView(this)),
      m_totals(new TotalsBar(this)),
      m_browsing(m_session, m_catalog, *m_banner, m_catalogView->page()),
      m_turner(new PageTurner(m_catalogView->page(), m_guard([this](int row) { showRow(row); }), this)) {
    setObjectName("Form1");
    m_guard.watch([this] { m_catalog.requireWhole(); });
    layOut();
    fill();
    restoreSettings();
    connectControls();
    openPages();
}

// The catalogue closes before the widgets go.
Form1::~Form1() {
    m_guard.watch([] {});
    m_catalogView->grid().setModel(nullptr);
    m_orderView->grid().setModel(nullptr);
    delete m_find;
}

void Form1::layOut() {
    addToolBar(m_toolbar);
    m_banner->setFixedHeight(bannerHeight);
    m_views->addWidget(m_catalogView);
    m_views->addWidget(m_orderView);
    auto* middle = new QWidget(this);
    auto* layout = new QVBoxLayout(middle);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_banner);
    layout->addWidget(m_views, 1);
    layout->addWidget(m_totals);
    setCentralWidget(middle);
    m_memory.placeAsDesigned(*this, designedSize);
    m_memory.restore(*this);
}

void Form1::fill() {
    setWindowTitle(asTitle(toQt(m_catalog.parameters.text(ParameterText::catalogName))) + " - Tavorine");
    m_totals->open(m_catalog.parameters);
    m_products = new ProductModel(m_catalog, m_ordering.grids(), this);
    m_catalogView->grid().open(m_products);
    m_catalogView->groupBoxes().open(m_groupLists);
    m_orderView->open(new OrderModel(m_catalog, m_ordering.grids(), this));
    for (auto* grid : std::array<Grid*, 2>{&m_catalogView->grid(), &m_orderView->grid()}) {
        grid->columnWidths().choose(m_memory.columnWidths(columnsOf(*grid)));
        grid->showOnlyIf([this] { return m_catalog.isWhole(); });
        connect(grid, &Grid::rowsNotSound, this, m_guard([] {}), Qt::QueuedConnection);
    }
    m_catalogView->page().setZoom(m_memory.pageZoom());
}

void Form1::restoreSettings() {
    m_details = m_detailsFile.read();
    m_orderView->details().show(m_details);
    m_totals->exempt().setChecked(m_details.taxExempt);
    m_browsing.setTaxStatus(statusOf(m_details.taxExempt));
    const catalog::SettingsFile startSettings(
        base::filePath(m_session.folders.ProgramFolder, catalog::startSettingsFile));
    m_toolbarState = openingToolbar(m_catalog.parameters, startSettings.read(catalog::setting::emailStatus));
    m_ordering.setTaxStatus(statusOf(m_details.taxExempt));
    showOrder();
}

void Form1::connectControls() {
    connect(m_toolbar, &Toolbar::clicked, this, m_guard([this](Command command) { runCommand(command); }));
    connect(m_toolbar, &Toolbar::previewAsked, this, m_guard([this] { previewOrder(); }));
    connect(&m_catalogView->grid(), &ProductGrid::currentRowChanged, m_turner, &PageTurner::turnTo);
    connect(&m_catalogView->groupBoxes(), &GroupBoxes::chosen, this,
            m_guard([this](int record) { goTo(record); }));
    connect(&m_catalogView->page(), &PageBrowser::backAsked, this,
            m_guard([this] { runCommand(Command::back); }));
    m_catalogView->page().onLink(
        m_guard([this](const QUrl& address, bool clicked) { followLink(address, clicked); }));
    connect(&m_totals->exempt(), &QCheckBox::toggled, this,
            m_guard([this](bool exempt) { setExempt(exempt); }));
    m_products->onQuantity(m_guard([this](int row, std::string_view text) { editProduct(row, text); }));
    for (auto* grid : std::array<Grid*, 2>{&m_catalogView->grid(), &m_orderView->grid()})
        connect(grid, &Grid::typingChanged, this, m_guard([this] { showToolbar(); }));
    m_orderView->model().onQuantity(
        m_guard([this](int row, std::string_view text) { editOrder(row, text); }));
    // The banner must be up before the scratch page is written again.
    connect(m_banner, &PageBrowser::loaded, m_turner, &PageTurner::start);
    addShortcuts();
    addPageActions();
}

void Form1::addShortcuts() {
    const auto add = [this](const QKeySequence& keys, std::function<void()> act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, m_guard(std::move(act)));
    };
    const auto goOn = [this](void (Find::*direction)()) {
        if (takePending() && m_toolbarState.enabled(Command::search))
            (find().*direction)();
    };
    add(QKeySequence("F3"), [goOn] { goOn(&Find::searchNext); });
    add(QKeySequence("Shift+F3"), [goOn] { goOn(&Find::searchPrevious); });
}

// Offered in the page's own menu too.
void Form1::addPageActions() {
    auto* page = &m_catalogView->page();
    const auto add = [this, page](const QString& text, const QKeySequence& keys, std::function<void()> act) {
        auto* action = new QAction(text, this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, m_guard(std::move(act)));
        addAction(action);
        page->addAction(action);
    };
    add("&Find on this page...", QKeySequence("Ctrl+Shift+F"), [this] { m_catalogView->searchPage(); });
    add("&Larger", QKeySequence("Ctrl++"), [page] { page->setZoom(zoomedBy(page->zoom(), 1)); });
    add("&Smaller", QKeySequence("Ctrl+-"), [page] { page->setZoom(zoomedBy(page->zoom(), -1)); });
    add("&Normal size", QKeySequence("Ctrl+0"), [page] { page->setZoom(1); });
}

void Form1::openPages() {
    m_banner->confineTo(pages::pageFilesOf(m_session.folders));
    m_catalogView->page().confineTo(pages::pageFilesOf(m_session.folders));
    if (m_catalog.products.count() > 0)
        m_catalogView->grid().setCurrentRow(0);
    else
        m_turner->turnTo(0);
    m_catalogView->grid().setFocus();
    // After the first paint of the window: making the browser takes longer than everything else.
    QTimer::singleShot(0, this, m_guard([this] { m_browsing.showBanner(); }));
}

// The first time only: a window is shown again when it comes back from the task bar.
void Form1::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (std::exchange(m_splitterPlaced, true))
        return;
    QTimer::singleShot(0, this, [this] {
        m_catalogView->setSplitTop(base::parseNumber(m_userSettings.read(catalog::setting::splitTop)));
    });
}

// A quantity that is still being typed counts, and it may be the one that leaves a command nothing to do. One
// that is not sold holds every command up that could use the old quantity in its place.
void Form1::runCommand(Command command) {
    const bool needsNoOrder = command == Command::exit || command == Command::help;
    if ((!takePending() && !needsNoOrder) || !m_toolbarState.enabled(command))
        return;
    switch (command) {
    case Command::exit:
        close();
        break;
    case Command::search:
        search();
        break;
    case Command::back:
        goBack();
        break;
    case Command::priceList:
        showPriceList();
        break;
    case Command::checkOut:
        checkOut();
        break;
    case Command::clear:
        clearOrder();
        break;
    case Command::email:
        m_orderDesk.email(orderContents());
        break;
    case Command::print:
        printOrder();
        break;
    case Command::help:
        emit helpAsked();
        break;
    }
}

// While a quantity is being typed, the buttons are those that there will be once it is taken.
ToolbarState Form1::toolbarToShow() const {
    if (const auto typed = m_catalogView->grid().typedQuantity())
        return m_ordering.toolbarOnceOrdered(typed->row + 1, typed->text);
    if (const auto typed = m_orderView->grid().typedQuantity()) {
        const auto& row = m_ordering.grids().orderRows().at(static_cast<std::size_t>(typed->row));
        return m_ordering.toolbarOnceOrdered(row.product(), typed->text);
    }
    return m_toolbarState;
}

void Form1::showToolbar() {
    m_toolbar->show(toolbarToShow());
}

void Form1::enableBack(bool on) {
    m_toolbarState.enable(Command::back, on);
    showToolbar();
}

// Every record shown can be left again.
void Form1::showRow(int row) {
    m_browsing.showRecord(row + 1);
    enableBack(m_ordering.view() == ViewMode::catalogue);
}

// Also when the row is current already but something else than its page is up.
void Form1::goTo(std::int32_t record) {
    if (m_catalogView->grid().currentRow() != record - 1)
        m_catalogView->grid().setCurrentRow(record - 1);
    else if (!m_browsing.recordIsUp())
        m_browsing.showAgain();
}

void Form1::goBack() {
    m_turner->catchUp();
    const auto record = m_browsing.stepBack();
    if (!record)
        return;
    m_catalogView->grid().returnToRow(*record - 1);
    m_turner->turnTo(*record - 1); // the row may be current already
    m_turner->catchUp();           // at once: a row chosen next comes after this one
    if (m_browsing.history().holdsOnly(*record))
        enableBack(false);
}

Find& Form1::find() {
    if (!m_find)
        m_find = new Find({m_catalog, m_catalogView->grid(), m_messages, m_userSettings, m_guard}, this);
    return *m_find;
}

// Back is there again with the next record shown.
void Form1::search() {
    enableBack(false);
    find().bringUp();
}

// The scratch page stands for the current record's.
void Form1::showSupplierPage(const pages::LeadsToPage& page) {
    std::error_code error;
    if (std::filesystem::equivalent(page.file, m_browsing.scratchPage(), error))
        m_browsing.showAgain(page.place);
    else if (const auto bytes = base::readFile(page.file))
        m_browsing.showPage(page.file, *bytes, page.place);
}

void Form1::followLink(const QUrl& address, bool clicked) {
    const auto end = m_links.follow(address.toEncoded().toStdString());
    if (const auto* product = std::get_if<pages::LeadsToProduct>(&end))
        goTo(product->record);
    else if (std::holds_alternative<pages::LeadsToMissingProduct>(end) && clicked)
        m_messages.show(platform::Icon::critical, "Missing Product", "Product not found");
    else if (const auto* page = std::get_if<pages::LeadsToPage>(&end))
        showSupplierPage(*page);
    else if (std::holds_alternative<pages::LeadsOutside>(end) && clicked)
        QDesktopServices::openUrl(address);
}

void Form1::editProduct(int row, std::string_view text) {
    m_ordering.editProduct(row + 1, text);
    m_products->rowChanged(row);
    showOrder();
}

void Form1::editOrder(int row, std::string_view text) {
    const auto edit = m_ordering.editOrder(static_cast<std::size_t>(row), text);
    m_orderView->model().rowChanged(row);
    if (edit)
        m_products->rowChanged(edit->product - 1);
    showOrder();
}

void Form1::showOrder() {
    m_totals->showTotals(toQt(m_ordering.orderLabel()), toQt(m_ordering.taxLabel()));
    showToolbar();
}

// Prices the order again, and the page that is up.
void Form1::setExempt(bool exempt) {
    closePending();
    m_browsing.setTaxStatus(statusOf(exempt));
    m_ordering.setTaxStatus(statusOf(exempt));
    m_products->allRowsChanged();
    m_orderView->model().allRowsChanged();
    showOrder();
}

void Form1::checkOut() {
    if (m_find)
        m_find->stepAside();
    m_orderView->model().refill([this] { m_ordering.checkOut(); });
    m_views->setCurrentWidget(m_orderView);
    showOrder();
    m_orderView->details().focusFirst();
}

void Form1::showPriceList() {
    m_ordering.priceList(m_browsing.history().size());
    showCatalogView();
}

void Form1::showCatalogView() {
    saveDetails();
    m_views->setCurrentWidget(m_catalogView);
    showOrder();
    if (m_find)
        m_find->comeBack();
    m_catalogView->grid().takeFocus();
    m_detailsFile.tellFailure();
}

void Form1::clearOrder() {
    const bool wasInOrderView = m_ordering.view() == ViewMode::order;
    if (!m_ordering.clear(m_browsing.history().size()))
        return;
    m_orderView->model().refill([] {});
    m_products->allRowsChanged();
    if (wasInOrderView)
        showCatalogView();
    showOrder();
}

// A product page that is still due must not be written over the order's.
void Form1::printOrder() {
    m_turner->catchUp();
    m_orderDesk.print(orderContents());
}

void Form1::previewOrder() {
    if (!takePending())
        return;
    m_turner->catchUp();
    m_orderDesk.preview(orderContents());
}

order::OrderContents Form1::orderContents() {
    auto& form = m_orderView->details();
    form.readInto(m_details);
    m_details.taxExempt = m_totals->exempt().isChecked();
    return {m_details,
            fromQt(form.orderNumber()),
            fromQt(form.comment().replace('\n', "\r\n")),
            fromQt(form.deliveryDate()),
            fromQt(QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat)),
            m_ordering.basket().taxStatus(),
            m_ordering.basket().totals(),
            documentRows(m_catalog, m_ordering.grids().orderRows())};
}

bool Form1::takePending() {
    return m_catalogView->grid().takePending() && m_orderView->grid().takePending();
}

void Form1::closePending() {
    m_catalogView->grid().closePending();
    m_orderView->grid().closePending();
}

void Form1::saveDetails() {
    m_orderView->details().readInto(m_details);
    m_details.taxExempt = m_totals->exempt().isChecked();
    m_detailsFile.save(m_details);
}

void Form1::closeNow() {
    m_mustClose = true;
    close();
}

// An order that is being printed is seen to its end, or cancelled, first.
void Form1::closeEvent(QCloseEvent* event) {
    auto& printer = m_orderDesk.printer();
    if (printer.busy() && !m_mustClose && !m_guard.ending()) {
        connect(&printer, &OrderPrinter::ended, this, &Form1::close,
                static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
        printer.showBusy();
        return event->ignore();
    }
    m_guard.run([this] {
        saveSettings();
        m_detailsFile.tellFailure();
    });
    event->accept();
    emit closed();
}

void Form1::saveSettings() {
    closePending();
    m_userSettings.write(catalog::setting::splitTop,
                         base::settingsText(static_cast<float>(m_catalogView->splitTop())));
    saveDetails();
    if (m_find)
        m_find->reject(); // which saves its place
    m_memory.save(*this);
    m_memory.savePageZoom(m_catalogView->page().zoom());
    for (auto* grid : std::array<Grid*, 2>{&m_catalogView->grid(), &m_orderView->grid()})
        m_memory.saveColumnWidths(grid->columnWidths().chosen(), columnsOf(*grid));
}

}
