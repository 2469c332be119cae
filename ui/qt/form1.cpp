#include "ui/qt/form1.h"

#include "base/files.h"
#include "base/numbers.h"
#include "order/basket_file.h"
#include "ui/qt/text.h"
#include "ui/zoom.h"

#include <QAction>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace ui::qt {
namespace {

using catalog::ParameterText;

constexpr int bannerHeight = 84;
constexpr QSize designedSize{1000, 720};
constexpr QSize smallestSize{600, 420};
constexpr int designedGridHeight = 210;

// The basket of a new order is started between the products and the groups, as every load does.
catalog::Catalog open(const app::Session& session) {
    const auto file = [&](std::string_view name) { return base::filePath(session.folders.DataFolder, name); };
    catalog::Parameters parameters(file(catalog::parametersFile));
    catalog::ProductTable products(file(catalog::productsFile));
    order::startBasketFile(session.folders.UserFolder);
    return {std::move(parameters), std::move(products), catalog::GroupTable(file(catalog::groupsFile)),
            catalog::CodeIndex(file(catalog::indexFile)), catalog::MemoFile(file(catalog::memosFile))};
}

}

Form1::Form1(const app::Session& session, Guard& guard, platform::MessageBox& messages)
    : m_session(session),
      m_guard(guard),
      m_messages(messages),
      m_userSettings(base::filePath(session.folders.UserFolder, catalog::userSettingsFile)),
      m_catalog(open(session)),
      m_toolbar(new Toolbar(this)),
      m_banner(new PageBrowser("wbBanner", "Banner", this)),
      m_groupBoxes(new GroupBoxes(this)),
      m_splitter(new QSplitter(Qt::Vertical, this)),
      m_grid(new ProductGrid(m_splitter)),
      m_page(new PageBrowser("WbPage", "Page", this)),
      m_pageSearch(new PageSearchBar(*m_page, this)),
      m_tax(new QCheckBox(this)),
      m_taxTotalCaption(new QLabel(this)),
      m_taxTotal(new QLabel(this)),
      m_orderTotal(new QLabel(this)),
      m_browsing(m_session, m_catalog, *m_banner, *m_page),
      m_links(m_catalog, m_session.folders),
      m_groupLists(m_catalog),
      m_turner(new PageTurner(*m_page, m_guard([this](int row) { showRow(row); }), this)) {
    setObjectName("Form1");
    layOut();
    fill();
    connectControls();
    openPages();
}

Form1::~Form1() {
    m_grid->setModel(nullptr); // the catalogue closes before the widgets go
}

void Form1::layOut() {
    addToolBar(m_toolbar);
    m_banner->setFixedHeight(bannerHeight);
    m_splitter->setObjectName("Split");
    m_splitter->addWidget(pagePane());
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({designedGridHeight, designedSize.height()});
    m_page->setMinimumHeight(fontMetrics().height() * 4);
    m_grid->setMinimumHeight(fontMetrics().height() * 4);

    auto* middle = new QWidget(this);
    auto* layout = new QVBoxLayout(middle);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_banner);
    layout->addWidget(m_groupBoxes);
    layout->addWidget(m_splitter, 1);
    layout->addWidget(totalsBar());
    setCentralWidget(middle);
    setMinimumSize(smallestSize);
    resize(designedSize);
    m_memory.restore(*this);
}

QWidget* Form1::pagePane() {
    auto* pane = new QWidget(m_splitter);
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_page, 1);
    layout->addWidget(m_pageSearch);
    return pane;
}

QWidget* Form1::totalsBar() {
    m_tax->setObjectName("cbTax");
    m_taxTotal->setObjectName("lbTotTax");
    m_taxTotal->setAccessibleDescription("Tax total");
    m_orderTotal->setObjectName("lbTotOrd");
    m_orderTotal->setAccessibleDescription("Order total");
    auto bold = font();
    bold.setBold(true);
    m_orderTotal->setFont(bold);
    for (auto* label : {m_taxTotalCaption, m_taxTotal, m_orderTotal})
        label->setTextFormat(Qt::PlainText);

    auto* bar = new QWidget(this);
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(10, 6, 12, 6);
    layout->addWidget(m_tax);
    layout->addStretch();
    layout->addWidget(m_taxTotalCaption);
    layout->addWidget(m_taxTotal);
    layout->addSpacing(18);
    layout->addWidget(new QLabel("Total", this));
    layout->addWidget(m_orderTotal);
    return bar;
}

