#include "tests/ui/qt/program_folder.h"

#include "base/files.h"
#include "tests/support/test_folder.h"
#include "tests/support/zip_builder.h"

#include <QApplication>
#include <QTest>

namespace fs = std::filesystem;
using namespace tour;

ProgramTest::ProgramTest() {
    folder = fs::canonical(support::testFolder());
    writeFile(
        "Start.ect",
        "<html><body>Suppliers<table><tr><R1><td><a id=\"{SUPPID}\" href=\"{DIR}\\{SUPPID}\">{SUPPLIER}</a> "
        "<a id=\"remove-{SUPPID}\" "
        "href=\"{DIR}\\-{SUPPID}\">remove</a></td></R1></tr></table></body></html>");
}

void ProgramTest::deliver(const std::string& supplier, const support::CatalogBuilder& catalog,
                          const std::map<std::string, std::string>& extra) {
    std::map<std::string, std::string> entries{
        {supplier + ".sup", supplier + "|" + supplier + " Trading\r\n"},
        {"Banner.Ect", "<b>{CATNAME}</b>"},
        {"Catalog.Ect", "<p>{CODE} {DESC} {PRICEINC}</p>"},
        {"GroupI.Ect", "<h1>{DESC}</h1>{NOCOLS=02}<R1>{DESC};</R1><R2></R2>"},
        {"GroupT.Ect", "<h1>{DESC}</h1>"},
        {"Welcome.ECT", "<h1>Welcome to {CATNAME}</h1>"}};
    const auto data = folder / "data";
    catalog.writeTo(data);
    for (const auto& file : fs::directory_iterator(data))
        entries[file.path().filename().string()] = base::readFile(file.path()).value();
    fs::remove_all(data);
    for (const auto& [name, contents] : extra)
        entries[name] = contents;
    support::ZipBuilder zip;
    for (const auto& [name, contents] : entries)
        zip.add(name, contents);
    zip.writeTo(folder / (supplier + ".zip"));
}

support::CatalogBuilder ProgramTest::smallCatalog(const std::string& name) {
    using catalog::ParameterText;
    support::CatalogBuilder builder;
    builder.texts = {{ParameterText::supplierName, name},    {ParameterText::catalogName, name + " list"},
                     {ParameterText::codeCaption, "Code"},   {ParameterText::descriptionCaption, "Article"},
                     {ParameterText::taxName, "GST%"},       {ParameterText::priceCaption, "Price"},
                     {ParameterText::supplierFax, "555 01"}, {ParameterText::supplierEmail, "o@example.com"}};
    builder.groups = {{"Table of Contents", 1, 2, 0}, {"Bolts", 2, 0, 1}};
    builder.products = {{.text = "T\nContents\n", .group = 1, .flag = 'N'},
                        {.text = "G\nBolts\n", .group = 2, .flag = 'N'},
                        {.text = "B1\nSmall bolt\n", .price = 10, .taxRate = 12.5F, .group = 2},
                        {.text = "B2\nGro\xDF"
                                 "er Bolzen\n",
                         .price = 2.5F,
                         .taxRate = 10,
                         .group = 2}};
    return builder;
}

void ProgramTest::writeFile(const std::string& name, const std::string& bytes) const {
    base::replaceFile(folder / name, bytes);
}

std::string ProgramTest::readFile(const std::string& name) const {
    return base::readFile(folder / name).value_or("(no file)");
}

bool ProgramTest::exists(const std::string& name) const {
    return fs::exists(folder / name);
}

bool ProgramTest::play() {
    TestProgramFile programFile(folder / "Tavorine");
    ui::system::PrimaryScreen screen;
    ui::system::FileInstanceLock lock;
    ui::qt::Program program({programFile, screen, lock, folder / "own", kept});
    program.start();
    return script.run();
}

void ProgramTest::answer(const QString& title, QMessageBox::StandardButton button) {
    script.when(
        "the box " + title, [title] { return messageBox(title) != nullptr; },
        [this, title, button] {
            auto* box = messageBox(title);
            boxTexts.push_back(box->text());
            press(*box, button);
        });
}

void ProgramTest::enterPassword(const QString& password) {
    script.when(
        "the password entry",
        [] {
            auto* entry = visible<QLineEdit>("txtPassword");
            return entry && takesKeys(entry) && entry->text().isEmpty();
        },
        [password] {
            QTest::keyClicks(visibleWidget("txtPassword"), password);
            QTest::keyClick(visibleWidget("txtPassword"), Qt::Key_Return);
        });
}

void ProgramTest::closeMainWindow() {
    script.when(
        "the main window", [] { return visibleWidget("Form1") != nullptr; },
        [] { visibleWidget("Form1")->close(); });
}
