#include "ui/qt/form1.h"

#include "base/files.h"
#include "base/numbers.h"
#include "ui/qt/widgets/qt_text.h"

#include <QCloseEvent>
#include <QHBoxLayout>
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

ToolbarState openingToolbarOf(const app::Session& session, const catalog::Parameters& parameters) {
    const catalog::SettingsFile startSettings(
        base::filePath(session.folders.ProgramFolder, catalog::startSettingsFile));
    return openingToolbar(parameters, startSettings.read(catalog::setting::emailStatus));
}

QString columnsOf(const Grid& grid) {
    return grid.objectName() + QString::number(grid.model()->columnCount());
}

}

Form1::Form1(const app::Session& session, Guard& guard, platform::MessageBox& messages,
             platform::Mailer& mailer, const std::filesystem::path& keptFolder)
    : m_session(session),
      m_guard(guard),
      m_userSettings(base::filePath(session.folders.UserFolder, catalog::userSettingsFile)),
      m_catalog(catalog::openCatalog(
          session.folders.DataFolder,
          [&] { m_basketFile.emplace(session.folders.UserFolder, m_basketOnDisk, messages); })),
      m_lostPages(m_catalog.openFiles()),
      m_toolbarState(openingToolbarOf(session, m_catalog.parameters)),
      m_toolbar(new Toolbar(this)),
      m_more(new MoreButton(*m_toolbar, this)),
      m_banner(new PageBrowser("wbBanner", "Banner", this)),
      m_offers(new OfferBar(guard, this)),
      m_views(new QStackedWidget(this)),
      m_catalogView(new CatalogView(this)),
      m_orderView(new OrderView(this)),
      m_totals(new TotalsBar(this)),
      m_catalogDesk({.setting = m_session,
                     .catalog = m_catalog,
                     .userSettings = m_userSettings,
                     .messages = messages,
                     .guard = guard,
                     .banner = *m_banner,
                     .view = *m_catalogView,
                     .window = *this}),
      m_orderScreen({.catalog = m_catalog,
                     .basket = *m_basketFile,
                     .userSettings = m_userSettings,
                     .messages = messages,
                     .guard = guard,
                     .toolbar = m_toolbarState,
                     .products = m_catalogView->grid(),
                     .view = *m_orderView,
                     .totals = *m_totals}),
      m_orderDesk(m_session, m_catalog.parameters, mailer, messages, guard, *this),
      m_moreDesk({.session = m_session,
                  .catalog = m_catalog,
                  .messages = messages,
                  .guard = guard,
                  .catalogDesk = m_catalogDesk,
                  .order = m_orderScreen,
                  .orderDesk = m_orderDesk,
                  .details = m_orderView->details(),
                  .offers = *m_offers,
                  .window = *this,
                  .keptFolder = keptFolder}) {
    setObjectName("Form1");
    m_guard.watch([this] { m_catalog.requireWhole(); });
    layOut();
    fill();
    connectControls();
    chargeTax();
    m_catalogDesk.open();
}

// The catalogue closes before the widgets go. A window that nobody has closed goes with the program, after a
// message; what was typed into the details is kept then too.
Form1::~Form1() {
    if (isVisible())
        m_orderScreen.saveDetails();
    m_guard.watch([] {});
}

void Form1::layOut() {
    auto* strip = new QWidget(this);
    auto* stripLayout = new QHBoxLayout(strip);
    stripLayout->setContentsMargins(0, 0, 0, 0);
    stripLayout->setSpacing(0);
    stripLayout->addWidget(m_toolbar, 1);
    stripLayout->addWidget(m_more);
    setMenuWidget(strip);
    m_banner->setFixedHeight(bannerHeight);
    m_views->addWidget(m_catalogView);
    m_views->addWidget(m_orderView);
    auto* middle = new QWidget(this);
    auto* layout = new QVBoxLayout(middle);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_banner);
    layout->addWidget(m_offers);
    layout->addWidget(m_views, 1);
    layout->addWidget(&m_moreDesk.quickEntry());
    layout->addWidget(m_totals);
    setTabOrder(&m_moreDesk.quickEntry().lastControl(), &m_totals->exempt());
    setCentralWidget(middle);
    m_memory.placeAsDesigned(*this, designedSize);
    m_memory.restore(*this);
}

void Form1::fill() {
    setWindowTitle(asTitle(toQt(m_catalog.parameters.text(ParameterText::catalogName))) + " - Tavorine");
    for (auto* grid : std::array<Grid*, 2>{&m_catalogView->grid(), &m_orderView->grid()}) {
        grid->columnWidths().choose(m_memory.columnWidths(columnsOf(*grid)));
        grid->showOnlyIf([this] { return m_catalog.isWhole(); });
        connect(grid, &Grid::rowsNotSound, this, m_guard([] {}), Qt::QueuedConnection);
    }
    m_catalogView->page().setZoom(m_memory.pageZoom());
}

void Form1::connectControls() {
    connect(m_toolbar, &Toolbar::clicked, this, m_guard([this](Command command) { runCommand(command); }));
    connect(m_more, &MoreButton::chosen, this, m_guard([this](MoreCommand command) { runMore(command); }));
    connect(&m_catalogView->page(), &PageBrowser::backAsked, this,
            m_guard([this] { runCommand(Command::back); }));
    connect(&m_totals->exempt(), &QCheckBox::toggled, this, m_guard([this] { chargeTax(); }));
    connect(&m_catalogDesk, &CatalogDesk::backChanged, this, &Form1::enableBack);
    connect(&m_orderScreen, &OrderScreen::toolbarChanged, this, &Form1::showToolbar);
    connect(&m_moreDesk, &MoreDesk::stateChanged, this, &Form1::showToolbar);
    connect(&m_moreDesk, &MoreDesk::articleChosen, this,
            m_guard([this](std::int32_t record) { showArticle(record); }));
    addShortcuts();
}