void Form1::fill() {
    const auto& parameters = m_catalog.parameters;
    const auto& taxName = parameters.text(ParameterText::taxName);
    setWindowTitle(toQt(parameters.text(ParameterText::catalogName)) + " - Tavorine");
    m_tax->setText(toQt(std::string(base::trim(taxName)) + " Exempt").replace('&', "&&"));
    m_tax->setToolTip("If tax exempt, click the checkbox to disable tax");
    m_taxTotalCaption->setText(toQt(taxName));
    for (QWidget* control : {static_cast<QWidget*>(m_tax), static_cast<QWidget*>(m_taxTotalCaption), static_cast<QWidget*>(m_taxTotal)})
        control->setVisible(parameters.chargesTax());
    m_taxTotal->setText(toQt(base::fixedText(0, 2)));
    m_orderTotal->setText(toQt(base::fixedText(0, 2)));

    m_grid->open(new ProductModel(m_catalog.products, productColumns(parameters), m_grid));
    m_memory.restore(*m_grid->horizontalHeader(), QString::number(m_grid->model()->columnCount()));

    m_groupBoxes->open(m_groupLists);
    m_page->setZoom(m_memory.pageZoom());

    m_details = order::readDetails(m_userSettings);
    m_tax->setChecked(m_details.taxExempt);
    const catalog::SettingsFile startSettings(
        base::filePath(m_session.folders.ProgramFolder, catalog::startSettingsFile));
    m_toolbarState = openingToolbar(parameters, startSettings.read("Email", "Status"));
    m_toolbar->show(m_toolbarState);
}

void Form1::connectControls() {
    connect(m_toolbar, &Toolbar::clicked, this, m_guard([this](Command command) { runCommand(command); }));
    connect(m_grid, &ProductGrid::currentRowChanged, m_turner, &PageTurner::turnTo);
    connect(m_groupBoxes, &GroupBoxes::chosen, this, m_guard([this](int record) { goTo(record); }));
    connect(m_page, &PageBrowser::backAsked, this, m_guard([this] { goBack(); }));
    m_page->onLink(m_guard([this](const QUrl& address, bool clicked) { followLink(address, clicked); }));
    addShortcuts();
    addPageActions();
    const auto setStatus = [this](bool exempt) {
        m_browsing.setTaxStatus(exempt ? pages::TaxStatus::exempt : pages::TaxStatus::taxed);
    };
    setStatus(m_tax->isChecked());
    connect(m_tax, &QCheckBox::toggled, this, m_guard(setStatus));
    // The banner must be up before the scratch page is written again.
    connect(m_banner, &PageBrowser::loaded, m_turner, &PageTurner::start);
}

void Form1::addShortcuts() {
    const auto add = [this](const QKeySequence& keys, std::function<void()> act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, m_guard(std::move(act)));
    };
    add(QKeySequence("F3"), [this] { find().searchNext(); });
    add(QKeySequence("Shift+F3"), [this] { find().searchPrevious(); });
}

// Offered in the page's own menu too.
void Form1::addPageActions() {
    const auto add = [this](const QString& text, const QKeySequence& keys, std::function<void()> act) {
        auto* action = new QAction(text, this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, m_guard(std::move(act)));
        addAction(action);
        m_page->addAction(action);
    };
    add("&Find on this page...", QKeySequence("Ctrl+Shift+F"), [this] { m_pageSearch->open(); });
    add("&Larger", QKeySequence("Ctrl++"), [this] { m_page->setZoom(zoomedBy(m_page->zoom(), 1)); });
    add("&Smaller", QKeySequence("Ctrl+-"), [this] { m_page->setZoom(zoomedBy(m_page->zoom(), -1)); });
    add("&Normal size", QKeySequence("Ctrl+0"), [this] { m_page->setZoom(1); });
}

