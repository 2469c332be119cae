#include "order/exchange/order_text.h"

#include "base/code_page.h"
#include "base/files.h"
#include "base/html.h"
#include "base/text.h"
#include "order/exchange/list_quantity.h"
#include "order/exchange/plain_text.h"

#include <functional>

namespace order {
namespace {

std::string quoted(const std::string& text) {
    return '"' + base::replaceAll(text, "\"", "\"\"") + '"';
}

// Every text in quotation marks, so that blanks at its ends stay.
std::string csvField(const std::string& text, CellKind kind) {
    if (kind == CellKind::text)
        return quoted(guardedText(text));
    return kind == CellKind::quantity ? clearQuantity(text) : text;
}

// Other programs take quotation marks as they are, so only a text with one is quoted.
std::string tabField(const std::string& text, CellKind kind) {
    const auto guarded = csvField(text, kind);
    const bool hasQuote = text.find('"') != std::string::npos;
    return kind == CellKind::text && !hasQuote ? guarded.substr(1, guarded.size() - 2) : guarded;
}

using Field = std::function<std::string(const std::string& text, CellKind kind)>;

std::string delimited(const OrderTable& table, char delimiter, std::string_view lineEnd, const Field& field) {
    std::string text;
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        text.append(i > 0 ? 1 : 0, delimiter).append(field(table.columns[i].heading, CellKind::text));
    text += lineEnd;
    for (const auto& row : table.rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            text.append(i > 0 ? 1 : 0, delimiter).append(field(row[i], table.columns[i].kind));
        text += lineEnd;
    }
    return base::shownAsUtf8(text);
}

std::string escaped(const std::string& text) {
    return base::asHtml(base::shownAsUtf8(guardedText(text)));
}

std::string_view numberFormatOf(CellKind kind) {
    return kind == CellKind::money || kind == CellKind::price ? "0.00" : "General";
}

// Spreadsheets read a number out of its attribute, without the decimal point that their country has, and
// leave the zeros in front of a text that is marked as one.
std::string htmlCell(const std::string& text, CellKind kind) {
    if (kind == CellKind::text)
        return "<td sdnum=\"1033;0;@\" style=\"mso-number-format:'\\@'\">" + escaped(text) + "</td>";
    if (text.empty())
        return "<td></td>";
    return "<td align=\"right\" sdval=\"" + text + "\" sdnum=\"1033;0;" + std::string(numberFormatOf(kind)) +
           "\" x:num=\"" + text + "\">" + text + "</td>";
}

}

void writeOrderCsv(const std::filesystem::path& file, const OrderTable& table) {
    base::replaceFile(file, "\xEF\xBB\xBF" + delimited(table, ';', "\r\n", csvField));
}

std::string orderAsTableText(const OrderTable& table) {
    return delimited(table, '\t', "\n", tabField);
}

std::string orderAsTableHtml(const OrderTable& table) {
    std::string html =
        "<html xmlns:x=\"urn:schemas-microsoft-com:office:excel\"><head><meta charset=\"utf-8\">"
        "</head><body><table><tr>";
    for (const auto& column : table.columns)
        html += "<th>" + escaped(column.heading) + "</th>";
    html += "</tr>\n";
    for (const auto& row : table.rows) {
        html += "<tr>";
        for (std::size_t i = 0; i < row.size(); ++i)
            html += htmlCell(row[i], table.columns[i].kind);
        html += "</tr>\n";
    }
    return html + "</table></body></html>\n";
}

}
