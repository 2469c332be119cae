#include "bench/windows.h"

#include "bench/temp_folder.h"
#include "ui/qt/catalog_view.h"
#include "ui/system/browser_start.h"

#include <QEventLoop>
#include <QKeyEvent>

namespace bench {

MainWindow::MainWindow(const app::Session& session) : m_form(session, m_guard, m_messages, m_mailer, {}) {}

ui::qt::PageBrowser& MainWindow::page() {
    return m_form.findChild<ui::qt::CatalogView*>()->page();
}

void MainWindow::open() {
    QEventLoop loop;
    QObject::connect(&page(), &ui::qt::PageBrowser::loaded, &loop, &QEventLoop::quit);
    m_form.show();
    loop.exec();
}

void PaintWatch::waitForPaint() {
    for (m_painted = false; !m_painted;)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QApplication::processEvents();
}

bool PaintWatch::eventFilter(QObject* watched, QEvent* event) {
    m_painted |= event->type() == QEvent::Paint;
    return QObject::eventFilter(watched, event);
}

app::Session sessionIn(const std::filesystem::path& folder) {
    app::Session session;
    session.folders = {folder, folder, folder};
    session.layout = {"50", "2", "3"};
    return session;
}

void repeatKey(QWidget& widget, int key) {
    QKeyEvent event(QEvent::KeyPress, key, {}, {}, true);
    QApplication::sendEvent(&widget, &event);
}

void pressKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers);
        QApplication::sendEvent(&widget, &event);
    }
}

void prepareApplication(const std::filesystem::path& settings) {
    qputenv("XDG_CONFIG_HOME", settings.c_str());
    qputenv("XDG_DATA_HOME", settings.c_str());
    if (ui::system::browserRefusesThisUser())
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    ui::system::prepareBrowser();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

int runMeasurements(int argc, char* argv[], void (*measure)()) {
    benchmark::Initialize(&argc, argv);
    const TempFolder settings("settings");
    prepareApplication(settings.path());
    const QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine bench");
    QApplication::setQuitOnLastWindowClosed(false);
    measure();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::ClearRegisteredBenchmarks(); // the windows that they hold go before the application
    return 0;
}

void inMilliseconds(benchmark::internal::Benchmark* measurement) {
    measurement->UseRealTime()->Unit(benchmark::kMillisecond);
}

}
