// How long the windows take, against the least that the browser would take by itself:
//   - from the start of a process to the first paint of the start-up window, against a process that shows a
//     bare window with an empty web view;
//   - from a row change to the loaded page, against a bare web view that loads the same file.
// Needs a display (xvfb-run will do).
#include "bench/sample_catalog.h"
#include "pages/browse/browsing.h"
#include "tests/support/catalog_builder.h"
#include "ui/ordering.h"
#include "ui/qt/browser/page_browser.h"
#include "ui/qt/browser/page_turner.h"
#include "ui/qt/group_boxes.h"
#include "ui/qt/order/order_view.h"
#include "ui/qt/program.h"
#include "ui/qt/widgets/message_boxes.h"
#include "ui/system/browser_start.h"
#include "ui/system/disk_file.h"
#include "ui/system/file_instance_lock.h"
#include "ui/system/primary_screen.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMainWindow>
#include <QProcess>
#include <QStackedWidget>
#include <QTimer>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace {
namespace fs = std::filesystem;

constexpr auto programMode = "--program";
constexpr auto bareMode = "--bare";

[[noreturn]] void tellPainted() {
    std::puts("painted");
    std::fflush(stdout);
    std::_Exit(0);
}

/// Tells when the first widget of the application has been painted.
class PaintWatch final : public QObject {
protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, [] { tellPainted(); });
        return QObject::eventFilter(watched, event);
    }
};

class BenchProgramFile final : public platform::ProgramFile {
public:
    explicit BenchProgramFile(fs::path path) : m_path(std::move(path)) {}

    [[nodiscard]] fs::path path() const override { return m_path; }

    [[nodiscard]] bool isReadOnly() const override { return false; }

private:
    fs::path m_path;
};

void prepareApplication() {
    ui::system::prepareBrowser();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

int showBareWindow(int argc, char* argv[]) {
    prepareApplication();
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QWebEngineView(&window));
    PaintWatch watch;
    qApp->installEventFilter(&watch);
    window.resize(860, 620);
    window.show();
    return QApplication::exec();
}

int showProgram(int argc, char* argv[]) {
    prepareApplication();
    const QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine bench");
    BenchProgramFile file(fs::temp_directory_path() / "Tavorine");
    ui::system::PrimaryScreen screen;
    ui::system::FileInstanceLock lock;
    ui::qt::Program program({file, screen, lock, fs::temp_directory_path()});
    PaintWatch watch;
    qApp->installEventFilter(&watch);
    program.start();
    return QApplication::exec();
}

void firstPaint(benchmark::State& state, const char* mode) {
    for (auto _ : state) {
        QElapsedTimer timer;
        QProcess process;
        timer.start();
        process.start(QApplication::applicationFilePath(), {mode});
        if (!process.waitForReadyRead(20000)) {
            state.SkipWithError("no first paint");
            return;
        }
        state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) * 1e-9);
        process.waitForFinished();
    }
}

constexpr int firstRow = 3;
constexpr int rowsUsed = 30;

void rowChangeToLoadedPage(benchmark::State& state) {
    const bench::SampleCatalog sample;
    const auto catalog = catalog::openCatalog(sample.session.folders.DataFolder);
    ui::qt::PageBrowser banner("wbBanner", "Banner", nullptr);
    ui::qt::PageBrowser page("WbPage", "Page", nullptr);
    page.confineTo(pages::pageFilesOf(sample.session.folders));
    page.resize(900, 500);
    static_cast<QWidget&>(page).show();
    pages::Browsing browsing(sample.session, catalog, banner, page);
    ui::qt::PageTurner turner(
        page, [&](int row) { browsing.showRecord(row + 1); }, nullptr);
    turner.start();
    QEventLoop loop;
    QObject::connect(&page, &ui::qt::PageBrowser::loaded, &loop, &QEventLoop::quit);
    int turns = 0;
    const auto turn = [&] {
        turner.turnTo(firstRow + turns++ % rowsUsed);
        loop.exec();
    };
    turn(); // the browser starts
    for (auto _ : state)
        turn();
}

