#include "ui/qt/welcome.h"

#include "base/program_title.h"
#include "pages/browse/link_address.h"
#include "ui/qt/widgets/flow_layout.h"
#include "ui/qt/widgets/icons.h"
#include "ui/qt/widgets/qt_text.h"
#include "ui/system/background_work.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMimeData>
#include <QScopeGuard>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace ui::qt {
namespace {

constexpr QSize designedSize{860, 620};
constexpr int workPanelWidth = 65; // in average characters
constexpr int progressSteps = 1000;
constexpr int workPanelIndex = 0;
constexpr int pagesPanel = 1;

std::vector<std::filesystem::path> zipsIn(const QMimeData& dropped) {
    std::vector<std::filesystem::path> zips;
    for (const auto& url : dropped.urls())
        if (const QFileInfo file(url.toLocalFile());
            file.isFile() && file.suffix().compare("zip", Qt::CaseInsensitive) == 0)
            zips.push_back(pathFromQt(file.absoluteFilePath()));
    return zips;
}

// As wide as it may become, in the middle.
QWidget* centred(QWidget* panel) {
    auto* whole = new QWidget(panel->parentWidget());
    auto* layout = new QHBoxLayout(whole);
    layout->addStretch(1);
    layout->addWidget(panel, 100);
    layout->addStretch(1);
    return whole;
}

}

Welcome::Welcome(Guard& guard)
    : m_guard(guard),
      m_stack(new QStackedWidget(this)),
      m_status(new QLabel(this)),
      m_progress(new QProgressBar(this)),
      m_browser(new PageBrowser("WebBrowser1", "Suppliers", this)),
      m_passwordPanel(new QWidget(this)),
      m_prompt(new QLabel(this)),
      m_password(new QLineEdit(this)),
      m_confirmLabel(new QLabel("&Confirm password", this)),
      m_confirm(new QLineEdit(this)),
      m_next(new QPushButton("&Next", this)),
      m_setPassword(new QPushButton("&Set password and enter", this)),
      m_suppliers(new QPushButton("&All suppliers", this)) {
    setObjectName("Welcome");
    setAcceptDrops(true);
    setWindowTitle(toQt(base::programTitle));
    auto* pages = new QWidget(this);
    auto* pagesLayout = new QVBoxLayout(pages);
    pagesLayout->setContentsMargins(0, 0, 0, 0);
    pagesLayout->setSpacing(0);
    pagesLayout->addWidget(m_browser, 1);
    pagesLayout->addWidget(passwordPanel());
    m_stack->addWidget(workPanel());
    m_stack->addWidget(pages);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_stack);
    m_memory.placeAsDesigned(*this, designedSize);
    m_memory.restore(*this);
    connect(m_browser, &PageBrowser::loaded, this, [this] {
        m_stack->setCurrentIndex(pagesPanel);
        m_later.start();
        if (std::exchange(m_focusPassword, false))
            m_password->setFocus();
    });
}

QWidget* Welcome::workPanel() {
    auto* picture = new QLabel(this);
    picture->setPixmap(programIcon().pixmap(64));
    auto* name = new QLabel("Tavorine", this);
    auto large = font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    name->setFont(large);
    m_status->setObjectName("lbStatus");
    m_status->setTextFormat(Qt::PlainText);
    m_status->setWordWrap(true);
    m_status->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_status->setMinimumHeight(fontMetrics().lineSpacing() * 4);
    m_progress->setObjectName("pbProgress");
    m_progress->setAccessibleName("Progress");
    m_progress->setRange(0, progressSteps);
    auto policy = m_progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_progress->setSizePolicy(policy);
    m_progress->hide();

    auto* panel = new QWidget(this);
    panel->setMaximumWidth(fontMetrics().averageCharWidth() * workPanelWidth);
    auto* layout = new QVBoxLayout(panel);
    layout->addStretch(2);
    layout->addWidget(picture, 0, Qt::AlignHCenter);
    layout->addWidget(name, 0, Qt::AlignHCenter);
    layout->addWidget(m_status);
    layout->addWidget(m_progress);
    layout->addStretch(3);
    return centred(panel);
}

QWidget* Welcome::passwordPanel() {
    m_prompt->setObjectName("lbPassword");
    m_prompt->setTextFormat(Qt::PlainText);
    m_prompt->setWordWrap(true);
    m_password->setObjectName("txtPassword");
    m_password->setAccessibleName("Password");
    m_confirmLabel->setObjectName("lbConfirm");
    m_confirmLabel->setBuddy(m_confirm);
    m_confirm->setObjectName("txtConfirm");
    m_confirm->setAccessibleName("Confirm password");
    m_next->setObjectName("cbNext(0)");
    m_setPassword->setObjectName("cbNext(1)");
    m_suppliers->setObjectName("cbSuppliers");
    m_suppliers->setToolTip("Back to the list of suppliers (Escape)");
    // A shortcut of the button's own would take the place of its letter.
    connect(new QShortcut(QKeySequence("Escape"), m_suppliers), &QShortcut::activated, m_suppliers,
            &QPushButton::click);
    for (auto* entry : {m_password, m_confirm}) {
        entry->setEchoMode(QLineEdit::Password);
        entry->setMinimumWidth(fontMetrics().averageCharWidth() * 16);
        entry->setMaximumWidth(fontMetrics().averageCharWidth() * 30);
    }
    auto* confirm = new QHBoxLayout;
    confirm->addWidget(m_confirmLabel);
    confirm->addWidget(m_confirm);
    auto* row = new FlowLayout;
    row->addWidget(m_password);
    row->addLayout(confirm);
    row->addWidget(m_next);
    row->addWidget(m_setPassword);
    row->addStretch();
    row->addWidget(m_suppliers);
    auto* layout = new QVBoxLayout(m_passwordPanel);
    layout->setContentsMargins(16, 10, 16, 14);
    layout->addWidget(m_prompt);
    layout->addLayout(row);
    m_passwordPanel->hide();
    setConfirming(false);
    return m_passwordPanel;
}

