// How long the program takes from the start of its process to the first paint of its window, and to the last
// big paint, with which the list of suppliers is there. The peer makes a window of the same size with a bare
// web view that loads the same page.
#include "base/files.h"
#include "bench/temp_folder.h"
#include "bench/windows.h"
#include "ui/qt/program.h"
#include "ui/qt/widgets/icons.h"
#include "ui/system/file_instance_lock.h"
#include "ui/system/freed_memory.h"
#include "ui/system/primary_screen.h"

#include <QMainWindow>
#include <QProcess>
#include <QTimer>
#include <QWebEngineView>

#include <chrono>
#include <cstdio>
#include <cstring>

namespace {
namespace fs = std::filesystem;

constexpr auto programMode = "--program";
constexpr auto bareMode = "--bare";
constexpr std::chrono::milliseconds quiet{900}; // after which no paint is expected any more

// Of a clock that all processes share.
double nowMs() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

QWebEngineView* view() {
    for (auto* widget : QApplication::allWidgets())
        if (auto* found = qobject_cast<QWebEngineView*>(widget))
            return found;
    return nullptr;
}

/// Notes when something at least half as large as its window has been painted, tells the first and the last
/// such moment and ends the process, once the page is up and all is quiet.
class PaintWatch final : public QObject {
public:
    PaintWatch() {
        m_quiet.setSingleShot(true);
        m_quiet.setInterval(quiet);
        connect(&m_quiet, &QTimer::timeout, this, &PaintWatch::tell);
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            isBig(*static_cast<QWidget*>(watched)))
            QTimer::singleShot(0, this, &PaintWatch::note);
        return QObject::eventFilter(watched, event);
    }

private:
    static bool isBig(const QWidget& widget) {
        const auto whole = widget.window()->size();
        return 2 * widget.width() * widget.height() >= whole.width() * whole.height();
    }

    void note() {
        m_last = nowMs();
        if (m_first == 0)
            m_first = m_last;
        m_quiet.start();
    }

    void tell() {
        const auto* page = view();
        if (!page || page->url().isEmpty() || page->page()->isLoading())
            return m_quiet.start();
        std::printf("%.3f %.3f\n", m_first, m_last);
        std::fflush(stdout);
        std::_Exit(0);
    }

    QTimer m_quiet;
    double m_first = 0;
    double m_last = 0;
};

// A folder with the program's own page and two suppliers, whose zips the first start installs.
class ProgramFolder {
public:
    ProgramFolder() {
        for (const fs::path file :
             {TAVORINE_START_PAGE, TAVORINE_SAMPLES "/ORRENDALE.zip", TAVORINE_SAMPLES "/SONDERHAVEN.zip"})
            fs::copy_file(file, path() / file.filename());
        base::replaceFile(path() / "Start.ini", "[Email]\r\nStatus=Yes\r\n");
    }

    [[nodiscard]] const fs::path& path() const { return m_folder.path(); }

private:
    bench::TempFolder m_folder{"start"};
};

int showProgram(QApplication& application, const fs::path& folder) {
    bench::ProgramFile file(folder / "Tavorine");
    ui::system::PrimaryScreen screen;
    ui::system::FileInstanceLock lock;
    ui::qt::Program program({file, screen, lock, folder / "own"});
    const PaintWatch watch;
    program.start();
    return application.exec();
}

int showBareWindow(QApplication& application, const fs::path& folder) {
    QMainWindow window;
    auto* page = new QWebEngineView(&window);
    window.setCentralWidget(page);
    const PaintWatch watch;
    window.resize(860, 620);
    window.show();
    page->load(QUrl::fromLocalFile(QString::fromStdU16String((folder / "Tmp.htm").u16string())));
    return application.exec();
}

int showWindow(int argc, char* argv[]) {
    const bool isProgram = std::strcmp(argv[1], programMode) == 0;
    const fs::path folder = argv[2];
    if (isProgram)
        ui::system::keepToFewHeaps();
    bench::prepareApplication(folder / "settings");
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine bench");
    if (isProgram)
        QApplication::setWindowIcon(ui::qt::programIcon());
    return isProgram ? showProgram(application, folder) : showBareWindow(application, folder);
}

struct Paints {
    double first = 0;
    double last = 0;
};

// From the start of the process, in milliseconds; zeros when nothing was told.
Paints paintsOf(const char* mode, const fs::path& folder) {
    const double start = nowMs();
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QApplication::applicationFilePath(), {mode, QString::fromStdString(folder.string())});
    process.waitForFinished();
    double first = start;
    double last = start;
    std::sscanf(process.readAllStandardOutput().constData(), "%lf %lf", &first, &last);
    return {first - start, last - start};
}

void paint(benchmark::State& state, const char* mode, double Paints::*which, const fs::path& folder) {
    for (auto _ : state) {
        const double taken = paintsOf(mode, folder).*which;
        if (taken <= 0)
            return state.SkipWithError("nothing painted");
        state.SetIterationTime(taken * 1e-3);
    }
}

void measure() {
    static const ProgramFolder folder;
    (void)paintsOf(programMode, folder.path()); // installs
    for (const auto& [name, mode, which] : {std::tuple{"start/firstPaint", programMode, &Paints::first},
                                            std::tuple{"start/firstPaint/peer", bareMode, &Paints::first},
                                            std::tuple{"start/suppliers", programMode, &Paints::last},
                                            std::tuple{"start/suppliers/peer", bareMode, &Paints::last}})
        benchmark::RegisterBenchmark(name,
                                     [mode, which](auto& state) { paint(state, mode, which, folder.path()); })
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(5);
}

}

int main(int argc, char* argv[]) {
    if (argc > 2 && (std::strcmp(argv[1], programMode) == 0 || std::strcmp(argv[1], bareMode) == 0))
        return showWindow(argc, argv);
    return bench::runMeasurements(argc, argv, measure);
}