void Form1::openPages() {
    m_banner->confineTo(pageFilesOf(m_session.folders));
    m_page->confineTo(pageFilesOf(m_session.folders));
    if (m_catalog.products.count() > 0)
        m_grid->setCurrentRow(0);
    else
        m_turner->turnTo(0);
    m_grid->setFocus();
    // After the first paint of the window: making the browser takes longer than everything else.
    QTimer::singleShot(0, this, m_guard([this] { m_browsing.showBanner(); }));
}

void Form1::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    QTimer::singleShot(0, this, &Form1::restoreSplitter);
}

void Form1::restoreSplitter() {
    const auto top = base::parseNumber(m_userSettings.read("Split", "Top"));
    if (top <= 0 || top > 100000)
        return;
    const int upper = static_cast<int>(top);
    m_splitter->setSizes({upper, m_splitter->height() - m_splitter->handleWidth() - upper});
}

void Form1::runCommand(Command command) {
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
    default:
        break;
    }
}

void Form1::enable(Command command, bool on) {
    m_toolbarState.enable(command, on);
    m_toolbar->show(m_toolbarState);
}

// Every record shown can be left again, but for the oldest one when Back has led to it.
void Form1::showRow(int row) {
    m_browsing.showRecord(row + 1);
    const bool cameBack = std::exchange(m_goingBack, false);
    enable(Command::back, !cameBack || !m_browsing.history().holdsOnly(row + 1));
}

// Also when the row is current already but something else than its page is up.
void Form1::goTo(std::int32_t record) {
    if (m_grid->currentRow() != record - 1)
        m_grid->setCurrentRow(record - 1);
    else if (!m_browsing.recordIsUp())
        m_browsing.showAgain();
}

Find& Form1::find() {
    if (!m_find)
        m_find = new Find({m_catalog, *m_grid, m_messages, m_userSettings, m_guard}, this);
    return *m_find;
}

// Back is there again with the next record shown.
void Form1::search() {
    enable(Command::back, false);
    find().bringUp();
}

void Form1::goBack() {
    m_turner->catchUp();
    const auto record = m_browsing.stepBack();
    if (!record)
        return;
    m_goingBack = true;
    m_grid->returnToRow(*record - 1);
    m_turner->turnTo(*record - 1); // the row may be current already
}

// The scratch page stands for the current record's.
void Form1::showSupplierPage(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::equivalent(file, m_browsing.scratchPage(), error))
        m_browsing.showAgain();
    else if (const auto bytes = base::readFile(file))
        m_browsing.showPage(file, *bytes);
}

void Form1::followLink(const QUrl& address, bool clicked) {
    const auto end = m_links.follow(address.toEncoded().toStdString());
    if (const auto* product = std::get_if<LeadsToProduct>(&end)) {
        goTo(product->record);
    } else if (std::holds_alternative<LeadsToMissingProduct>(end)) {
        m_messages.show(platform::Icon::critical, "Missing Product", "Product not found");
    } else if (const auto* page = std::get_if<LeadsToPage>(&end)) {
        showSupplierPage(page->file);
    } else if (std::holds_alternative<LeadsOutside>(end) && clicked) {
        QDesktopServices::openUrl(address);
    }
}

void Form1::closeEvent(QCloseEvent* event) {
    m_guard.run([this] { saveSettings(); });
    event->accept();
    emit closed();
}

void Form1::saveSettings() {
    m_userSettings.write("Split", "Top", base::settingsText(static_cast<float>(m_splitter->handle(1)->y())));
    m_details.taxExempt = m_tax->isChecked();
    order::saveDetails(m_details, m_userSettings);
    m_memory.save(*this);
    m_memory.savePageZoom(m_page->zoom());
    m_memory.save(*m_grid->horizontalHeader(), QString::number(m_grid->model()->columnCount()));
}

}
