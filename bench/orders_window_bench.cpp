// The window "Orders" over ten thousand kept orders of 30 lines: coming up, a search, choosing an order.
// `QT_QPA_PLATFORM=offscreen` will do.
#include "bench/kept_order.h"
#include "bench/temp_folder.h"
#include "ui/qt/orders/orders_window.h"
#include "ui/qt/widgets/message_boxes.h"

#include <QApplication>
#include <QTableView>
#include <benchmark/benchmark.h>

#include <optional>
#include <string>

namespace {

constexpr int orderCount = 10'000;
constexpr int lineCount = 30;

order::KeptOrder keptOrder(int number, int lines) {
    auto order = bench::keptOrder(number);
    for (int i = 0; i < lines; ++i)
        order.contents.rows.push_back(bench::keptLine("AB-" + std::to_string((number * 31 + i * 7) % 5000),
                                                      "Hexagon nut M" + std::to_string(i) + ", zinc plated"));
    return order;
}

class Orders {
public:
    order::KeptOrders& kept() { return m_kept; }

    [[nodiscard]] ui::qt::OrdersWindow::Surroundings surroundings() {
        return {m_kept,      m_folder.path() / "unfinished",
                {},          {},
                m_messages,  m_guard,
                [](auto) {}, [](const auto&) {}};
    }

private:
    [[nodiscard]] std::filesystem::path filled() const {
        const auto file = m_folder.path() / "orders.sqlite";
        bench::keepOrders(file, orderCount, [](int number) { return keptOrder(number, lineCount); });
        return file;
    }

    bench::TempFolder m_folder{"orders-window"};
    order::KeptOrders m_kept{filled()};
    ui::qt::MessageBoxes m_messages;
    ui::qt::Guard m_guard{m_messages};
};

void openWindow(benchmark::State& state, Orders& orders) {
    for (auto _ : state) {
        QWidget parent;
        ui::qt::OrdersWindow window(orders.surroundings(), &parent);
        window.bringUp();
        window.repaint();
        QApplication::processEvents();
    }
}

void search(benchmark::State& state, Orders& orders, const char* text) {
    ui::qt::OrdersWindow window(orders.surroundings(), nullptr);
    window.bringUp();
    auto* box = window.findChild<QLineEdit*>("txOrderSearch");
    for (auto _ : state) {
        box->setText(text);
        emit box->returnPressed();
        window.repaint();
        QApplication::processEvents();
        state.PauseTiming();
        box->clear();
        emit box->returnPressed();
        state.ResumeTiming();
    }
}

// Large orders have their say here.
void chooseOrder(benchmark::State& state, Orders& orders) {
    const auto lines = static_cast<int>(state.range(0));
    const auto id = orders.kept().add(keptOrder(orderCount, lines));
    ui::qt::OrdersWindow window(orders.surroundings(), nullptr);
    window.bringUp();
    auto* list = window.findChild<QTableView*>("OrderList");
    for (auto _ : state) {
        state.PauseTiming();
        list->selectRow(1);
        QApplication::processEvents();
        state.ResumeTiming();
        list->selectRow(0);
        window.repaint();
        QApplication::processEvents();
    }
    orders.kept().remove(id);
}

}

int main(int argc, char* argv[]) {
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine bench");
    Orders orders;
    const auto timed = [](auto* benchmark) {
        return benchmark->UseRealTime()->Unit(benchmark::kMillisecond);
    };
    timed(benchmark::RegisterBenchmark("openWindow", [&](auto& state) { openWindow(state, orders); }));
    for (const char* text : {"PO-77", "AB-123", "zinc", "hex zin", "zzzz"})
        timed(benchmark::RegisterBenchmark((std::string("search/") + text).c_str(),
                                           [&, text](auto& state) { search(state, orders, text); }));
    timed(benchmark::RegisterBenchmark("chooseOrder", [&](auto& state) { chooseOrder(state, orders); }))
        ->Arg(lineCount)
        ->Arg(10'000)
        ->Arg(100'000);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
