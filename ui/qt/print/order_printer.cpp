#include "ui/qt/print/order_printer.h"

#include "ui/qt/print/pdf_output.h"
#include "ui/qt/widgets/busy_notice.h"
#include "ui/qt/widgets/qt_text.h"

#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QLocale>

#include <utility>

namespace ui::qt {
namespace {

constexpr auto preparing = "Preparing the order for printing...";
constexpr int longPreparationMs = 400;
constexpr double marginMm = 12;

QPageSize usualPaper() {
    return QPageSize(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                                        : QPageSize::A4);
}

// Tells files by what the folder says of them. The toolkit's own icons look into every file, in the window's
// thread, and some files have no end or are never ready (below /proc, say).
class KindIcons final : public QObject, public QFileIconProvider {
public:
    using QObject::QObject;

    [[nodiscard]] QIcon icon(const QFileInfo& file) const override {
        return QFileIconProvider::icon(file.isDir() ? Folder : File);
    }

    [[nodiscard]] QString type(const QFileInfo& file) const override {
        return file.isDir() ? "Folder" : "File";
    }
};

// The list of names under the file's entry, which the toolkit's own print dialog completes.
void completeNamesWithoutReading(QPrintDialog& dialog) {
    auto* icons = new KindIcons(&dialog);
    for (auto* model : dialog.findChildren<QFileSystemModel*>())
        model->setIconProvider(icons);
}

// Deaf to what a page has said before it was given up.
template <typename Slot>
auto unlessGivenUp(const OrderPaper& paper, Slot slot) {
    return [paper = QPointer(&paper), slot = std::move(slot)](const auto&... what) {
        if (paper)
            slot(what...);
    };
}

}

OrderPrinter::OrderPrinter(pages::PageFiles pageFiles, platform::MessageBox& messages, Guard& guard,
                           QWidget& window)
    : m_pageFiles(std::move(pageFiles)),
      m_messages(messages),
      m_guard(guard),
      m_window(window),
      m_printer(QPrinter::HighResolution) {
    m_printer.setPageSize(usualPaper());
    m_printer.setPageMargins({marginMm, marginMm, marginMm, marginMm}, QPageLayout::Millimeter);
    m_timer2.setSingleShot(true);
    connect(&m_timer2, &QTimer::timeout, this, m_guard([this] { (this->*m_whenLoaded)(); }));
}

OrderPrinter::~OrderPrinter() = default;

void OrderPrinter::print(const std::filesystem::path& file, std::string_view bytes, const QString& title) {
    start(file, bytes, title, &OrderPrinter::ask);
}

void OrderPrinter::preview(const std::filesystem::path& file, std::string_view bytes, const QString& title) {
    start(file, bytes, title, &OrderPrinter::makePreview);
}

void OrderPrinter::start(const std::filesystem::path& file, std::string_view bytes, const QString& title,
                         Step whenLoaded) {
    if (m_busy)
        return showBusy();
    m_whenLoaded = whenLoaded;
    m_printer.setDocName(title);
    m_paper = std::make_unique<OrderPaper>(m_pageFiles, this);
    connect(m_paper.get(), &OrderPaper::loaded, &m_timer2, qOverload<>(&QTimer::start));
    connect(m_paper.get(), &OrderPaper::progress, this,
            m_guard([this](int sheets, int of) { showProgress(sheets, of); }));
    connect(m_paper.get(), &OrderPaper::failed, this,
            m_guard(unlessGivenUp(*m_paper, [this](const QString& why) { fail(why); })),
            Qt::QueuedConnection);
    m_paper->load(file, bytes);
    setBusy(true);
}

QWidget* OrderPrinter::windowInFront() const {
    return m_preview ? static_cast<QWidget*>(m_preview) : &m_window;
}

void OrderPrinter::ask() {
    setBusy(false);
    proposeFile(m_printer);
    auto* dialog = new QPrintDialog(&m_printer, windowInFront());
    m_dialog = dialog;
    dialog->setOptions(QPrintDialog::PrintToFile | QPrintDialog::PrintPageRange |
                       QPrintDialog::PrintShowPageSize | QPrintDialog::PrintCollateCopies);
    completeNamesWithoutReading(*dialog);
    connect(dialog, &QPrintDialog::finished, dialog, &QObject::deleteLater);
    connect(dialog, &QPrintDialog::rejected, this, m_guard([this] { endUnlessPreviewed(); }));
    connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), this, m_guard([this] {
                makePdf(rangesOf(m_printer), [this](const QByteArray& pdf) { deliver(pdf); });
            }));
    dialog->open();
}

