#include "ui/qt/program.h"

#include "base/code_page.h"
#include "catalog/program_folders.h"
#include "order/basket_file.h"
#include "ui/system/archive/zip_delivery.h"

#include <QApplication>
#include <QPixmapCache>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace ui::qt {
namespace {

constexpr int retryMs = 10;

// The style keeps a picture of each heading and box in every width it ever had. As many as are on a screen at
// once take less than this.
void limitKeptPictures() {
    constexpr double kilobytes = 3072; // on a screen that is not scaled
    const auto enough = kilobytes * qApp->devicePixelRatio() * qApp->devicePixelRatio();
    QPixmapCache::setCacheLimit(std::min(QPixmapCache::cacheLimit(), static_cast<int>(enough)));
}

}

Program::Program(const Machine& machine)
    : m_programFolder(machine.programFile.path().parent_path()),
      m_keptFolder(machine.keptFolder),
      m_guard(m_messages),
      m_help(m_programFolder / catalog::helpFolder, m_guard),
      m_welcome(m_guard),
      m_startUp({machine.instanceLock, machine.programFile, machine.screen, m_archive, m_messages,
                 m_welcome.browser(), m_welcome, machine.ownFolder, machine.keptFolder}) {
    m_welcome.drive(m_startUp);
    m_welcome.onOpenMainWindow([this](const app::Session& session) { openMainWindow(session); });
    m_welcome.onZipsDropped([this](const auto& zips) { installDropped(zips); });
    connect(&m_welcome, &Welcome::painted, this, m_guard([this] { startUp(); }));
    connect(&m_welcome, &Welcome::closeAsked, this, m_guard([this] { leave(); }));
    connect(&m_archive, &system::BackgroundArchive::progress, &m_welcome, &Welcome::showProgress);
    connect(&m_stopRequests, &system::StopRequests::stopAsked, this, m_guard([this] { stop(); }));
    connect(&m_stopRequests, &system::StopRequests::sessionEnds, this, m_guard([this] {
        if (m_form1)
            m_form1->saveSettings();
    }));
}

void Program::start() {
    limitKeptPictures();
    m_welcome.show();
}

void Program::startUp() {
    m_startUp.run();
    m_welcome.hideProgress();
}

void Program::installDropped(const std::vector<std::filesystem::path>& zips) {
    std::vector<std::filesystem::path> arrived;
    for (const auto& zip : zips) {
        m_welcome.setStatus("Copying " + base::textOf(zip.filename()));
        arrived.push_back(system::deliverZip(zip, m_programFolder, catalog::installFolder));
        if (m_guard.ending())
            return;
    }
    m_startUp.installArrived(arrived);
}

void Program::openMainWindow(const app::Session& session) {
    m_form1 = std::make_unique<Form1>(session, m_guard, m_messages, m_mailer, m_keptFolder);
    connect(m_form1.get(), &Form1::closed, this,
            [this] { QTimer::singleShot(0, this, &Program::closeMainWindow); });
    connect(m_form1.get(), &Form1::helpAsked, &m_help, &Help::openContents);
    m_form1->show();
}

// The end of the closing sequence: all files are closed before the basket goes. A box that is up (the
// window was closed by the system, say) lies inside the window and is closed before it, and what waits in an
// event loop of its own for mail or a printer to be handed over comes to its end first.
void Program::closeMainWindow() {
    if (auto* box = QApplication::activeModalWidget())
        box->close();
    else if (thread()->loopLevel() <= 1)
        return endWithoutMainWindow();
    QTimer::singleShot(retryMs, this, &Program::closeMainWindow);
}

void Program::endWithoutMainWindow() {
    m_form1.reset();
    order::deleteProgramFolderBasket(m_programFolder);
    m_help.close();
    m_guard.end(0);
}

// While a catalogue is being unpacked the start-up ends itself as soon as that has stopped.
void Program::leave() {
    if (m_archive.busy())
        return m_archive.cancel();
    m_help.close();
    m_guard.end(0);
}

// As by Exit, or by closing the start-up window. There, No could be an answer that is remembered.
void Program::stop() {
    using Unanswered = MessageBoxes::Unanswered;
    if (std::exchange(m_stopping, true))
        return;
    m_messages.giveUp(m_form1 ? Unanswered::isNo : Unanswered::endsProgram);
    if (m_form1)
        m_form1->closeNow();
    else
        leave();
}

}
