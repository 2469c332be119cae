#include "ui/qt/help/help_window.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "ui/qt/widgets/dark.h"
#include "ui/qt/widgets/icons.h"
#include "ui/qt/widgets/qt_text.h"
#include "ui/zoom.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QPointer>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>
#include <QWebEnginePage>
#include <QWebEngineScript>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr QSize designedSize{940, 680};
constexpr QSize smallestSize{420, 300};
constexpr int contentsWidth = 250;
constexpr int mostScrollTries = 20;
constexpr int scrollRetryMs = 50;

constexpr auto forwardStroke = "M 4 12 L 20 12 M 14 6 L 20 12 L 14 18";
constexpr auto homeStroke =
    "M 3 11.5 L 12 4 L 21 11.5 M 5.5 9.5 L 5.5 20 L 18.5 20 L 18.5 9.5 M 10 20 L 10 14 "
    "L 14 14 L 14 20";

// Ids in the book are plain; what else a link may hold leads to the page's top.
bool isPlain(const std::string& anchor) {
    return std::all_of(anchor.begin(), anchor.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_';
    });
}

// Pages leave it to the browser which colours they show, and the browser does not know the window's.
std::string coloured(std::string_view page, const QPalette& palette) {
    return base::replaceAll(page, "(prefers-color-scheme: dark)", isDark(palette) ? "all" : "not all");
}

QString scrollScript(const HelpPlace& place) {
    if (place.top >= 0)
        return "window.scrollTo(0, " + QString::number(place.top) + "); location.pathname";
    const auto anchor = QString::fromStdString(isPlain(place.anchor) ? place.anchor : std::string());
    return "(document.getElementById('" + anchor +
           "') || document.documentElement).scrollIntoView(); location.pathname";
}

}

HelpWindow::HelpWindow(const std::filesystem::path& folder, Guard& guard)
    : m_guard(guard),
      m_folder(std::filesystem::weakly_canonical(folder)),
      m_book(m_folder),
      m_files({m_folder, {}, {}}),
      m_contents(new HelpContents(m_book, this)),
      m_browser(new PageBrowser("HelpPage", "Help page", this)) {
    setObjectName("HelpWindow");
    setWindowTitle("Tavorine Help");
    m_browser->confineTo(m_files, PageBrowser::Scripts::off);
    layOut();
    addCommands();
    connectParts();
}

void HelpWindow::layOut() {
    auto* splitter = new QSplitter(this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_contents);
    splitter->addWidget(m_browser);
    splitter->setStretchFactor(1, 1);
    setCentralWidget(splitter);
    setMinimumSize(smallestSize);
    m_memory.placeAsDesigned(*this, designedSize);
    m_memory.restore(*this);
    const int contents = std::min(contentsWidth, width() / 3);
    splitter->setSizes({contents, width() - contents});
}

QAction* HelpWindow::addCommand(const QString& text, const QKeySequence& keys, std::function<void()> act) {
    auto* action = new QAction(text, this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, m_guard(std::move(act)));
    addAction(action);
    return action;
}

void HelpWindow::addCommands() {
    m_back = addCommand("Back", QKeySequence("Alt+Left"), [this] { step(-1); });
    m_forward = addCommand("Forward", QKeySequence("Alt+Right"), [this] { step(1); });
    auto* home =
        addCommand("Contents", QKeySequence("Alt+Home"), [this] { visit(HelpPlace::of(helpContentsPage)); });
    m_back->setIcon(commandIcon(Command::back));
    m_forward->setIcon(strokeIcon(forwardStroke));
    home->setIcon(strokeIcon(homeStroke));
    auto* bar = addToolBar("Commands");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (auto* action : {m_back, m_forward, home}) {
        action->setToolTip(action->text() + " (" + action->shortcut().toString() + ")");
        bar->addAction(action);
        bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    }
    m_browser->addActions({m_back, m_forward, home});
    addPageCommands();
}

// The sizes are offered in the page's own menu too.
void HelpWindow::addPageCommands() {
    const auto zoom = [this](int direction) {
        return [this, direction] { m_browser->setZoom(zoomedBy(m_browser->zoom(), direction)); };
    };
    m_browser->addActions(
        {addCommand("&Larger", QKeySequence("Ctrl++"), zoom(1)),
         addCommand("&Smaller", QKeySequence("Ctrl+-"), zoom(-1)),
         addCommand("&Normal size", QKeySequence("Ctrl+0"), [this] { m_browser->setZoom(1); })});
    addCommand("Search", QKeySequence("Ctrl+F"), [this] { m_contents->focusSearch(); });
    addCommand("Next place", QKeySequence("F3"), [this] { searchMarked(false); });
    addCommand("Previous place", QKeySequence("Shift+F3"), [this] { searchMarked(true); });
    addCommand("Close", QKeySequence("Esc"), [this] { close(); });
}

