// From the click on a group list that has not been opened yet to its painted entries. The peer is a bare list
// in a window of its own, whose texts are ready.
#include "bench/busy_watch.h"
#include "bench/temp_folder.h"
#include "bench/windows.h"
#include "tests/support/catalog_builder.h"
#include "ui/qt/group_boxes.h"

#include <QListView>
#include <QMouseEvent>
#include <QStringListModel>

namespace {

// Two groups with so many products each.
catalog::Catalog catalogOf(int products, const std::filesystem::path& folder) {
    support::CatalogBuilder builder;
    builder.groups = {{"Table of Contents", 1, 2, 0}, {"Nuts", 2, 0, 1}, {"Bolts", 3 + products, 0, 1}};
    builder.products = {{.text = "T\nContents\n", .flag = 'N'}};
    for (const std::int16_t group : {2, 3}) {
        builder.products.push_back({.text = "\nGroup\n", .group = group, .flag = 'N'});
        for (int i = 0; i < products; ++i)
            builder.products.push_back({.text = "P" + std::to_string(i) + "\nHexagon nut M" +
                                                std::to_string(i) + ", zinc plated\nBox",
                                        .group = group});
    }
    builder.writeTo(folder);
    return catalog::openCatalog(folder);
}

void click(QWidget& box) {
    const QPointF place = box.rect().center();
    QMouseEvent press(QEvent::MouseButtonPress, place, box.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                      {});
    QApplication::sendEvent(&box, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, place, box.mapToGlobal(place), Qt::LeftButton, {}, {});
    QApplication::sendEvent(&box, &release);
}

// Every other time the products of the other group.
void openList(benchmark::State& state, int entries) {
    const bench::TempFolder folder("group-list");
    const auto catalog = catalogOf(entries, folder.path());
    pages::GroupLists lists(catalog);
    ui::qt::GroupBoxes boxes(nullptr);
    boxes.open(lists);
    boxes.resize(1000, boxes.sizeHint().height());
    boxes.show();
    const auto box = [&](int number) {
        return boxes.findChild<ui::qt::GroupBox*>(QString("GDB(%1)").arg(number));
    };
    bench::PaintWatch list(*box(1)->view()->viewport());
    bench::BusyWatch busy;
    int group = 0;
    double frozen = 0;
    for (auto _ : state) {
        state.PauseTiming();
        emit box(0)->activated(group++ % 2);
        QApplication::processEvents();
        busy.restart();
        state.ResumeTiming();
        click(*box(1));
        list.waitForPaint();
        state.PauseTiming();
        frozen = std::max(frozen, busy.longestMs());
        box(1)->hidePopup();
        QApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["frozen_ms"] = frozen;
}

void openBareList(benchmark::State& state, int entries) {
    QStringList texts;
    for (int i = 0; i < entries; ++i)
        texts += "Hexagon nut M" + QString::number(i) + ", zinc plated";
    QListView list;
    list.setWindowFlag(Qt::Popup);
    list.setUniformItemSizes(true);
    list.resize(250, 400);
    bench::PaintWatch watch(*list.viewport());
    for (auto _ : state) {
        QStringListModel model(texts);
        list.setModel(&model);
        list.show();
        watch.waitForPaint();
        state.PauseTiming();
        list.hide();
        list.setModel(nullptr);
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void measure() {
    for (const int entries : {10, 1'000, 20'000}) {
        const auto name = "groupList/" + std::to_string(entries);
        for (const auto& [ending, open] : {std::pair{"", &openList}, std::pair{"/peer", &openBareList}})
            bench::inMilliseconds(benchmark::RegisterBenchmark((name + ending).c_str(), open, entries));
    }
}

}

int main(int argc, char* argv[]) {
    return bench::runMeasurements(argc, argv, measure);
}
