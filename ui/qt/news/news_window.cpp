#include "ui/qt/news/news_window.h"

#include "ui/zoom.h"

#include <QAction>
#include <QCloseEvent>

#include <utility>

namespace ui::qt {
namespace {

constexpr QSize designedSize{760, 620};
constexpr QSize smallestSize{320, 240};

}

NewsWindow::NewsWindow(Guard& guard, std::function<void(const QUrl& address)> onLink, QWidget* parent)
    : QMainWindow(parent, Qt::Window),
      m_guard(guard),
      m_browser(new PageBrowser("NewsPage", "What is new", this)) {
    setObjectName("News");
    setWindowTitle("What is new");
    m_browser->confineTo(pages::PageFiles({}), PageBrowser::Scripts::off);
    m_browser->onLink(m_guard([follow = std::move(onLink)](const QUrl& address, bool clicked) {
        if (clicked)
            follow(address);
    }));
    m_browser->setZoom(m_memory.pageZoom());
    setCentralWidget(m_browser);
    setMinimumSize(smallestSize);
    m_memory.placeAsDesigned(*this, designedSize);
    m_memory.restore(*this);
    addCommand("&Larger", QKeySequence("Ctrl++"),
               [this] { m_browser->setZoom(zoomedBy(m_browser->zoom(), 1)); });
    addCommand("&Smaller", QKeySequence("Ctrl+-"),
               [this] { m_browser->setZoom(zoomedBy(m_browser->zoom(), -1)); });
    addCommand("&Normal size", QKeySequence("Ctrl+0"), [this] { m_browser->setZoom(1); });
    addCommand("&Close", QKeySequence("Esc"), [this] { close(); });
}

// Offered in the page's own menu too.
void NewsWindow::addCommand(const QString& text, const QKeySequence& keys, std::function<void()> act) {
    auto* action = new QAction(text, this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, m_guard(std::move(act)));
    addAction(action);
    m_browser->addAction(action);
}

void NewsWindow::bringUp() {
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}

void NewsWindow::showPage(const std::filesystem::path& file, std::string_view page) {
    m_browser->show(file, page);
}

void NewsWindow::closeEvent(QCloseEvent* event) {
    m_memory.save(*this);
    event->accept();
    emit closed();
}

}
