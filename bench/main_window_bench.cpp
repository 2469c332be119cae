// What is done with all records of a catalogue in the real main window, and how long its thread was busy at
// most without coming back to its event loop (`frozen_ms`).
#include "base/files.h"
#include "bench/busy_watch.h"
#include "bench/large_catalog.h"
#include "bench/temp_folder.h"
#include "bench/windows.h"
#include "catalog/catalog.h"
#include "ui/grid_cells.h"
#include "ui/grid_columns.h"
#include "ui/qt/grid/product_grid.h"

#include <QAbstractButton>
#include <QAbstractTableModel>
#include <QClipboard>
#include <QLineEdit>
#include <QTableView>

#include <memory>

namespace {
using ui::qt::Grid;

app::Session sessionOf(int records) {
    const auto& folder = bench::largeCatalog(records);
    base::replaceFile(folder / "Banner.Ect", "<b>Bench</b>");
    for (const auto* page : {"Catalog.Ect", "GroupI.Ect", "GroupT.Ect"})
        base::replaceFile(folder / page, "<h1>{CODE}</h1><p>{DESC}</p>");
    return bench::sessionIn(folder);
}

/// A main window for all measurements of one catalogue, made at its first use.
class Opened {
public:
    explicit Opened(int records) : window(sessionOf(records)), records(records) { window.open(); }

    ui::qt::ProductGrid& products() { return *window.control<ui::qt::ProductGrid>("ctGrid1"); }

    void press(const char* button) { window.control<QAbstractButton>(button)->click(); }

    bench::MainWindow window;
    int records;
};

// Measures `work`, which ends with what it makes painted.
template <typename Prepare, typename Work>
void measureWork(benchmark::State& state, Prepare prepare, Work work) {
    bench::BusyWatch busy;
    double frozen = 0;
    for (auto _ : state) {
        state.PauseTiming();
        prepare();
        QApplication::processEvents();
        busy.restart();
        state.ResumeTiming();
        work();
        QApplication::processEvents();
        state.PauseTiming();
        frozen = std::max(frozen, busy.longestMs());
        state.ResumeTiming();
    }
    state.counters["frozen_ms"] = frozen;
}

// To the painted grid; the browser starts meanwhile.
void openWindow(benchmark::State& state, int records) {
    const auto session = sessionOf(records);
    std::unique_ptr<bench::MainWindow> window;
    measureWork(
        state, [&] { window.reset(); },
        [&] {
            window = std::make_unique<bench::MainWindow>(session);
            bench::PaintWatch grid(*window->control<Grid>("ctGrid1")->viewport());
            window->form().show();
            grid.waitForPaint();
        });
}

void selectAll(benchmark::State& state, Opened& opened) {
    auto& grid = opened.products();
    bench::PaintWatch painted(*grid.viewport());
    measureWork(
        state,
        [&] {
            grid.setCurrentRow(0);
            grid.clearSelection();
        },
        [&] {
            bench::pressKey(grid, Qt::Key_A, Qt::ControlModifier);
            painted.waitForPaint();
        });
}

/// The least that a grid can show.
class BareRows final : public QAbstractTableModel {
public:
    explicit BareRows(int rows) : m_rows(rows) {}

    [[nodiscard]] int rowCount(const QModelIndex& = {}) const override { return m_rows; }

    [[nodiscard]] int columnCount(const QModelIndex& = {}) const override { return 8; }