void Form1::addShortcuts() {
    const auto add = [this](const QKeySequence& keys, std::function<void()> act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, m_guard(std::move(act)));
    };
    const auto goOn = [this](void (CatalogDesk::*direction)()) {
        if (m_orderScreen.takePending() && m_toolbarState.enabled(Command::search))
            (m_catalogDesk.*direction)();
    };
    add(QKeySequence("F3"), [goOn] { goOn(&CatalogDesk::searchNext); });
    add(QKeySequence("Shift+F3"), [goOn] { goOn(&CatalogDesk::searchPrevious); });
}

// The first time only: a window is shown again when it comes back from the task bar.
void Form1::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (std::exchange(m_splitterPlaced, true))
        return;
    QTimer::singleShot(0, this, [this] {
        m_catalogView->setSplitTop(base::parseNumber(m_userSettings.read(catalog::setting::splitTop)));
    });
    QTimer::singleShot(0, this, m_guard([this] { m_moreDesk.opened(); }));
}

// A quantity that is still being typed counts, and it may be the one that leaves a command nothing to do. One
// that is not sold holds every command up that could use the old quantity in its place.
void Form1::runCommand(Command command) {
    const bool needsNoOrder = command == Command::exit || command == Command::help;
    if ((!m_orderScreen.takePending() && !needsNoOrder) || !m_toolbarState.enabled(command))
        return;
    switch (command) {
    case Command::exit:
        close();
        break;
    case Command::search:
        m_catalogDesk.search();
        break;
    case Command::back:
        m_catalogDesk.goBack();
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
        m_orderDesk.email(m_orderScreen.contents());
        break;
    case Command::print:
        m_catalogDesk.catchUp();
        m_orderDesk.print(m_orderScreen.contents());
        break;
    case Command::preview:
        m_catalogDesk.catchUp();
        m_orderDesk.preview(m_orderScreen.contents());
        break;
    case Command::help:
        emit helpAsked();
        break;
    }
}

void Form1::runMore(MoreCommand command) {
    if (!m_orderScreen.takePending() || !m_more->action(command)->isEnabled())
        return;
    if (command == MoreCommand::preview)
        runCommand(Command::preview);
    else
        m_moreDesk.run(command);
}

void Form1::showToolbar() {
    m_toolbar->show(m_orderScreen.toolbar());
    m_more->show(m_moreDesk.state());
}

// In the order view nothing leads back.
void Form1::enableBack(bool on) {
    m_toolbarState.enable(Command::back, on && m_orderScreen.viewMode() == ViewMode::catalogue);
    showToolbar();
}

// Prices the order again, and the page that is up.
void Form1::chargeTax() {
    const auto status = m_totals->exempt().isChecked() ? pages::TaxStatus::exempt : pages::TaxStatus::taxed;
    m_orderScreen.closePending();
    m_catalogDesk.setTaxStatus(status);
    m_orderScreen.setTaxStatus(status);
}

void Form1::checkOut() {
    m_catalogDesk.stepAside();
    m_orderScreen.checkOut();
    m_views->setCurrentWidget(m_orderView);
    m_orderView->details().focusFirst();
}

void Form1::showPriceList() {
    m_orderScreen.priceList(m_catalogDesk.historySize());
    showCatalogView();
}

void Form1::showArticle(std::int32_t record) {
    if (!m_orderScreen.takePending())
        return;
    if (m_orderScreen.viewMode() == ViewMode::order)
        showPriceList();
    m_catalogDesk.goTo(record);
}

void Form1::clearOrder() {
    const bool wasInOrderView = m_orderScreen.viewMode() == ViewMode::order;
    if (m_orderScreen.clear(m_catalogDesk.historySize()) && wasInOrderView)
        showCatalogView();
}

void Form1::showCatalogView() {
    m_orderScreen.saveDetails();
    m_views->setCurrentWidget(m_catalogView);
    m_catalogDesk.comeBack();
    m_catalogView->grid().takeFocus();
    m_orderScreen.tellFailure();
}

void Form1::closeNow() {
    m_mustClose = true;
    close();
}

// An order that is being printed is seen to its end, or cancelled, first.
void Form1::closeEvent(QCloseEvent* event) {
    auto* printer = m_orderDesk.printer().busy() ? &m_orderDesk.printer() : m_moreDesk.busyPrinter();
    if (printer && !m_mustClose && !m_guard.ending()) {
        connect(printer, &OrderPrinter::ended, this, &Form1::close,
                static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
        printer->showBusy();
        return event->ignore();
    }
    m_guard.run([this] {
        saveSettings();
        m_moreDesk.leave();
        m_orderScreen.tellFailure();
    });
    event->accept();
    emit closed();
}

void Form1::saveSettings() {
    m_orderScreen.closePending();
    m_moreDesk.save();
    m_userSettings.write(catalog::setting::splitTop,
                         base::settingsText(static_cast<float>(m_catalogView->splitTop())));
    m_orderScreen.saveDetails();
    m_catalogDesk.closeSearch();
    m_memory.save(*this);
    m_memory.savePageZoom(m_catalogView->page().zoom());
    for (auto* grid : std::array<Grid*, 2>{&m_catalogView->grid(), &m_orderView->grid()})
        m_memory.saveColumnWidths(grid->columnWidths().chosen(), columnsOf(*grid));
}

}