void Welcome::drive(app::StartUp& startUp) {
    const auto next = m_guard([this, &startUp] { startUp.next(fromQt(m_password->text())); });
    const auto confirm =
        m_guard([this, &startUp] { startUp.confirm(fromQt(m_password->text()), fromQt(m_confirm->text())); });
    connect(m_password, &QLineEdit::returnPressed, this, next);
    connect(m_next, &QPushButton::clicked, this, next);
    connect(m_confirm, &QLineEdit::returnPressed, this, confirm);
    connect(m_setPassword, &QPushButton::clicked, this, confirm);
    connect(m_suppliers, &QPushButton::clicked, this, m_guard([&startUp] { startUp.showSupplierList(); }));
    m_browser->onLink(m_guard([this, &startUp](const QUrl& address, bool clicked) {
        if (clicked)
            followLink(startUp, address);
    }));
}

// The program's own page is up already; nothing is ever loaded by a link.
void Welcome::followLink(app::StartUp& startUp, const QUrl& address) {
    const auto target = pages::readAddress(address.toEncoded().toStdString());
    if (target.isFile)
        startUp.linkClicked(target.text);
}

void Welcome::showProgress(quint64 done, quint64 total) {
    m_progress->setVisible(true);
    m_progress->setValue(total == 0 ? 0 : static_cast<int>(done * progressSteps / total));
}

void Welcome::hideProgress() {
    m_progress->hide();
}

void Welcome::confineToProgram(const std::filesystem::path& programFolder) {
    m_browser->confineTo(pages::pageFilesOfProgram(programFolder), PageBrowser::Scripts::off);
}

void Welcome::confineToSupplier(const catalog::Folders& folders) {
    m_browser->confineTo(pages::pageFilesOf(folders));
}

void Welcome::setCaption(std::string_view caption) {
    setWindowTitle(asTitle(toQt(caption)));
}

void Welcome::setStatus(std::string_view text) {
    m_status->setText(toQt(text));
    m_status->repaint();
}

// What is done later may be about the same files.
void Welcome::waitFor(const std::function<void()>& work) {
    m_later.stop();
    system::runInBackground(work, QEventLoop::ExcludeUserInputEvents);
}

void Welcome::later(const std::function<void(const std::stop_token&)>& work) {
    m_later.set(work);
}

void Welcome::setConfirming(bool on) {
    m_next->setVisible(!on);
    for (QWidget* item : {static_cast<QWidget*>(m_confirmLabel), static_cast<QWidget*>(m_confirm),
                          static_cast<QWidget*>(m_setPassword)})
        item->setVisible(on);
}

void Welcome::showPasswordEntry(std::string_view prompt) {
    m_prompt->setText(toQt(prompt));
    m_password->clear();
    m_confirm->clear();
    setConfirming(false);
    m_passwordPanel->show();
}

void Welcome::offerSupplierList(bool offered) {
    m_suppliers->setVisible(offered);
}

void Welcome::hidePasswordEntry() {
    m_focusPassword = false;
    m_passwordPanel->hide();
}

void Welcome::focusPasswordOncePageIsUp() {
    m_focusPassword = true;
}

void Welcome::showPasswordConfirmation() {
    setConfirming(true);
    m_confirm->setFocus();
}

void Welcome::retryPassword() {
    m_password->clear();
    m_password->setFocus();
}

void Welcome::retryPasswordAndConfirmation() {
    m_confirm->clear();
    retryPassword();
}

void Welcome::openMainWindow(const app::Session& session) {
    m_openMainWindow(session);
    m_later.start();
    m_memory.save(*this);
    hide();
}

// Zips only, and not while some are being installed.
void Welcome::dragEnterEvent(QDragEnterEvent* event) {
    const bool ready = m_installZips && m_stack->currentIndex() == pagesPanel;
    if (ready && !zipsIn(*event->mimeData()).empty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

// After the drop is over for the program that the files come from.
void Welcome::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QTimer::singleShot(0, this, m_guard([this, zips = zipsIn(*event->mimeData())] { installDropped(zips); }));
}

void Welcome::installDropped(const std::vector<std::filesystem::path>& zips) {
    if (m_stack->currentIndex() != pagesPanel)
        return;
    m_later.stop();
    m_stack->setCurrentIndex(workPanelIndex);
    const auto back = qScopeGuard([this] {
        hideProgress();
        if (m_browser->idle())
            m_stack->setCurrentIndex(pagesPanel);
    });
    m_installZips(zips);
}

void Welcome::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (!std::exchange(m_painted, true))
        QTimer::singleShot(0, this, &Welcome::painted);
}

// The program decides when the window goes: work that is under way is given up first.
void Welcome::closeEvent(QCloseEvent* event) {
    m_memory.save(*this);
    event->ignore();
    emit closeAsked();
}

}