void bareLoadOfTheSameFile(benchmark::State& state) {
    const bench::SampleCatalog sample;
    const auto catalog = catalog::openCatalog(sample.session.folders.DataFolder);
    const auto& folders = sample.session.folders;
    pages::CatalogPages pages(catalog, folders, sample.session.layout, false);
    const pages::ScratchPage scratch(folders.UserFolder);
    QWebEngineView view;
    view.resize(900, 500);
    view.show();
    QEventLoop loop;
    QObject::connect(&view, &QWebEngineView::loadFinished, &loop, &QEventLoop::quit);
    const auto address = QUrl::fromLocalFile(QString::fromStdU16String(scratch.path().u16string()));
    int turns = 0;
    const auto turn = [&] {
        view.load(address);
        loop.exec();
    };
    const auto write = [&] {
        scratch.write(pages.page(firstRow + turns++ % rowsUsed + 1, pages::TaxStatus::taxed));
    };
    write();
    turn();
    for (auto _ : state) {
        state.PauseTiming();
        write();
        state.ResumeTiming();
        turn();
    }
}

constexpr int manyLines = 10000;

// From the command to the painted order view, for an order of so many lines.
void openOrderView(benchmark::State& state) {
    const bench::SampleCatalog sample;
    support::CatalogBuilder many;
    many.groups = {{"All", 1, 0, 0}};
    for (int i = 0; i < manyLines; ++i)
        many.products.push_back(
            {.text = "P" + std::to_string(i) + "\nArticle\nBox", .price = 1.25F, .taxRate = 20});
    many.writeTo(sample.session.folders.DataFolder);
    const auto catalog = catalog::openCatalog(sample.session.folders.DataFolder);
    ui::qt::MessageBoxes messages;
    ui::system::DiskFile file;
    order::BasketFile basketFile(sample.session.folders.UserFolder, file, messages);
    ui::ToolbarState toolbar;
    ui::Ordering ordering(catalog, basketFile, messages, toolbar);
    for (int i = 0; i < static_cast<int>(state.range(0)); ++i)
        ordering.editProduct(i + 1, "2");
    QStackedWidget views;
    auto* other = new QWidget(&views);
    auto* view = new ui::qt::OrderView(&views);
    views.addWidget(other);
    views.addWidget(view);
    view->open(new ui::qt::OrderModel(catalog, ordering, view));
    views.resize(1000, 600);
    views.show();
    QApplication::processEvents();
    for (auto _ : state) {
        ordering.checkOut();
        view->model().refilled();
        views.setCurrentWidget(view);
        view->repaint();
        QApplication::processEvents();
        state.PauseTiming();
        views.setCurrentWidget(other);
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void openGroupList(benchmark::State& state) {
    ui::qt::GroupBox box(nullptr);
    std::vector<pages::GroupEntry> entries(static_cast<std::size_t>(state.range(0)),
                                           {"Hexagon nut M6, zinc plated", 1});
    box.show();
    for (auto _ : state) {
        box.showEntries(entries);
        box.showPopup();
        QApplication::processEvents();
        state.PauseTiming();
        box.hidePopup();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

}

int main(int argc, char* argv[]) {
    if (argc > 1 && std::strcmp(argv[1], programMode) == 0)
        return showProgram(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], bareMode) == 0)
        return showBareWindow(argc, argv);
    benchmark::Initialize(&argc, argv);
    prepareApplication();
    const QApplication application(argc, argv);
    for (const auto& [name, mode] :
         {std::pair{"firstPaint/program", programMode}, std::pair{"firstPaint/bareWindow", bareMode}})
        benchmark::RegisterBenchmark(name, firstPaint, mode)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(5);
    benchmark::RegisterBenchmark("rowChangeToLoadedPage", rowChangeToLoadedPage)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("bareLoadOfTheSameFile", bareLoadOfTheSameFile)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("openOrderView", openOrderView)
        ->Arg(0)
        ->Arg(manyLines)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("openGroupList", openGroupList)
        ->Arg(10)
        ->Arg(manyLines)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