void HelpWindow::connectParts() {
    connect(m_contents, &HelpContents::placeChosen, this,
            m_guard([this](const HelpPlace& place) { visit(place); }));
    connect(m_contents, &HelpContents::hitChosen, this,
            m_guard([this](const HelpPlace& place, const QString& marked) {
                m_marked = marked;
                goTo(place);
            }));
    connect(m_contents, &HelpContents::searchCleared, this, m_guard([this] {
                m_marked.clear();
                searchMarked(false);
            }));
    connect(m_browser, &PageBrowser::loaded, this, m_guard([this] { arrive(); }));
    connect(m_browser, &PageBrowser::backAsked, this, m_guard([this] { step(-1); }));
    m_browser->onLink(m_guard([this](const QUrl& address, bool clicked) { followLink(address, clicked); }));
}

void HelpWindow::open(std::string_view target) {
    visit(HelpPlace::of(target));
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}

// Nothing that was searched for is marked any more.
void HelpWindow::visit(const HelpPlace& place) {
    m_marked.clear();
    goTo(place);
}

void HelpWindow::goTo(const HelpPlace& place) {
    leave();
    auto trail = m_trail;
    if (trail.isAt(place))
        trail.current().top = -1;
    else
        trail.go(place);
    moveTo(std::move(trail));
}

void HelpWindow::step(int by) {
    if (!m_trail.canStep(by))
        return;
    m_marked.clear();
    leave();
    auto trail = m_trail;
    trail.step(by);
    moveTo(std::move(trail));
}

// A page that is missing is reported before anything has changed.
void HelpWindow::moveTo(HelpTrail trail) {
    const auto page = trail.current().page;
    const auto bytes = page == m_page ? std::string() : readPage(page);
    m_trail = std::move(trail);
    showWhereWeAre();
    if (page != m_page)
        display(page, bytes);
    else if (m_browser->idle())
        arrive();
}

std::string HelpWindow::readPage(const std::string& page) const {
    const auto path = m_folder / page;
    auto bytes = base::readFile(path);
    if (!bytes)
        throw base::FileError("Cannot find " + base::textOf(path) + "\nPlease re-install your program");
    return std::move(*bytes);
}

void HelpWindow::display(const std::string& page, const std::string& bytes) {
    m_page = page;
    const bool isFirst = m_browser->view() == nullptr;
    m_browser->show(m_folder / page, coloured(bytes, palette()));
    m_browser->view()->page()->setBackgroundColor(palette().color(QPalette::Base));
    if (isFirst)
        connect(m_browser->view(), &QWebEngineView::urlChanged, this,
                m_guard([this](const QUrl& address) { followJump(address); }));
}

void HelpWindow::showWhereWeAre() {
    m_contents->follow(m_trail.current());
    m_back->setEnabled(m_trail.canStep(-1));
    m_forward->setEnabled(m_trail.canStep(1));
}

// How far down the page is, for coming back. The browser tells it late; until then it is at the top, and
// the anchor is the better place to come back to.
void HelpWindow::leave() {
    if (m_trail.empty() || !m_browser->view() || !m_browser->idle())
        return;
    const double top = m_browser->view()->page()->scrollPosition().y() / m_browser->zoom();
    m_trail.current().top = top > 0 ? top : -1;
}

void HelpWindow::arrive() {
    scrollToPlace(mostScrollTries);
    searchMarked(false);
}

// A refused link's own end can be told as the page's, before that has replaced the one before; so the script
// says in which page it has scrolled.
void HelpWindow::scrollToPlace(int tries) {
    const auto again = [self = QPointer(this), page = m_page, tries](const QVariant& scrolled) {
        if (!self || self->m_page != page || tries == 0 ||
            scrolled.toString().endsWith(QString::fromStdString("/" + page)))
            return;
        QTimer::singleShot(scrollRetryMs, self, [self, tries] { self->scrollToPlace(tries - 1); });
    };
    m_browser->view()->page()->runJavaScript(scrollScript(m_trail.current()),
                                             QWebEngineScript::ApplicationWorld, again);
}

// Pages of the book are shown, whatever else lies on this computer is not.
void HelpWindow::followLink(const QUrl& address, bool clicked) {
    if (!clicked)
        return;
    if (address.scheme() == "http" || address.scheme() == "https") {
        QDesktopServices::openUrl(address);
        return;
    }
    const auto path = address.host().isEmpty() ? pathFromQt(address.toLocalFile()) : std::filesystem::path();
    if (path.extension() != ".html" || !m_files.contains(path))
        return;
    visit({path.lexically_relative(m_folder).generic_string(), address.fragment().toStdString()});
}

// A link to another part of the page that is up: the browser has gone there by itself.
void HelpWindow::followJump(const QUrl& address) {
    const HelpPlace place{m_page, address.fragment().toStdString()};
    if (place.anchor.empty() || !m_browser->idle() || m_trail.isAt(place))
        return;
    m_trail.go(place);
    showWhereWeAre();
}

void HelpWindow::searchMarked(bool backward) {
    if (auto* view = m_browser->view())
        view->findText(m_marked, backward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags());
}

// The page takes the window's new colours on.
void HelpWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_trail.empty())
        m_guard.run([this] {
            leave();
            m_page.clear();
            moveTo(m_trail);
        });
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    m_memory.save(*this);
    event->accept();
}

}
