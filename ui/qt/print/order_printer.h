#pragma once

#include "platform/message_box.h"
#include "ui/qt/print/order_paper.h"
#include "ui/qt/print/print_preview.h"
#include "ui/qt/widgets/guard.h"

#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QTimer>

#include <functional>
#include <memory>
#include <utility>

namespace ui::qt {

/// Prints the order's page, or shows it as it will be printed. While one order is being prepared another is
/// refused with a look at the first. The window stays usable meanwhile, and a small one with "Cancel" comes
/// up when it takes long. What goes wrong is reported, and the order can be printed again.
class OrderPrinter final : public QObject {
    Q_OBJECT

public:
    /// `window` is the one that dialogs lie over. `pageFiles` is what the order page may load.
    OrderPrinter(pages::PageFiles pageFiles, platform::MessageBox& messages, Guard& guard, QWidget& window);
    ~OrderPrinter() override;

    /// Loads the page under its file's address, then asks for a printer or a PDF file with the system's
    /// dialog. Returns at once. The title goes into the proposed file name and into the print queue.
    void print(const std::filesystem::path& file, std::string_view bytes, const QString& title);

    /// The same pages on the screen, from where they can be printed.
    void preview(const std::filesystem::path& file, std::string_view bytes, const QString& title);

    /// What the next pages may load.
    void confineTo(pages::PageFiles pageFiles) { m_pageFiles = std::move(pageFiles); }

    /// An order is being prepared; a dialog or a preview that is open does not count.
    [[nodiscard]] bool busy() const { return m_busy; }

    /// Brings the window with "Cancel" to the front.
    void showBusy();

signals:
    /// The pages have been saved as a PDF, or a printer has taken them: where is the file's name or the
    /// printer's. What is printed several times, from a preview, leaves as often.
    void left(bool asPdf, const QString& where);

    /// Whatever began with a print or a preview is over: done, cancelled or failed.
    void ended();

private:
    using Step = void (OrderPrinter::*)();

    void start(const std::filesystem::path& file, std::string_view bytes, const QString& title,
               Step whenLoaded);
    [[nodiscard]] QWidget* windowInFront() const;
    void ask();
    void makePreview();
    void makePdf(const QPageRanges& ranges, std::function<void(const QByteArray&)> then);
    void showPreview(const QByteArray& pdf);
    void deliver(const QByteArray& pdf);
    void tellWhereTo();
    void setBusy(bool busy);
    void showProgress(int sheets, int of);
    void fail(const QString& why);
    void tell(const QString& failure);
    void endUnlessPreviewed();
    void end();

    pages::PageFiles m_pageFiles;
    platform::MessageBox& m_messages;
    Guard& m_guard;
    QWidget& m_window;
    QPrinter m_printer;
    QTimer m_timer2;                      // `Timer2`: prints once the event that loaded the page is over
    QPointer<QProgressDialog> m_progress; // while busy
    QPointer<QPrintDialog> m_dialog;      // while it is open
    QPointer<PrintPreview> m_preview;     // while it is open
    std::unique_ptr<OrderPaper> m_paper;  // while an order is in work
    Step m_whenLoaded = nullptr;
    bool m_busy = false;
};

}
