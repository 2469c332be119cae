// Printing an order to a PDF: what the program does by itself (the rows' texts, the order page, the scratch
// page, the PDF file), and what the browser does (loading the page, making the PDF). Needs a display or
// QT_QPA_PLATFORM=offscreen.
#include "bench/busy_watch.h"
#include "bench/sample_catalog.h"
#include "catalog/catalog.h"
#include "order/print_command.h"
#include "pages/browse/page_files.h"
#include "tour/customer/process_memory.h"
#include "ui/document_rows.h"
#include "ui/qt/browser/page_scripts.h"
#include "ui/qt/print/order_paper.h"
#include "ui/qt/print/pdf_output.h"
#include "ui/qt/widgets/message_boxes.h"
#include "ui/system/browser_start.h"

#include <QApplication>
#include <QEventLoop>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScriptCollection>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

struct KeptPage final : order::PrintTarget {
    void print(const std::filesystem::path& address, std::string_view text) override {
        file = address;
        bytes = text;
    }

    std::filesystem::path file;
    std::string bytes;
};

/// The most memory that the program and the browser's processes have taken at a time, looked at from a thread
/// of its own so that the window's is not held up.
class MostMemory {
public:
    [[nodiscard]] double mb() {
        m_watching.request_stop();
        m_watching.join();
        return static_cast<double>(m_most) / 1024;
    }

private:
    static constexpr std::chrono::milliseconds pause{200};

    std::size_t m_most = 0;
    std::jthread m_watching{[this](const std::stop_token& stop) {
        for (; !stop.stop_requested(); std::this_thread::sleep_for(pause))
            m_most = std::max(m_most, tour::total(tour::memoryByKind()).withoutFiles);
    }};
};

/// An order of so many lines of the sample's articles.
class Printing {
public:
    explicit Printing(std::int64_t lines)
        : m_catalog(catalog::openCatalog(m_sample.session.folders.DataFolder)),
          m_writer(m_catalog.parameters, m_sample.session.folders.DataFolder, m_sample.session.layout),
          m_scratchPage(m_sample.session.folders.UserFolder) {
        for (std::int64_t i = 0; i < lines; ++i)
            m_rows.emplace_back(order::BasketLine{4, 8.30F, 49.80F, static_cast<std::int32_t>(10 + i % 200)});
        m_order.details.business = "Marlowe & Sons Joinery";
        m_order.details.phone = "01632 960 118";
        m_order.deliveryDate = "00/00/00";
        m_order.totals = {49800, 8300};
    }

    void writePage() {
        m_order.rows = ui::documentRows(m_catalog, m_rows);
        order::PrintCommand(m_writer, m_scratchPage, m_messages, m_page).run(m_order);
    }

    void makePdf() {
        ui::qt::OrderPaper paper(pages::pageFilesOf(m_sample.session.folders), nullptr);
        QEventLoop loop;
        QObject::connect(&paper, &ui::qt::OrderPaper::loaded, &paper,
                         [&] { paper.makePdf(m_printer.pageLayout(), {}); });
        QObject::connect(&paper, &ui::qt::OrderPaper::failed, &loop, &QEventLoop::quit);
        QObject::connect(
            &paper, &ui::qt::OrderPaper::made, &paper,
            [&](const QByteArray& pdf) {
                m_pdf = pdf;
                loop.quit();
            },
            Qt::QueuedConnection);
        paper.load(m_page.file, m_page.bytes);
        loop.exec();
    }

    // The same page in one piece, by a browser that nothing confines.
    void makeWhole() {
        QWebEngineProfile profile;
        profile.scripts()->insert(ui::qt::pageBreakScript());
        QWebEnginePage page(&profile);
        QEventLoop loop;
        QObject::connect(&page, &QWebEnginePage::loadFinished, &loop, [&] {
            page.printToPdf(
                [&](const QByteArray& pdf) {
                    m_pdf = pdf;
                    loop.quit();
                },
                m_printer.pageLayout());
        });
        page.load(QUrl::fromLocalFile(QString::fromStdString(m_page.file.string())));
        loop.exec();
    }

    [[nodiscard]] bool writePdf() {
        const auto file = m_sample.session.folders.UserFolder / "order.pdf";
        m_printer.setOutputFileName(QString::fromStdString(file.string()));
        return !m_pdf.isEmpty() && !ui::qt::output(m_pdf, m_printer);
    }

private:
    bench::SampleCatalog m_sample;
    catalog::Catalog m_catalog;
    order::OrderWriter m_writer;
    pages::ScratchPage m_scratchPage;
    ui::qt::MessageBoxes m_messages;
    std::vector<ui::OrderRow> m_rows;
    order::OrderContents m_order;
    KeptPage m_page;
    QPrinter m_printer;
    QByteArray m_pdf;
};

void program(benchmark::State& state) {
    Printing printing(state.range(0));
    printing.writePage();
    printing.makePdf();
    for (auto _ : state) {
        printing.writePage();
        if (!printing.writePdf())
            state.SkipWithError("no PDF");
    }
}

void pdf(benchmark::State& state, std::int64_t lines, void (Printing::*make)()) {
    Printing printing(lines);
    printing.writePage();
    MostMemory memory;
    bench::BusyWatch busy;
    for (auto _ : state)
        (printing.*make)();
    state.counters["frozen_ms"] = busy.longestMs();
    state.counters["memory_mb"] = memory.mb();
    if (!printing.writePdf())
        state.SkipWithError("no PDF");
}

BENCHMARK(program)->Arg(1000)->UseRealTime()->Unit(benchmark::kMillisecond);
#define PDF_BENCHMARK(name, lines, make)                                                                     \
    BENCHMARK_CAPTURE(pdf, make, lines, &Printing::make)                                                     \
        ->Name(name)                                                                                         \
        ->UseRealTime()                                                                                      \
        ->Unit(benchmark::kMillisecond)
PDF_BENCHMARK("pdf/1000", 1000, makePdf);
PDF_BENCHMARK("pdf/1000/browser", 1000, makeWhole);
PDF_BENCHMARK("pdf/10000", 10'000, makePdf);
PDF_BENCHMARK("pdf/10000/browser", 10'000, makeWhole);

}

int main(int argc, char* argv[]) {
    benchmark::Initialize(&argc, argv);
    ui::system::prepareBrowser();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