    [[nodiscard]] QVariant data(const QModelIndex&, int role) const override {
        return role == Qt::DisplayRole ? QVariant("x") : QVariant();
    }

private:
    int m_rows;
};

void selectAllInBareGrid(benchmark::State& state, int records) {
    BareRows rows(records);
    QTableView grid;
    grid.setSelectionBehavior(QAbstractItemView::SelectRows);
    grid.setModel(&rows);
    grid.resize(900, 300);
    grid.show();
    bench::PaintWatch painted(*grid.viewport());
    measureWork(
        state, [&] { grid.clearSelection(); },
        [&] {
            bench::pressKey(grid, Qt::Key_A, Qt::ControlModifier);
            painted.waitForPaint();
        });
}

void copyAll(benchmark::State& state, Opened& opened) {
    opened.products().selectAll();
    measureWork(
        state, [] { QApplication::clipboard()->clear(); },
        [&] { bench::pressKey(opened.products(), Qt::Key_C, Qt::ControlModifier); });
}

void pasteAll(benchmark::State& state, Opened& opened) {
    opened.products().selectAll();
    measureWork(
        state, [&] { bench::pressKey(opened.products(), Qt::Key_C, Qt::ControlModifier); },
        [] { benchmark::DoNotOptimize(QApplication::clipboard()->text()); });
    QApplication::clipboard()->clear();
}

// The same cells put together without a window.
void joinAll(benchmark::State& state, int records) {
    const auto catalog = catalog::openCatalog(bench::largeCatalog(records));
    const auto columns = ui::productColumns(catalog.parameters);
    for (auto _ : state) {
        std::string text;
        for (int record = 1; record <= records; ++record) {
            for (const auto& column : columns)
                text.append(ui::productCell(catalog.products.at(record), {}, column.field)).append("\t");
            text.back() = '\n';
        }
        benchmark::DoNotOptimize(text);
    }
}

// To the painted row of the last record, which alone has the phrase.
void searchAll(benchmark::State& state, Opened& opened) {
    opened.press("Search");
    auto& grid = opened.products();
    opened.window.control<QAbstractButton>("cbCode")->setChecked(true);
    opened.window.control<QLineEdit>("txFind")->setText(
        QString::fromStdString(bench::codeOf(opened.records)));
    bench::PaintWatch painted(*grid.viewport());
    measureWork(
        state, [&] { grid.setCurrentRow(0); },
        [&] {
            opened.press("cbFirst");
            painted.waitForPaint();
        });
    opened.press("cbCancel");
}

constexpr int orderLines = 10'000;

// From the button to the painted order, whose quantities were pasted.
void checkOut(benchmark::State& state, Opened& opened) {
    auto& grid = opened.products();
    QApplication::clipboard()->setText(QString("2\n").repeated(orderLines));
    grid.setCurrentIndex(grid.model()->index(0, 0));
    bench::pressKey(grid, Qt::Key_V, Qt::ControlModifier);
    bench::PaintWatch painted(*opened.window.control<Grid>("ctGrid2")->viewport());
    measureWork(
        state, [&] { opened.press("Plist"); },
        [&] {
            opened.press("CheckOut");
            painted.waitForPaint();
        });
    state.counters["lines"] = opened.window.control<Grid>("ctGrid2")->model()->rowCount();
}

void measure() {
    const auto add = [](const std::string& name, auto work) {
        bench::inMilliseconds(benchmark::RegisterBenchmark(name.c_str(), work));
    };
    for (const int records : {1'000, 999'999}) {
        const auto size = "/" + std::to_string(records);
        auto opened = std::make_shared<std::unique_ptr<Opened>>();
        const auto inWindow = [opened, records](auto* work) {
            return [opened, records, work](benchmark::State& state) {
                if (!*opened)
                    *opened = std::make_unique<Opened>(records);
                work(state, **opened);
            };
        };
        add("openWindow" + size, [records](auto& state) { openWindow(state, records); });
        add("selectAll" + size, inWindow(selectAll));
        add("selectAll" + size + "/peer", [records](auto& state) { selectAllInBareGrid(state, records); });
        add("copyAll" + size, inWindow(copyAll));
        add("pasteAll" + size, inWindow(pasteAll));
        add("pasteAll" + size + "/peer", [records](auto& state) { joinAll(state, records); });
        add("searchAll" + size, inWindow(searchAll));
        if (records > orderLines)
            add("checkOut/" + std::to_string(orderLines), inWindow(checkOut));
    }
}

}

int main(int argc, char* argv[]) {
    return bench::runMeasurements(argc, argv, measure);
}
