#include "ui/qt/print/order_paper.h"

#include "base/errors.h"

#include <exception>
#include <utility>

namespace ui::qt {
namespace {

order::JoinedPdf::Wanted wantedOf(const QPageRanges& ranges) {
    return [ranges](int page) { return ranges.isEmpty() || ranges.contains(page); };
}

}

OrderPaper::OrderPaper(pages::PageFiles files, QObject* parent)
    : QObject(parent), m_files(std::move(files)) {}

OrderPaper::~OrderPaper() = default;

void OrderPaper::load(const std::filesystem::path& file, std::string_view bytes) {
    m_file = file;
    order::PaperPieces pieces(bytes);
    if (!order::canJoinPdfs() || pieces.count() == 1)
        return open(bytes, PaperPage::Scripts::on);
    m_pieces = std::move(pieces);
    openPiece(0);
}

void OrderPaper::makePdf(const QPageLayout& layout, const QPageRanges& ranges) {
    m_job = Job{layout, ranges, std::make_unique<order::JoinedPdf>(wantedOf(ranges))};
    attempt([this] { m_page && (isWhole() || m_number == 0) ? whenReady() : openPiece(0); });
}

// Nobody is there to catch what a slot throws, and who asks for a PDF hears of all failures in one way.
void OrderPaper::attempt(const std::function<void()>& step) {
    try {
        step();
    } catch (const base::FileError& error) {
        giveUpFor(QString::fromUtf8(error.what()));
    } catch (const std::exception&) { // its words are no person's
        giveUp();
    }
}

// What a page says comes once its own work is over, when it may be put away.
void OrderPaper::open(std::string_view bytes, PaperPage::Scripts scripts) {
    m_page = std::make_unique<PaperPage>(m_files, scripts, nullptr);
    const auto on = [this, opened = ++m_opened](auto signal, auto slot) {
        const auto unlessPutAway = [this, opened, slot](const auto&... what) {
            if (opened == m_opened)
                attempt([&] { (this->*slot)(what...); });
        };
        connect(m_page.get(), signal, this, unlessPutAway, Qt::QueuedConnection);
    };
    on(&PaperPage::loaded, &OrderPaper::whenLoaded);
    on(&PaperPage::surroundings, &OrderPaper::judge);
    on(&PaperPage::made, &OrderPaper::take);
    on(&PaperPage::failed, &OrderPaper::giveUp);
    m_page->load(m_file, bytes);
}

void OrderPaper::openPiece(std::size_t number) {
    m_number = number;
    m_piece = m_pieces->piece(number);
    const auto text = std::exchange(m_piece.text, {});
    open(text, PaperPage::Scripts::off);
}

void OrderPaper::openWhole() {
    emit progress(0, 0);
    const auto pieces = std::exchange(m_pieces, std::nullopt);
    open(pieces->page(), PaperPage::Scripts::on);
}

void OrderPaper::whenLoaded() {
    if (isWhole())
        whenReady();
    else
        m_page->askSurroundings(m_piece.breaks);
}

void OrderPaper::judge(const QString& surroundings) {
    if (m_number == 0)
        m_surroundings = surroundings;
    if (surroundings.isEmpty() || surroundings != m_surroundings)
        openWhole();
    else
        whenReady();
}

void OrderPaper::whenReady() {
    if (m_job)
        m_page->makePdf(m_job->layout, isWhole() ? m_job->ranges : QPageRanges());
    else
        emit loaded();
}

void OrderPaper::take(const QByteArray& pdf) {
    if (isWhole())
        finish(pdf);
    else
        join(pdf);
}

void OrderPaper::join(const QByteArray& pdf) {
    if (!add(pdf))
        return openWhole();
    auto& joined = *m_job->joined;
    if (m_number == 0)
        m_firstPages = joined.pages();
    if (m_number + 1 == m_pieces->count()) {
        m_page.reset();
        return finish(QByteArray::fromStdString(joined.bytes()));
    }
    emit progress(static_cast<int>(m_piece.through), static_cast<int>(m_pieces->sheets()));
    openPiece(m_number + 1);
}

// A sheet takes a page at least, wherever it is printed.
bool OrderPaper::add(const QByteArray& pdf) {
    auto& joined = *m_job->joined;
    const int before = joined.pages();
    return joined.add({pdf.constData(), static_cast<std::size_t>(pdf.size())},
                      m_piece.repeatsFirst ? m_firstPages : 0, m_piece.hasEnd ? 1 : 0) &&
           joined.pages() - before >= static_cast<int>(m_piece.ownSheets);
}

void OrderPaper::finish(const QByteArray& pdf) {
    if (pdf.isEmpty())
        return giveUp();
    m_job.reset();
    emit made(pdf);
}

void OrderPaper::giveUp() {
    giveUpFor({});
}

void OrderPaper::giveUpFor(const QString& why) {
    ++m_opened; // nothing more is heard of what is in work
    m_job.reset();
    emit failed(why);
}

}
