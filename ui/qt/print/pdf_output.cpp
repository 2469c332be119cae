#include "ui/qt/print/pdf_output.h"

#include "ui/system/print_queue.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPdfDocument>
#include <QPrintEngine>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr int sharpestDpi = 600;

QString usualFolder() {
    const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

QString failedFile(const QString& name, const QString& reason) {
    return "The order could not be saved as\n" + QDir::toNativeSeparators(name) + "\n" + reason +
           ".\nPlease print it again and choose another file.";
}

std::optional<QString> writeFile(const QByteArray& pdf, const QString& name) {
    QSaveFile file(name);
    file.setDirectWriteFallback(true);
    if (file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size() && file.commit())
        return std::nullopt;
    return failedFile(name, file.errorString());
}

QString failedPrinter(const QString& name) {
    return "The printer \"" + name +
           "\" did not take the order. Please see whether it is switched on and connected, then print again.";
}

// What the dialog's own page for the print system has set, as names and values in turn. The property is
// not named in public, and empty where there is no such page.
QStringList dialogOptions(const QPrinter& printer) {
    constexpr auto cupsOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);
    const auto pairs = printer.printEngine()->property(cupsOptions).toStringList();
    QStringList options;
    for (qsizetype i = 0; i + 1 < pairs.size(); i += 2)
        options << pairs.at(i) + "=" + pairs.at(i + 1);
    return options;
}

QString sidesOf(QPrinter::DuplexMode mode) {
    switch (mode) {
    case QPrinter::DuplexLongSide:
        return "sides=two-sided-long-edge";
    case QPrinter::DuplexShortSide:
        return "sides=two-sided-short-edge";
    default:
        return "sides=one-sided";
    }
}

system::PrintTicket ticketOf(const QPrinter& printer) {
    system::PrintTicket ticket{printer.printerName(), printer.docName(), printer.copyCount(),
                               dialogOptions(printer)};
    ticket.options << "media=" + printer.pageLayout().pageSize().key() << sidesOf(printer.duplex())
                   << QString("collate=") + (printer.collateCopies() ? "true" : "false");
    if (printer.colorMode() == QPrinter::GrayScale)
        ticket.options << "print-color-mode=monochrome";
    return ticket;
}

// On white: what a page leaves free is transparent.
QImage pictureOf(QPdfDocument& document, int page, QSize size) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter(&picture).drawImage(0, 0, document.render(page, size));
    return picture;
}

// As pictures of the pages, where the print system takes no PDF.
bool paint(QByteArray pdf, QPrinter& printer) {
    QBuffer device(&pdf);
    device.open(QIODevice::ReadOnly);
    QPdfDocument document;
    document.load(&device);
    printer.setResolution(std::min(printer.resolution(), sharpestDpi));
    printer.setFullPage(true);
    QPainter painter;
    if (document.pageCount() == 0 || !painter.begin(&printer))
        return false;
    const auto paper = printer.paperRect(QPrinter::DevicePixel).toRect();
    for (int page = 0; page < document.pageCount(); ++page) {
        if (page > 0 && !printer.newPage())
            return false;
        painter.drawImage(paper, pictureOf(document, page, paper.size()));
    }
    return painter.end();
}

}

// A file name once set would make the dialog choose the PDF although there is a printer.
void proposeFile(QPrinter& printer) {
    const bool wasFile = !printer.outputFileName().isEmpty();
    if (!wasFile && !QPrinterInfo::availablePrinterNames().isEmpty())
        return;
    const auto folder = wasFile ? QFileInfo(printer.outputFileName()).absolutePath() : usualFolder();
    printer.setOutputFileName(QDir(folder).filePath(printer.docName() + ".pdf"));
}

QPageRanges rangesOf(const QPrinter& printer) {
    return printer.printRange() == QPrinter::PageRange ? printer.pageRanges() : QPageRanges();
}

std::optional<QString> output(const QByteArray& pdf, QPrinter& printer) {
    if (printer.outputFormat() == QPrinter::PdfFormat)
        return writeFile(pdf, printer.outputFileName());
    const auto lp = system::findLp();
    const bool taken = lp ? system::PrintQueue(*lp).submit(pdf, ticketOf(printer)) : paint(pdf, printer);
    return taken ? std::nullopt : std::optional(failedPrinter(printer.printerName()));
}

}
