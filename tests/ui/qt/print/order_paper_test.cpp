#include "order/order_writer.h"
#include "tests/support/test_folder.h"
#include "ui/qt/print/order_paper.h"
#include "ui/system/end_process.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTimer>
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <tuple>

namespace {
namespace fs = std::filesystem;

/// A page of so many sheets. Rows wrap, and sheets are now and then longer than the paper.
class RandomOrder {
public:
    explicit RandomOrder(unsigned seed) : m_random(seed) {}

    std::string style;
    std::string lastRow;

    std::string page(int sheets) {
        const std::string pageHeader = "<p class=run>K\xF6nig &amp; S\xF6hne: " + text(4) +
                                       "</p><table class=lines>"
                                       "<tr><th>Quantity<th>Article</tr>\n";
        auto page =
            "<!DOCTYPE html><html><head><meta charset=windows-1252><style>body { font: 9pt sans-serif }\n"
            "tr:nth-child(even) { background: #eee } td + td { text-align: right }" +
            style + "</style></head><body><h1>" + text(5) + "</h1>" + pageHeader;
        for (int sheet = 0; sheet < sheets; ++sheet) {
            if (sheet > 0)
                page.append("</table> ").append(order::sheetBreak).append(pageHeader);
            const int rows = number(0, 19) == 0 ? 70 : number(0, 6);
            for (int row = 0; row < rows; ++row)
                page +=
                    "<tr><td>" + std::to_string(number(1, 999)) + "<td>" + text(number(1, 60)) + "</tr>\n";
        }
        return page + lastRow + "</table><p>Total " + text(2) + "</body></html>\r\n";
    }

    int number(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }

private:
    std::string text(int words) {
        constexpr std::array all{"bolt",       "M8", "Schl\xFCssel", "12.50", "caf\xE9 <b>cr\xE8me</b>",
                                 "&Auml;pfel", "x"};
        std::string text;
        for (int i = 0; i < words; ++i)
            text += std::string(all.at(static_cast<std::size_t>(number(0, 6)))) + " ";
        return text;
    }

    std::mt19937 m_random;
};

std::vector<int> childrenOf(const fs::path& process) {
    std::vector<int> ids;
    for (const auto& task : fs::directory_iterator(process / "task")) {
        std::ifstream children(task.path() / "children");
        ids.insert(ids.end(), std::istream_iterator<int>(children), {});
    }
    return ids;
}

// The processes of pages are children of one that makes them.
void endPages() {
    for (const int maker : childrenOf("/proc/self"))
        for (const int page : childrenOf("/proc/" + std::to_string(maker)))
            ui::system::endProcess(page);
}

class OrderPaperTest : public testing::Test {
protected:
    fs::path folder = support::testFolder();
    pages::PageFiles files{{folder, folder / "Tmp.htm", {}}};
    QPageLayout layout{
        QPageSize(QPageSize::A4), QPageLayout::Portrait, {12, 12, 12, 12}, QPageLayout::Millimeter};
    int pieces = 0;

    // Loads the page and makes the PDF as often as asked.
    template <typename Paper>
    QByteArray made(Paper& paper, const std::string& page, const QPageRanges& ranges = {}, int times = 1) {
        QByteArray pdf;
        QEventLoop loop;
        const auto make = [&] { paper.makePdf(layout, ranges); };
        QObject::connect(&paper, &Paper::loaded, &loop, make, Qt::QueuedConnection);
        QObject::connect(&paper, &Paper::failed, &loop, &QEventLoop::quit);
        QObject::connect(
            &paper, &Paper::made, &loop,
            [&](const QByteArray& bytes) {
                pdf = bytes;
                --times > 0 ? make() : loop.quit();
            },
            Qt::QueuedConnection);
        paper.load(folder / "Tmp.htm", page);
        loop.exec();
        return pdf;
    }

    QByteArray whole(const std::string& page, const QPageRanges& ranges = {}) {
        ui::qt::PaperPage paper(files, ui::qt::PaperPage::Scripts::on, nullptr);
        return made(paper, page, ranges);
    }

