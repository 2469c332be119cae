// How long it takes from a row change to the loaded page, and how often a page is there while the Down key is
// held. The peer is a bare web view, as large, that loads the same pages from files, one after the other.
#include "base/files.h"
#include "bench/busy_watch.h"
#include "bench/sample_catalog.h"
#include "bench/temp_folder.h"
#include "bench/windows.h"
#include "pages/browse/browsing.h"
#include "ui/qt/browser/page_turner.h"
#include "ui/qt/grid/product_grid.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <QWebEngineView>

#include <optional>

namespace {
namespace fs = std::filesystem;

constexpr int firstRow = 3;
constexpr int rowsUsed = 200;
constexpr int holdMs = 3000;

/// The main window with the sample, and a bare view with files of the same pages.
class Browsers {
public:
    Browsers() : m_window(m_sample.session) {
        m_window.open();
        m_bare.resize(m_window.page().size());
        writePages();
    }

    ui::qt::ProductGrid& grid() { return *m_window.control<ui::qt::ProductGrid>("ctGrid1"); }

    ui::qt::PageBrowser& page() { return m_window.page(); }

    QWebEngineView& bare() { return m_bare; }

    // One of the windows is up at a time.
    void bringUp(bool bare) {
        m_window.form().setVisible(!bare);
        m_bare.setVisible(bare);
        QApplication::processEvents();
    }

    // No two neighbours are the same.
    int nextTurn() { return m_turn = (m_turn + 1) % rowsUsed; }

    void loadBare(int turn) {
        const auto file = m_pages.path() / (std::to_string(turn) + ".htm");
        m_bare.load(QUrl::fromLocalFile(QString::fromStdString(file.string())));
    }

private:
    void writePages() {
        const auto& folders = m_sample.session.folders;
        const auto catalog = catalog::openCatalog(folders.DataFolder);
        pages::CatalogPages pages(catalog, folders, m_sample.session.layout, false);
        for (int i = 0; i < rowsUsed; ++i)
            base::replaceFile(m_pages.path() / (std::to_string(i) + ".htm"),
                              pages.page(firstRow + i + 1, pages::TaxStatus::taxed));
    }

    bench::SampleCatalog m_sample;
    bench::TempFolder m_pages{"browsing"};
    bench::MainWindow m_window;
    QWebEngineView m_bare;
    int m_turn = 0;
};

// The place for pages alone, in no window.
void rowChangeAlone(benchmark::State& state) {
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

void rowChangeInWindow(benchmark::State& state, Browsers& browsers) {
    browsers.bringUp(false);
    QEventLoop loop;
    QObject::connect(&browsers.page(), &ui::qt::PageBrowser::loaded, &loop, &QEventLoop::quit);
    for (auto _ : state) {
        browsers.grid().setCurrentRow(firstRow + browsers.nextTurn());
        loop.exec();
    }
}

void bareLoad(benchmark::State& state, Browsers& browsers) {
    browsers.bringUp(true);
    QEventLoop loop;
    QObject::connect(&browsers.bare(), &QWebEngineView::loadFinished, &loop, &QEventLoop::quit);
    for (auto _ : state) {
        browsers.loadBare(browsers.nextTurn());
        loop.exec();
    }
}

// Repeats `act` for a while and tells how long the signal takes to come once.
template <typename Sender, typename Signal>
double msPerSignal(const Sender& sender, Signal signal, int perSecond, const std::function<void()>& act) {
    QEventLoop loop;
    int count = 0;
    QObject::connect(&sender, signal, &loop, [&] { ++count; });
    QTimer keys;
    keys.setTimerType(Qt::PreciseTimer);
    QObject::connect(&keys, &QTimer::timeout, act);
    keys.start(1000 / perSecond);
    QElapsedTimer clock;
    clock.start();
    QTimer::singleShot(holdMs, &loop, &QEventLoop::quit);
    loop.exec();
    return count == 0 ? holdMs : static_cast<double>(clock.elapsed()) / count;
}

void holdKey(benchmark::State& state, Browsers& browsers, int perSecond) {
    browsers.bringUp(false);
    auto& grid = browsers.grid();
    grid.setCurrentRow(firstRow);
    bench::BusyWatch busy;
    for (auto _ : state)
        state.SetIterationTime(1e-3 *
                               msPerSignal(browsers.page(), &ui::qt::PageBrowser::loaded, perSecond, [&] {
                                   if (grid.currentRow() >= firstRow + rowsUsed)
                                       grid.setCurrentRow(firstRow);
                                   bench::repeatKey(grid, Qt::Key_Down);
                               }));
    state.counters["frozen_ms"] = busy.longestMs();
}

// Of the pages that are asked for while one loads the last is loaded next.
void holdKeyOverBareView(benchmark::State& state, Browsers& browsers, int perSecond) {
    browsers.bringUp(true);
    auto& view = browsers.bare();
    int asked = 0;
    int loaded = 0;
    bool loading = false;
    const auto goOn = [&] {
        loading = loaded != asked;
        loaded = asked;
        if (loading)
            browsers.loadBare(asked % rowsUsed);
    };
    const auto connection = QObject::connect(&view, &QWebEngineView::loadFinished, goOn);
    for (auto _ : state)
        state.SetIterationTime(1e-3 * msPerSignal(view, &QWebEngineView::loadFinished, perSecond, [&] {
                                   ++asked;
                                   if (!loading)
                                       goOn();
                               }));
    QObject::disconnect(connection);
}

void measure() {
    auto browsers = std::make_shared<std::optional<Browsers>>();
    const auto add = [&](const std::string& name, auto work) {
        return benchmark::RegisterBenchmark(name.c_str(), [browsers, work](benchmark::State& state) {
            if (!*browsers)
                browsers->emplace();
            work(state, **browsers);
        });
    };
    bench::inMilliseconds(benchmark::RegisterBenchmark("rowChange", rowChangeAlone));
    bench::inMilliseconds(add("rowChange/peer", bareLoad));
    bench::inMilliseconds(add("rowChangeInWindow", rowChangeInWindow));
    for (const int perSecond : {30, 200})
        for (const auto& [ending, hold] : {std::pair{"", &holdKey}, std::pair{"/peer", &holdKeyOverBareView}})
            add("heldKey/" + std::to_string(perSecond) + ending,
                [hold, perSecond](auto& state, auto& with) { hold(state, with, perSecond); })
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond)
                ->Iterations(1);
}

}

int main(int argc, char* argv[]) {
    return bench::runMeasurements(argc, argv, measure);
}
