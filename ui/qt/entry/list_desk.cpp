#include "ui/qt/entry/list_desk.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/text.h"
#include "order/exchange/order_text.h"
#include "order/exchange/order_xlsx.h"
#include "ui/document_rows.h"
#include "ui/qt/widgets/busy_notice.h"
#include "ui/qt/widgets/qt_text.h"
#include "ui/system/background_work.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QRegularExpression>
#include <QStandardPaths>

#include <memory>

namespace ui::qt {
namespace {

constexpr auto readTitle = "Order from a list";
constexpr auto saveTitle = "Save the order";
constexpr auto lists = "Lists (*.csv *.txt *.tsv *.xlsx *.ods);;All files (*)";
constexpr auto xlsxFiles = "Spreadsheet (*.xlsx)";
constexpr auto csvFiles = "Delimited text (*.csv)";

// The order's number where file names may hold it.
QString proposedName(QString number) {
    static const QRegularExpression notInNames(R"([\x00-\x1f\\/:*?"<>|])");
    number = number.trimmed().replace(notInNames, "-");
    return number.isEmpty() ? "Order" : "Order " + number;
}

order::OrderTable tableOf(const catalog::Catalog& catalog, const std::vector<OrderRow>& rows) {
    order::OrderContents contents;
    contents.rows = documentRows(catalog, rows);
    return orderTable(contents, catalog.parameters);
}

QString sentenceOf(std::size_t lines) {
    return lines == 1 ? "1 line" : QString("%1 lines").arg(lines);
}

}

void ListDesk::openList() {
    if (m_dialog)
        return;
    m_dialog = new QFileDialog(&m_around.window, readTitle, m_folder, lists);
    m_dialog->setFileMode(QFileDialog::ExistingFile);
    ask(*m_dialog, "OpenList", [this](const QString& file) {
        take([path = pathFromQt(file)](const order::IsCode& isCode) {
            return order::readOrderList(path, isCode);
        });
    });
}

void ListDesk::pasteList() {
    const auto text = QGuiApplication::clipboard()->text().toStdString();
    if (text.find_first_not_of(" \t\r\n") == std::string::npos)
        return m_around.messages.show(
            platform::Icon::information, readTitle,
            "There is no text on the clipboard.\nCopy a list of codes and quantities "
            "first, from a spreadsheet or a message.");
    take([&text](const order::IsCode& isCode) { return order::readOrderText(text, isCode); });
}

void ListDesk::take(const Reader& reader) {
    m_around.order.closePending();
    order::OrderList list;
    Intake intake;
    work(readTitle, "Reading the list...", [&] {
        list = reader([&](std::string_view code) { return recordOfCode(m_around.catalog, code) != 0; });
        intake = planIntake(m_around.catalog, m_around.order.basket(), list.lines);
    });
    if (list.summary.empty()) // a failure has been told
        return;
    if (list.lines.empty())
        return m_around.messages.show(platform::Icon::information, readTitle,
                                      list.summary + "\nThere is nothing in it to be ordered.");
    m_around.intake.takePlanned(std::move(intake), {.title = readTitle, .sentence = toQt(list.summary)});
}

void ListDesk::saveOrder() {
    if (m_dialog)
        return;
    QStringList filters{csvFiles};
    if (order::canWriteXlsx())
        filters.prepend(xlsxFiles);
    m_dialog = new QFileDialog(&m_around.window, saveTitle, m_folder);
    m_dialog->setAcceptMode(QFileDialog::AcceptSave);
    m_dialog->setNameFilters(filters);
    const auto chooseEnding = [dialog = m_dialog.data()](const QString& filter) {
        dialog->setDefaultSuffix(filter == csvFiles ? "csv" : "xlsx");
    };
    connect(m_dialog, &QFileDialog::filterSelected, m_dialog, chooseEnding);
    chooseEnding(filters.front());
    m_dialog->selectFile(proposedName(m_around.order.orderNumber()) + "." + m_dialog->defaultSuffix());
    ask(*m_dialog, "SaveOrder", [this](const QString& file) { save(pathFromQt(file)); });
}

void ListDesk::ask(QFileDialog& dialog, const char* name,
                   const std::function<void(const QString& file)>& chosen) {
    dialog.setObjectName(name);
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    if (m_folder.isEmpty())
        dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    connect(&dialog, &QDialog::accepted, this, m_around.guard([this, chosen, &dialog] {
        const auto files = dialog.selectedFiles();
        m_folder = dialog.directory().absolutePath();
        if (!files.isEmpty())
            chosen(files.front());
    }));
    dialog.open();
}

void ListDesk::save(const std::filesystem::path& file) {
    const auto name = base::textOf(file.filename());
    const bool isCsv = base::endsIgnoringCase(name, ".csv");
    if (!isCsv && !base::endsIgnoringCase(name, ".xlsx"))
        return m_around.messages.show(platform::Icon::exclamation, saveTitle,
                                      "Please choose a name that ends in .xlsx or .csv.");
    const auto totals = m_around.order.basket().totals();
    const auto rows = m_around.order.rowsNow();
    bool done = false;
    work(saveTitle, "Saving the order...", [&] {
        const auto lines = tableOf(m_around.catalog, rows);
        isCsv ? order::writeOrderCsv(file, lines) : order::writeOrderXlsx(file, lines, totals);
        done = true;
    });
    if (done && m_around.say)
        m_around.say("Saved " + sentenceOf(rows.size()) + " as " + pathToQt(file) + ".");
}

void ListDesk::copyOrder() {
    const auto rows = m_around.order.rowsNow();
    std::string text, html;
    work("Copy the order", "Copying the order...", [&] {
        const auto lines = tableOf(m_around.catalog, rows);
        text = order::orderAsTableText(lines);
        html = order::orderAsTableHtml(lines);
    });
    auto copied = std::make_unique<QMimeData>();
    copied->setText(QString::fromStdString(text));
    copied->setHtml(QString::fromStdString(html));
    QGuiApplication::clipboard()->setMimeData(copied.release());
    if (m_around.say)
        m_around.say("Copied " + sentenceOf(rows.size()) + ". Paste them into a spreadsheet or a message.");
}

// Keys and clicks wait meanwhile, so the order stays as it is.
void ListDesk::work(const char* title, const char* notice, const std::function<void()>& work) {
    try {
        const BusyNotice busy(notice, m_around.window);
        system::runInBackground(work, QEventLoop::ExcludeUserInputEvents);
    } catch (const base::FileError& error) {
        m_around.messages.show(platform::Icon::exclamation, title, error.what());
    }
}

}
