#include "tests/ui/qt/order_program.h"
#include "ui/qt/print/print_preview.h"

#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProgressDialog>
#include <QPushButton>
#include <QScreen>

namespace {
using namespace tour;
namespace fs = std::filesystem;

constexpr int lines = 120;

std::string articleName(int number) {
    return "Article-" + std::to_string(1000 + number);
}

/// The program on a catalogue of 120 articles, all of them ordered once, with the order view up and its
/// details complete.
class PrintTest : public OrderProgram {
protected:
    PrintTest() {
        for (int i = 1; i <= lines; ++i)
            catalog.products.push_back(
                {.text = "C" + std::to_string(i) + "\n" + articleName(i) + "\n", .price = 1, .group = 2});
    }

    void orderEverything(const std::string& printTemplate) {
        deliver("ACME", catalog, {{"PrtOrd.ect", printTemplate}});
        then("the product grid", [] {
            QApplication::clipboard()->setText(QString("1\n").repeated(lines));
            products()->setCurrentIndex(products()->model()->index(4, 0));
            QTest::keyClick(products(), Qt::Key_V, Qt::ControlModifier);
            press("CheckOut");
        });
        inOrderView("the details", [] {
            box("txOrgName")->setText("Marlowe");
            box("txPhone")->setText("01632 960 118");
            box("txOrdNo")->setText("A/7");
        });
    }

    void inOrderView(const QString& what, std::function<void()> act) {
        script.when(
            what, [] { return order() && !QApplication::activeModalWidget(); }, std::move(act));
    }

    void inPrintDialog(std::function<void()> act) {
        script.when(
            "the print dialog", [] { return printDialog() != nullptr; }, std::move(act));
    }

    void printTo(const fs::path& file) {
        inPrintDialog([file] { printToFile(*printDialog(), file); });
    }

    void expectOrderUnchanged() {
        inOrderView("the order as it was", [] {
            EXPECT_EQ(order()->model()->rowCount(), lines);
            EXPECT_EQ(text("lbTotOrd"), "120.00");
            EXPECT_EQ(box("txOrdNo")->text(), "A/7");
            EXPECT_TRUE(visibleWidget("Print")->isEnabled());
        });
    }

    static QString outputOf(const QString& command, const QStringList& arguments) {
        QProcess process;
        process.start(command, arguments);
        EXPECT_TRUE(process.waitForFinished()) << command.toStdString();
        return process.readAllStandardOutput();
    }

    // The text of a page of a PDF, which counts from 1.
    static QString textOfPage(const fs::path& pdf, int page) {
        const auto number = QString::number(page);
        return outputOf("pdftotext",
                        {"-layout", "-f", number, "-l", number, QString::fromStdString(pdf.string()), "-"});
    }