    // How making it ends, with this done once some of its sheets are on paper.
    std::vector<std::string> endOf(const std::string& page, const std::function<void()>& meanwhile) {
        ui::qt::OrderPaper paper(files, nullptr);
        std::vector<std::string> ends;
        QObject::connect(&paper, &ui::qt::OrderPaper::failed, &paper,
                         [&](const QString& why) { ends.push_back("failed: " + why.toStdString()); });
        QObject::connect(&paper, &ui::qt::OrderPaper::progress, &paper, meanwhile);
        if (!made(paper, page).isEmpty())
            ends.emplace_back("made");
        QCoreApplication::processEvents();
        return ends;
    }

    // `pieces` is 1 more than what came before the last, or 0 for a page that was made whole in the end.
    QByteArray inPieces(const std::string& page, const QPageRanges& ranges = {}, int times = 1) {
        ui::qt::OrderPaper paper(files, nullptr);
        pieces = 0;
        QObject::connect(&paper, &ui::qt::OrderPaper::progress, &paper,
                         [this](int, int of) { pieces = of == 0 ? -1 : pieces + 1; });
        const auto pdf = made(paper, page, ranges, times);
        ++pieces;
        return pdf;
    }

    struct Word {
        int page;
        QString text;
        double x;
        double y;
    };

    std::vector<Word> wordsOf(const QByteArray& pdf) {
        const auto name = QString::fromStdString((folder / "made.pdf").string());
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size());
        file.close();
        QProcess process;
        process.start("pdftotext", {"-bbox", name, "-"});
        EXPECT_TRUE(process.waitForFinished(-1));
        static const QRegularExpression tag(
            R"re(<(page)|<word xMin="([^"]+)" yMin="([^"]+)"[^>]*>([^<]*))re");
        std::vector<Word> words;
        int page = 0;
        const auto text = QString::fromUtf8(process.readAllStandardOutput());
        for (const auto& match : tag.globalMatch(text))
            if (match.hasCaptured(1) && !match.captured(1).isEmpty())
                ++page;
            else
                words.push_back(
                    {page, match.captured(4), match.captured(2).toDouble(), match.captured(3).toDouble()});
        std::sort(words.begin(), words.end(), [](const Word& a, const Word& b) {
            return std::tie(a.page, a.text, a.y, a.x) < std::tie(b.page, b.text, b.y, b.x);
        });
        return words;
    }

    // The same words at the same places, but for what is rounded.
    void expectSamePages(const QByteArray& pdf, const QByteArray& expected) {
        const auto words = wordsOf(pdf);
        const auto others = wordsOf(expected);
        ASSERT_EQ(words.size(), others.size());
        ASSERT_FALSE(words.empty());
        for (std::size_t i = 0; i < words.size(); ++i) {
            ASSERT_EQ(words[i].page, others[i].page) << "word " << i;
            ASSERT_EQ(words[i].text.toStdString(), others[i].text.toStdString()) << "page " << words[i].page;
            ASSERT_NEAR(words[i].x, others[i].x, 0.5) << words[i].text.toStdString();
            ASSERT_NEAR(words[i].y, others[i].y, 0.5) << words[i].text.toStdString();
        }
    }
};

TEST_F(OrderPaperTest, PiecesAreThePagesOfTheWhole) {
    for (unsigned seed = 1; seed <= 3; ++seed) {
        RandomOrder order(seed);
        const auto page = order.page(order.number(25, 70));
        SCOPED_TRACE(seed);
        expectSamePages(inPieces(page), whole(page));
        EXPECT_GT(pieces, 2);
    }
}

TEST_F(OrderPaperTest, PagesThatAreAskedForAreThoseOfTheWholeAgainAndAgain) {
    QPageRanges ranges;
    ranges.addRange(2, 3);
    ranges.addRange(24, 26);
    const auto page = RandomOrder(5).page(40);
    expectSamePages(inPieces(page, ranges, 2), whole(page, ranges));
    EXPECT_GT(pieces, 3);
}

