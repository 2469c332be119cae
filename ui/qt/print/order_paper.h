#pragma once

#include "order/paper/joined_pdf.h"
#include "order/paper/paper_pieces.h"
#include "ui/qt/print/paper_page.h"

#include <functional>
#include <memory>
#include <optional>

namespace ui::qt {

/// An order's page on its way to a PDF. The browser's time and memory for a sheet grow with the sheets before
/// it, so a long page is made piece by piece, each in a process of its own, and the pieces are joined. A
/// page whose sheets may depend on each other (piece_check.h) is made whole.
class OrderPaper final : public QObject {
    Q_OBJECT

public:
    OrderPaper(pages::PageFiles files, QObject* parent);
    ~OrderPaper() override;

    /// Loads the page, or its beginning, under the address of its file. Throws base::FileError as PageLoader
    /// does.
    void load(const std::filesystem::path& file, std::string_view bytes);

    /// Once it is loaded, and once at a time. Throws nothing: what goes wrong is told by `failed`.
    void makePdf(const QPageLayout& layout, const QPageRanges& ranges);

signals:
    void loaded();

    /// So many sheets of a long order are on paper.
    void progress(int sheets, int of);

    void made(const QByteArray& pdf);

    /// The page could not be loaded or made, or the browser's process has died. Why is a sentence for the
    /// user, or empty where nothing can be said. Nothing comes after it.
    void failed(const QString& why);

private:
    /// What is to be made, once that has been asked for.
    struct Job {
        QPageLayout layout;
        QPageRanges ranges;
        std::unique_ptr<order::JoinedPdf> joined;
    };

    [[nodiscard]] bool isWhole() const { return !m_pieces; }

    void attempt(const std::function<void()>& step);
    void open(std::string_view bytes, PaperPage::Scripts scripts);
    void openPiece(std::size_t number);
    void openWhole();
    void whenLoaded();
    void judge(const QString& surroundings);
    void whenReady();
    void take(const QByteArray& pdf);
    void join(const QByteArray& pdf);
    [[nodiscard]] bool add(const QByteArray& pdf);
    void finish(const QByteArray& pdf);
    void giveUp();
    void giveUpFor(const QString& why);

    pages::PageFiles m_files;
    std::filesystem::path m_file;
    std::optional<order::PaperPieces> m_pieces; // none for a page that is made whole
    std::unique_ptr<PaperPage> m_page;          // what is in work
    std::size_t m_opened = 0;                   // pages so far; tells what an earlier one still says
    std::size_t m_number = 0;                   // of the piece in work
    order::PaperPiece m_piece;                  // without its text
    QString m_surroundings;                     // of the first piece's sheets
    int m_firstPages = 0;                       // of a piece's PDF that its first sheet takes
    std::optional<Job> m_job;
};

}
