// The window "Orders" over ten thousand kept orders of 30 lines: coming up, a search, choosing an order.
// `QT_QPA_PLATFORM=offscreen` will do.
#include "ui/qt/orders/orders_window.h"
#include "ui/qt/widgets/message_boxes.h"

#include <QApplication>
#include <QTableView>
#include <benchmark/benchmark.h>

#include <filesystem>
#include <optional>
#include <string>

namespace {
namespace fs = std::filesystem;

constexpr int orderCount = 10'000;
constexpr int lineCount = 30;

order::KeptOrder orderNumber(int number, int lines) {
    order::KeptOrder order;
    order.supplier = "SUPPLIER" + std::to_string(number % 5);
    order.catalogName = "Catalogue " + std::to_string(number % 5);
    order.left = std::chrono::system_clock::time_point(std::chrono::hours(440'000 + number));
    order.contents.orderNumber = "PO-" + std::to_string(number);
    order.contents.totals = {327.06, 54.51};
    for (int i = 0; i < lines; ++i)
        order.contents.rows.push_back({"2", "AB-" + std::to_string((number * 31 + i * 7) % 5000),
                                       "Hexagon nut M" + std::to_string(i) + ", zinc plated", "box", "20",
                                       "4.54", "1.82", "10.90", 4.54F});
    order.document.text = std::string(6000, 'x');
    return order;
}

class Orders {
public:
    Orders() {
        for (int i = 0; i < orderCount; ++i)
            m_kept.add(orderNumber(i, lineCount));
    }

    ~Orders() { fs::remove_all(m_folder); }

    Orders(const Orders&) = delete;
    Orders& operator=(const Orders&) = delete;

    order::KeptOrders& kept() { return m_kept; }

    [[nodiscard]] ui::qt::OrdersWindow::Surroundings surroundings() {
        return {m_kept,      m_folder / "unfinished", {}, {}, m_messages, m_guard,
                [](auto) {}, [](const auto&) {}};
    }

private:
    fs::path m_folder = fs::temp_directory_path() / "tavorine_orders_window";
    order::KeptOrders m_kept{m_folder / "orders.sqlite"};
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
    const auto id = orders.kept().add(orderNumber(orderCount, lines));
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
