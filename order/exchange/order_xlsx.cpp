#include "order/exchange/order_xlsx.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/money.h"
#include "order/exchange/plain_text.h"
#include "tables/table.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>
#include <xlsxwriter.h>

namespace order {
namespace fs = std::filesystem;

namespace {

constexpr lxw_col_t widest = 60;           // characters
constexpr lxw_col_t narrowest = 8;         // characters
constexpr std::size_t rowsBesideLines = 2; // headings and totals

[[noreturn]] void fail(const fs::path& file) {
    throw base::FileError("Cannot write " + base::textOf(file) +
                          "\nPlease check that the disk is not full and that you may write there");
}

// A text as a cell takes it. One with an apostrophe in front gets a second, since our reader takes one away.
std::string cellText(const std::string& text) {
    const auto guarded = guardedText(text);
    const bool isGuardKept = text.starts_with('\'');
    return base::shownAsUtf8(isGuardKept || guarded.size() == text.size() ? guarded : guarded.substr(1));
}

/// One workbook, written when it is closed. What it cannot hold is noticed when the file is read again.
class Workbook {
public:
    Workbook(const std::string& file, std::string scratch) : m_scratch(std::move(scratch)) {
        lxw_workbook_options options{};
        options.tmpdir = m_scratch.data();
        m_book = workbook_new_opt(file.c_str(), &options);
        m_sheet = m_book ? workbook_add_worksheet(m_book, "Order") : nullptr;
    }

    ~Workbook() { (void)close(); }

    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    [[nodiscard]] bool close() {
        return m_book && workbook_close(std::exchange(m_book, nullptr)) == LXW_NO_ERROR;
    }

    void write(const OrderTable& table, const Totals& totals) {
        if (!m_sheet)
            return;
        makeFormats();
        writeHeadings(table);
        for (std::size_t row = 0; row < table.rows.size(); ++row)
            for (std::size_t column = 0; column < table.columns.size(); ++column)
                writeCell(row + 1, column, table.rows[row][column], table.columns[column].kind);
        writeTotals(table, totals);
        worksheet_freeze_panes(m_sheet, 1, 0);
        worksheet_repeat_rows(m_sheet, 0, 0);
        worksheet_set_landscape(m_sheet);
        worksheet_fit_to_pages(m_sheet, 1, 0);
    }

private:
    void makeFormats() {
        m_bold = workbook_add_format(m_book);
        format_set_bold(m_bold);
        m_money = workbook_add_format(m_book);
        format_set_num_format(m_money, "#,##0.00");
        m_price = workbook_add_format(m_book);
        format_set_num_format(m_price, "#,##0.00####");
        m_total = workbook_add_format(m_book);
        format_set_num_format(m_total, "#,##0.00");
        format_set_bold(m_total);
    }

    [[nodiscard]] lxw_format* formatOf(CellKind kind) const {
        if (kind == CellKind::money)
            return m_money;
        return kind == CellKind::price ? m_price : nullptr;
    }

    void writeHeadings(const OrderTable& table) {
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const auto column = static_cast<lxw_col_t>(i);
            worksheet_write_string(m_sheet, 0, column, cellText(table.columns[i].heading).c_str(), m_bold);
            worksheet_set_column(m_sheet, column, column, widthOf(table, i), nullptr);
        }
    }

    [[nodiscard]] static double widthOf(const OrderTable& table, std::size_t column) {
        std::size_t longest = std::max<std::size_t>(narrowest, table.columns[column].heading.size());
        for (const auto& row : table.rows)
            longest = std::max(longest, row[column].size());
        return static_cast<double>(std::min<std::size_t>(longest, widest)) + 1;
    }

    void writeCell(std::size_t row, std::size_t column, const std::string& text, CellKind kind) {
        if (text.empty())
            return;
        const auto sheetRow = static_cast<lxw_row_t>(row);
        const auto sheetColumn = static_cast<lxw_col_t>(column);
        if (kind == CellKind::text)
            worksheet_write_string(m_sheet, sheetRow, sheetColumn, cellText(text).c_str(), nullptr);
        else
            worksheet_write_number(m_sheet, sheetRow, sheetColumn, base::parseNumber(text), formatOf(kind));
    }

    // The tax stands left of the total, where there is one.
    void writeTotals(const OrderTable& table, const Totals& totals) {
        const auto row = static_cast<lxw_row_t>(table.rows.size() + 1);
        auto column = table.columns.size();
        for (const double sum : {totals.order, totals.tax})
            if (column > 0 && table.columns[--column].kind == CellKind::money)
                worksheet_write_number(m_sheet, row, static_cast<lxw_col_t>(column), sum, m_total);
        worksheet_write_string(m_sheet, row, 0, "Total", m_bold);
    }

    std::string m_scratch;
    lxw_workbook* m_book;
    lxw_worksheet* m_sheet;
    lxw_format* m_bold = nullptr;
    lxw_format* m_money = nullptr;
    lxw_format* m_price = nullptr;
    lxw_format* m_total = nullptr;
};

// A full disk can leave a sheet that ends early, without a complaint of the library.
bool isWhole(const fs::path& file, const OrderTable& table) {
    try {
        const auto written = tables::openTables(file);
        return written.tables.size() == 1 &&
               written.tables[0].table->count() == table.rows.size() + rowsBesideLines;
    } catch (const base::FileError&) {
        return false;
    }
}

/// The file beside the one that is to be replaced.
class Beside {
public:
    explicit Beside(const fs::path& file) : m_path(base::behindLinks(file).concat(base::unfinishedEnding)) {}

    ~Beside() {
        std::error_code ignored;
        fs::remove(m_path, ignored);
    }

    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;

    [[nodiscard]] const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
};

std::string xlsxBytes(const fs::path& file, const OrderTable& table, const Totals& totals) {
    const Beside beside(file);
    Workbook book(beside.path().string(), beside.path().parent_path().string());
    book.write(table, totals);
    if (!book.close() || !isWhole(beside.path(), table))
        fail(file);
    return base::readFile(beside.path()).value_or(std::string());
}

}

bool canWriteXlsx() {
    return true;
}

void writeOrderXlsx(const fs::path& file, const OrderTable& table, const Totals& totals) {
    if (table.rows.size() + rowsBesideLines > tables::mostSheetRows)
        throw base::FileError("The order has more lines than a sheet can hold\nPlease save it as .csv");
    const auto bytes = xlsxBytes(file, table, totals);
    if (bytes.empty())
        fail(file);
    base::replaceFile(file, bytes);
}

}
