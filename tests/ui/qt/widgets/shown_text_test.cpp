#include "tests/ui/qt/program_folder.h"
#include "ui/qt/grid/product_grid.h"
#include "ui/qt/widgets/qt_text.h"

#include <QCheckBox>
#include <QTest>
#include <QTextDocument>
#include <QWindow>

namespace {
using namespace tour;

/// What a person reads in a tip.
QString readInTip(const QString& tip) {
    if (!Qt::mightBeRichText(tip))
        return tip;
    QTextDocument document;
    document.setHtml(tip);
    return document.toPlainText();
}

QString titleOnScreen(const char* window) {
    return visibleWidget(window)->windowHandle()->title();
}

TEST(ShownText, TipsShowJustTheirText) {
    for (const QString text :
         {"S&P", "S&amp;P", "<b>bold</b>", "a < b & c > d", "&lt;", "[*]", "  two  blanks <i>"})
        EXPECT_EQ(readInTip(ui::qt::asToolTip(text)), text) << text.toStdString();
}

// Texts of the catalogue, wherever the windows show them.
TEST_F(ProgramTest, ShowsTheCatalogsTextsAsTheyStand) {
    const std::string name = "S&P [*] <b>Co</b>";
    auto catalog = smallCatalog(name);
    catalog.texts[catalog::ParameterText::descriptionCaption] = "R&D <i>";
    catalog.texts[catalog::ParameterText::taxName] = "T&T";
    deliver("ACME", catalog, {{"ACME.sup", "ACME|" + name}});
    deliver("BETA", smallCatalog("Beta"));
    answerEmailQuestion();
    script.when(
        "the suppliers", [] { return shows(startPage(), "S&P [*] <b>Co</b>"); },
        [] { clickInPage(*startPage(), "#remove-ACME"); });
    script.when(
        "the question", [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); },
        [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            EXPECT_EQ(box->windowHandle()->title(), "Remove S&P [*] <b>Co</b>");
            press(*box, QMessageBox::No);
        });
    script.when(
        "the suppliers still", [] { return shows(startPage(), "BETA"); },
        [] { clickInPage(*startPage(), "#ACME"); });
    script.when(
        "the welcome page", [] { return shows(startPage(), "Welcome to"); },
        [] { EXPECT_EQ(titleOnScreen("Welcome"), "Welcome to S&P [*] <b>Co</b>"); });
    enterPassword("");
    script.when(
        "the table of contents", [] { return shows(page(), "Contents"); },
        [] {
            EXPECT_EQ(titleOnScreen("Form1"), "S&P [*] <b>Co</b> list - Tavorine");
            auto* model = visible<ui::qt::ProductGrid>("ctGrid1")->model();
            EXPECT_EQ(readInTip(model->headerData(3, Qt::Horizontal, Qt::ToolTipRole).toString()), "R&D <i>");
            EXPECT_EQ(visible<QCheckBox>("cbTax")->text(), "T&&T &Exempt");
        });
    closeMainWindow();
    EXPECT_TRUE(play());
}

}