    static int pagesOf(const fs::path& pdf) {
        const auto info = outputOf("pdfinfo", {QString::fromStdString(pdf.string())});
        static const QRegularExpression count("Pages:\\s+(\\d+)");
        return count.match(info).captured(1).toInt();
    }
};

constexpr auto pagedTemplate =
    "{ROW=10}\n<html><body><h1>Order {REFNUM}</h1>"
    "<PH><p>Page header of {SUPNAME}</p><table style='font-size:8pt;border-collapse:collapse'></PH>"
    "<R1><tr><td>{QTY}<td>{DESC}<td>{AMTINC}</tr></R1></table><p>Total {TOTINC}</body></html>";

TEST_F(PrintTest, APdfHoldsEveryLineOnceOnThePagesThatTheOrderSays) {
    orderEverything(pagedTemplate);
    inOrderView("printing", [] { press("Print"); });
    inPrintDialog([] {
        EXPECT_TRUE(proposedFile(*printDialog()).endsWith("/Order A-7.pdf"))
            << proposedFile(*printDialog()).toStdString();
    });
    const auto pdf = folder / "order.pdf";
    printTo(pdf);
    script.when(
        "the PDF", [pdf] { return fs::exists(pdf); }, [] { visibleWidget("Form1")->close(); });
    ASSERT_TRUE(play());

    ASSERT_EQ(pagesOf(pdf), 3);
    const std::array pages{textOfPage(pdf, 1), textOfPage(pdf, 2), textOfPage(pdf, 3)};
    const std::array lastLines{40, 90, lines};
    int page = 0;
    for (int line = 1; line <= lines; ++line) {
        if (line > lastLines.at(static_cast<std::size_t>(page)))
            ++page;
        for (int other = 0; other < 3; ++other)
            EXPECT_EQ(
                pages.at(static_cast<std::size_t>(other)).count(QString::fromStdString(articleName(line))),
                other == page ? 1 : 0)
                << articleName(line) << " on page " << other + 1;
    }
    for (const auto& text : pages)
        EXPECT_EQ(text.count("Page header of Acme"), 1);
    EXPECT_TRUE(pages.back().contains("Total 120.00"));
    EXPECT_THAT(readFile("ACME/Tmp.htm"), testing::EndsWith("<p>Total 120.00</body></html>\r\n"));
}

TEST_F(PrintTest, WhatIsCancelledOrCannotBeWrittenLeavesTheOrderToBePrintedAgain) {
    orderEverything(pagedTemplate);
    inOrderView("printing", [] { QTest::keyClick(visibleWidget("Form1"), Qt::Key_P, Qt::ControlModifier); });
    inPrintDialog([] { printDialog()->reject(); });
    expectOrderUnchanged();
    inOrderView("printing again", [] { press("Print"); });
    const auto gone = folder / "gone";
    inPrintDialog([gone] {
        fs::create_directory(gone);
        printToFile(*printDialog(), gone / "order.pdf");
        fs::remove_all(gone);
    });
    answer("Print order", QMessageBox::Ok);
    expectOrderUnchanged();
    inOrderView("closing", [] { visibleWidget("Form1")->close(); });
    ASSERT_TRUE(play());
    EXPECT_THAT(boxTexts.back().toStdString(), testing::StartsWith("The order could not be saved as\n"));
    EXPECT_FALSE(fs::exists(gone));
}

// Files there that are never ready to be read stop a window that looks into them.
TEST_F(PrintTest, AFolderOfFilesWithoutAnEndDoesNotHoldUpThePrintDialog) {
    orderEverything(pagedTemplate);
    inOrderView("printing", [] { press("Print"); });
    const auto file = [] { return printDialog()->findChild<QLineEdit*>("filename"); };
    inPrintDialog([file] {
        auto* printers = printDialog()->findChild<QComboBox*>("printers");
        printers->setCurrentIndex(printers->count() - 1);
        file()->setFocus();
        file()->clear();
        QTest::keyClicks(file(), "/proc/");
    });
    script.when(
        "the names there", [file] { return file()->completer()->completionCount() > 10; },
        [] { printDialog()->reject(); });
    inOrderView("closing", [] { visibleWidget("Form1")->close(); });
    EXPECT_TRUE(play());
}

TEST_F(PrintTest, IsPreviewedAndPrintedFromThere) {
    orderEverything(pagedTemplate);
    inOrderView("previewing", [] {
        visibleWidget("Form1")->setGeometry(60, 40, 640, 320); // a preview in its middle leaves the screen
        QTest::keyClick(visibleWidget("Form1"), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    });
    const auto preview = [] { return visible<ui::qt::PrintPreview>("PrintPreview"); };
    script.when("the preview", preview, [preview] {
        EXPECT_EQ(preview()->windowTitle(), "Order A-7");
        EXPECT_TRUE(preview()->screen()->availableGeometry().contains(preview()->frameGeometry()));
        EXPECT_TRUE(preview()->testAttribute(Qt::WA_Moved)) << "the desktop would choose the place";
        EXPECT_EQ(preview()->findChild<QLabel*>("PageNumber")->text().trimmed(), "Page 1 of 3");
        QTest::keyClick(preview(), Qt::Key_P, Qt::ControlModifier);
    });
    const auto pdf = folder / "order.pdf";
    printTo(pdf);
    script.when(
        "the PDF and the preview still", [pdf, preview] { return fs::exists(pdf) && preview(); },
        [preview] { QTest::keyClick(preview(), Qt::Key_Escape); });
    inOrderView("closing", [] { visibleWidget("Form1")->close(); });
    ASSERT_TRUE(play());
    EXPECT_EQ(pagesOf(pdf), 3);
}

TEST_F(PrintTest, ClosingWaitsForThePrintDialogToo) {
    orderEverything("<script>for (var t = Date.now(); Date.now() - t < 1000;);</script><R1>{DESC}</R1>");
    inOrderView("printing and leaving", [] {
        press("Print");
        visibleWidget("Form1")->close();
    });
    const auto pdf = folder / "order.pdf";
    printTo(pdf);
    script.when(
        "what never comes", [] { return false; }, [] {});
    EXPECT_FALSE(play()) << "the program ends by itself";
    EXPECT_TRUE(fs::exists(pdf));
}

TEST_F(PrintTest, WhateverIsTypedIsPrintedAsItStandsHoweverLong) {
    orderEverything(
        "<meta charset=windows-1252><div style='display:none'>{COMMENT}</div><p>For {ATTENTION}</p>"
        "<R1>{DESC}<br></R1><p>End of the order</p>");
    inOrderView("the comments", [] {
        box("txAtten")->setText(QString::fromUtf8("{QTY} {{\"M\u00fcller\" \u03c0}}"));
        visible<QPlainTextEdit>("txComment")->setPlainText(QString("{x\n").repeated(300'000));
        press("Print");
    });
    const auto pdf = folder / "order.pdf";
    printTo(pdf);
    script.when(
        "the PDF", [pdf] { return fs::exists(pdf); }, [] { visibleWidget("Form1")->close(); });
    ASSERT_TRUE(play());
    const auto text = textOfPage(pdf, 1);
    EXPECT_TRUE(text.contains(QString::fromUtf8("For {QTY} {{\"M\u00fcller\" \u03c0}}")))
        << text.toStdString();
    EXPECT_TRUE(textOfPage(pdf, pagesOf(pdf)).contains("End of the order"));
    EXPECT_FALSE(exists("ACME/Tmp.print.htm"));
}

TEST_F(PrintTest, LongPreparationCanBeCancelledAndClosingWaitsForIt) {
    orderEverything("<script>for (var t = Date.now(); Date.now() - t < 20000;);</script><R1>{DESC}</R1>");
    inOrderView("printing", [] { press("Print"); });
    const auto busy = [] { return visible<QProgressDialog>("Printing"); };
    script.when("the busy window", busy, [] {
        press("Plist"); // the window is alive
        EXPECT_NE(products(), nullptr);
        visibleWidget("Form1")->close();
        EXPECT_NE(visibleWidget("Form1"), nullptr);
    });
    script.when("the busy window still", busy,
                [busy] { QTest::mouseClick(busy()->findChild<QPushButton*>(), Qt::LeftButton); });
    EXPECT_TRUE(play());
}

TEST_F(PrintTest, AnOrderPageWhoseScriptNeverEndsCanBeGivenUp) {
    orderEverything("<html><body><script>for (;;);</script></body></html>");
    inOrderView("printing", [] { press("Print"); });
    script.when(
        "the way out", [] { return visibleWidget("Printing") != nullptr; },
        [] {
            auto* cancel = visible<QProgressDialog>("Printing")->findChild<QPushButton*>();
            QTest::mouseClick(cancel, Qt::LeftButton);
        });
    expectOrderUnchanged();
    closeMainWindow();
    EXPECT_TRUE(play());
}

}
