#include "publish/command/commands.h"
#include "tests/ui/qt/order_program.h"

#include <QProcess>

#include <sstream>

namespace {

using namespace tour;
namespace fs = std::filesystem;

QString textOf(const fs::path& pdf) {
    QProcess process;
    process.start("pdftotext", {"-layout", QString::fromStdString(pdf.string()), "-"});
    EXPECT_TRUE(process.waitForFinished());
    return process.readAllStandardOutput();
}

/// A supplier's price list, made into a catalogue by nothing but "new" and "build".
class StarterCatalogTest : public OrderProgram {
protected:
    void publish(const std::string& list) {
        writeFile("Preise.csv", list);
        runs({"new", path("source/ACME"), "--from", path("Preise.csv"), "--name", "Acme", "--email",
              "orders@acme.example"});
        runs({"build", path("source/ACME"), "--zip", path("ACME.zip"), "--strict"});
        fs::remove_all(folder / "source");
        fs::remove(folder / "Preise.csv");
    }

    [[nodiscard]] std::string path(const char* name) const { return (folder / name).string(); }

private:
    static void runs(const std::vector<std::string>& arguments) {
        std::ostringstream said;
        ASSERT_EQ(publish::run(arguments, {said, said}), 0) << said.str();
    }
};

TEST_F(StarterCatalogTest, OpensOrdersAndPrintsAsItIs) {
    const auto pdf = folder / "order.pdf";
    publish("Art.-Nr.;Bezeichnung;Warengruppe;Preis netto;MwSt\n"
            "S-1;Schraube;Schrauben;1.234,50;20\nM-1;Mutter f\xC3\xBCr S-1;Muttern;0,35;20\n");
    script.when(
        "the welcome page", [] { return shows(startPage(), "Our catalogue"); }, [] {});
    enterPassword("");
    script.when(
        "the contents", [] { return shows(page(), "Schrauben"); },
        [] {
            EXPECT_EQ(products()->model()->headerData(2, Qt::Horizontal).toString(), "Art.-Nr.");
            enter(products(), 2, "2");
            enter(products(), 4, "10");
            EXPECT_EQ(text("lbTotOrd"), "2,967.00");
        });
    script.when(
        "the product's page",
        [] { return shows(page(), QString::fromUtf8("Mutter für S-1")) && shows(page(), "0.42"); },
        [] { press("CheckOut"); });
    script.when(
        "the order", [] { return order() && !QApplication::activeModalWidget(); },
        [] {
            box("txOrgName")->setText("Marlowe");
            box("txPhone")->setText("01632 960 118");
            box("txOrdNo")->setText("A/7");
            press("Print");
        });
    script.when(
        "the print dialog", [] { return printDialog() != nullptr; },
        [pdf] { printToFile(*printDialog(), pdf); });
    script.when(
        "the order on paper", [pdf] { return fs::exists(pdf) && !QApplication::activeModalWidget(); },
        [pdf] {
            const auto paper = textOf(pdf);
            for (const char* wanted : {"Acme", "Marlowe", "S-1", "1234.50", "M-1", "2967.00"})
                EXPECT_TRUE(paper.contains(QString::fromUtf8(wanted))) << wanted << paper.toStdString();
        });
    closeMainWindow();
    ASSERT_TRUE(play());
}

}