void OrderPrinter::makePreview() {
    makePdf({}, [this](const QByteArray& pdf) { showPreview(pdf); });
}

void OrderPrinter::makePdf(const QPageRanges& ranges, std::function<void(const QByteArray&)> then) {
    setBusy(true);
    connect(m_paper.get(), &OrderPaper::made, this, m_guard(unlessGivenUp(*m_paper, std::move(then))),
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    m_paper->makePdf(m_printer.pageLayout(), ranges);
}

void OrderPrinter::showPreview(const QByteArray& pdf) {
    setBusy(false);
    m_preview = new PrintPreview(pdf, &m_window);
    m_preview->setWindowTitle(asTitle(m_printer.docName()));
    connect(m_preview, &PrintPreview::printAsked, this, m_guard([this] { ask(); }));
    connect(m_preview, &PrintPreview::finished, this, m_guard([this] {
                m_preview.clear();
                if (!m_busy) // else what it has sent to print goes on
                    end();
            }));
    m_preview->open();
}

void OrderPrinter::deliver(const QByteArray& pdf) {
    if (m_progress)          // it goes with the preview that it lay over
        m_progress->reset(); // from here on there is no way back
    const auto failure = [&] {
        const BusyNotice notice("Handing the order to the printer...", *windowInFront());
        return output(pdf, m_printer);
    }();
    if (!failure)
        tellWhereTo();
    endUnlessPreviewed();
    if (failure)
        tell(*failure);
}

void OrderPrinter::tellWhereTo() {
    const bool asPdf = m_printer.outputFormat() == QPrinter::PdfFormat;
    emit left(asPdf, asPdf ? m_printer.outputFileName() : m_printer.printerName());
}

void OrderPrinter::showBusy() {
    if (!m_progress)
        setBusy(true);
    m_progress->show();
    m_progress->raise();
    m_progress->activateWindow();
}

void OrderPrinter::setBusy(bool busy) {
    m_busy = busy;
    if (m_progress) {
        m_progress->reset();
        m_progress->deleteLater();
    }
    if (!busy)
        return;
    m_progress = new QProgressDialog(preparing, "Cancel", 0, 0, windowInFront());
    m_progress->setObjectName("Printing");
    m_progress->setWindowTitle("Print order");
    m_progress->setMinimumDuration(longPreparationMs);
    m_progress->setAutoReset(false); // it stays when counting is given up
    connect(m_progress, &QProgressDialog::canceled, this, m_guard([this] { end(); }));
    m_progress->setValue(0); // counts from now until it shows itself
}

void OrderPrinter::showProgress(int sheets, int of) {
    if (!m_progress)
        return;
    const auto page = QString("\nPage %1 of %2").arg(sheets).arg(of);
    m_progress->setLabelText(of == 0 ? preparing : preparing + page);
    m_progress->setMaximum(of);
    m_progress->setValue(sheets);
}

void OrderPrinter::fail(const QString& why) {
    end();
    tell(why.isEmpty() ? "The order could not be prepared for printing. Please try again." : why);
}

void OrderPrinter::tell(const QString& failure) {
    m_messages.show(platform::Icon::critical, "Print order", fromQt(failure));
}

// What the preview shows can be printed again.
void OrderPrinter::endUnlessPreviewed() {
    if (m_preview)
        setBusy(false);
    else
        end();
}

// A preview goes with the page that it would print, and so does a dialog that asks where to.
void OrderPrinter::end() {
    m_timer2.stop();
    m_paper.reset();
    if (m_dialog && m_dialog->isVisible()) {
        m_dialog->disconnect(this);
        m_dialog->reject();
    }
    if (m_preview) {
        m_preview->disconnect(this);
        m_preview->close();
        m_preview.clear();
    }
    setBusy(false);
    emit ended();
}

}