TEST_F(OrderPaperTest, AShortOrderIsMadeWhole) {
    EXPECT_FALSE(inPieces(RandomOrder(6).page(24)).isEmpty());
    EXPECT_EQ(pieces, 1);
}

// Sheets that count each other, or that one of them paints on, or that are shrunk for one of them.
TEST_F(OrderPaperTest, SheetsThatDependOnEachOtherAreMadeTogether) {
    struct Case {
        const char* style;
        const char* lastRow = "";
    };

    for (const auto& [style, lastRow] : {
             Case{"table { counter-increment: sheet } p.run::before { content: counter(sheet) }"},
             Case{"@media print { p.run { position: fixed; bottom: 0 } }"},
             Case{"table:nth-of-type(3n) { color: gray } p:last-of-type { padding-top: 3cm }"},
             Case{"body { column-count: 2 }"},
             Case{"div { break-before: auto !important }"},
             Case{"@page :first { margin-top: 5cm }"},
             Case{"", "<tr><td style='float: right'>1<td>x</tr>"},
             Case{"", "<tr><td>1<td><style>h1 { font-size: 40pt }</style></tr>"},
             Case{"", "<tr><td>1<td><script>document.querySelector('h1').remove()</script></tr>"},
             Case{"", "<tr><td>1<td><img src=none.jpg onerror='this.outerHTML = \"no picture\"'></tr>"},
             Case{"", "<tr><td>1<td><body style='padding-top: 3cm'></tr>"},
             Case{"", "<tr><td>1<td style='white-space: nowrap; min-width: 900px'>wide</tr>"},
         }) {
        SCOPED_TRACE(std::string(style) + lastRow);
        RandomOrder order(7);
        order.style = style;
        order.lastRow = lastRow;
        const auto page = order.page(26);
        expectSamePages(inPieces(page), whole(page));
        EXPECT_EQ(pieces, 0);
    }
}

TEST_F(OrderPaperTest, NothingIsLeftOfWhatIsGivenUp) {
    auto paper = std::make_unique<ui::qt::OrderPaper>(files, nullptr);
    int sheetsDone = 0;
    QEventLoop loop;
    QObject::connect(paper.get(), &ui::qt::OrderPaper::progress, &loop,
                     [&](int sheets) { sheetsDone = sheets; });
    QObject::connect(
        paper.get(), &ui::qt::OrderPaper::loaded, &loop, [&] { paper->makePdf(layout, {}); },
        Qt::QueuedConnection);
    QObject::connect(paper.get(), &ui::qt::OrderPaper::failed, &loop, &QEventLoop::quit);
    QObject::connect(paper.get(), &ui::qt::OrderPaper::progress, &loop, &QEventLoop::quit,
                     Qt::QueuedConnection);
    paper->load(folder / "Tmp.htm", RandomOrder(8).page(60));
    loop.exec();
    paper.reset();
    EXPECT_GT(sheetsDone, 0);
    EXPECT_LT(sheetsDone, 60);
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(OrderPaperTest, APageWhoseProcessDiesInTheMiddleFailsOnce) {
    QTimer often;
    QObject::connect(&often, &QTimer::timeout, endPages);
    EXPECT_THAT(endOf(RandomOrder(9).page(60), [&] { often.start(10); }), testing::ElementsAre("failed: "));
    EXPECT_TRUE(fs::is_empty(folder));
}

// Nobody is there to catch what is thrown in the middle. The last sheet is too long to be handed over from
// memory.
TEST_F(OrderPaperTest, ACopyThatCannotBeWrittenInTheMiddleIsToldInWords) {
    fs::create_directories(folder / "Tmp.print.htm" / "in the way");
    for (const char* style : {"", "body { column-count: 2 }"}) {
        SCOPED_TRACE(style);
        RandomOrder order(10);
        order.style = style;
        order.lastRow = "<!--" + std::string(700'000, 'x') + "-->";
        EXPECT_THAT(endOf(order.page(30), [] {}),
                    testing::ElementsAre(testing::AllOf(testing::StartsWith("failed: "),
                                                        testing::HasSubstr("Tmp.print.htm"))));
    }
}

}
