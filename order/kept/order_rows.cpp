#include "order/kept/order_rows.h"

#include "base/code_page.h"
#include "base/numbers.h"
#include "base/text.h"
#include "order/kept/kept_database.h"
#include "order/kept/time_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace order {
namespace {

/// How an order left, as the database says it.
constexpr std::array<std::string_view, 4> departures{"printed", "saved as PDF", "mailed", "draft opened"};

constexpr std::array lineTexts{
    &DocumentRow::quantity, &DocumentRow::code,  &DocumentRow::description, &DocumentRow::other,
    &DocumentRow::taxRate,  &DocumentRow::price, &DocumentRow::tax,         &DocumentRow::amount,
};

constexpr std::string_view lineColumns =
    "quantity, code, description, other, tax_rate, price, tax, amount, unit_price";

std::string insertOrderText() {
    return "insert into orders(supplier, catalogue, left_at, departure, destination, number, order_date, "
           "delivery_date, comment, " +
           addressNames() +
           ", asked_for_exemption, tax_exempt, line_count, total, total_cents, tax_total, tax_cents) "
           "values(?, ?, ?, ?, ?, ?, ?, ?, ?, " +
           addressMarks() + ", ?, ?, ?, ?, ?, ?, ?)";
}

std::string selectOrderText() {
    return "select supplier, catalogue, left_at, departure, destination, number, order_date, delivery_date, "
           "comment, asked_for_exemption, tax_exempt, total, tax_total, " +
           addressNames() + " from orders where id = ?";
}

// Nothing for more than anybody has.
std::optional<std::int64_t> centsOf(double money) {
    constexpr double most = 9e18;
    const auto cents = std::round(money * 100);
    return std::fabs(cents) < most ? std::optional(static_cast<std::int64_t>(cents)) : std::nullopt;
}

double moneyOf(std::string_view text) {
    return base::parseNumber(base::replaceAll(text, ",", ""));
}

std::string textOf(const SqlStatement& row, int column) {
    return base::fromUtf8(row.text(column));
}

Departure departureOf(std::string_view text) {
    const auto* const found = std::find(departures.begin(), departures.end(), text);
    return found == departures.end() ? Departure::printed
                                     : static_cast<Departure>(found - departures.begin());
}

void insertHead(const SqlDatabase& sql, const KeptOrder& order) {
    const auto& contents = order.contents;
    auto insert = sql.prepare(insertOrderText());
    for (const auto& text :
         {storedText(order.supplier), storedText(order.catalogName), timeText(order.left),
          std::string(departures.at(static_cast<std::size_t>(order.departure))), storedText(order.where),
          storedText(contents.orderNumber), storedText(contents.today), storedText(contents.deliveryDate),
          storedText(contents.comment)})
        insert.bind(text);
    for (const auto& column : addressColumns)
        insert.bind(storedText(contents.details.*column.text));
    insert.bind(std::int64_t{contents.details.taxExempt})
        .bind(std::int64_t{contents.taxStatus == TaxStatus::exempt})
        .bind(static_cast<std::int64_t>(contents.rows.size()))
        .bind(base::groupedText(contents.totals.order))
        .bind(centsOf(contents.totals.order))
        .bind(base::groupedText(contents.totals.tax))
        .bind(centsOf(contents.totals.tax))
        .run();
}

void insertLines(const SqlDatabase& sql, std::int64_t id, const std::vector<DocumentRow>& rows) {
    auto insert = sql.prepare("insert into lines(order_id, position, " + std::string(lineColumns) +
                              ") values(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    std::int64_t position = 0;
    for (const auto& row : rows) {
        insert.bind(id).bind(++position);
        for (const auto text : lineTexts)
            insert.bind(storedText(row.*text));
        insert.bind(std::isnan(row.unitPrice) ? 0.0 : double{row.unitPrice}).run();
    }
}

void insertCodes(const SqlDatabase& sql, const KeptOrder& order) {
    auto insert = sql.prepare("insert or ignore into ordered_codes(supplier, code) values(?, ?)");
    for (const auto& row : order.contents.rows)
        if (!row.code.empty())
            insert.bind(storedText(order.supplier)).bind(storedText(base::upper(row.code))).run();
}

/// Everything by which the order is found.
std::string wordsOf(const KeptOrder& order) {
    const auto& contents = order.contents;
    std::string words;
    for (const auto* text : {&contents.orderNumber, &order.supplier, &order.catalogName, &order.where,
                             &contents.comment, &contents.deliveryDate})
        words.append(*text).append("\n");
    for (const auto& column : addressColumns)
        words.append(contents.details.*column.text).append("\n");
    for (const auto& row : contents.rows)
        words.append(row.code)
            .append("\n")
            .append(row.description)
            .append("\n")
            .append(row.other)
            .append("\n");
    return storedText(words);
}

std::vector<DocumentRow> readLines(const SqlDatabase& sql, std::int64_t id) {
    auto select = sql.prepare("select " + std::string(lineColumns) +
                              " from lines where order_id = ? order by position");
    select.bind(id);
    std::vector<DocumentRow> rows;
    while (select.next()) {
        int column = 0;
        auto& row = rows.emplace_back();
        for (const auto text : lineTexts)
            row.*text = textOf(select, column++);
        row.unitPrice = static_cast<float>(select.real(column));
    }
    return rows;
}

OrderDocument readDocument(const SqlDatabase& sql, std::int64_t id) {
    auto select = sql.prepare("select text, is_html from documents where order_id = ?");
    select.bind(id);
    return select.next() ? OrderDocument{textOf(select, 0), select.number(1) != 0} : OrderDocument();
}

void readHead(const SqlStatement& row, KeptOrder& order) {
    auto& contents = order.contents;
    order.supplier = textOf(row, 0);
    order.catalogName = textOf(row, 1);
    order.left = timeOf(row.text(2)).value_or(order.left);
    order.departure = departureOf(row.text(3));
    int column = 4;
    for (auto* text :
         {&order.where, &contents.orderNumber, &contents.today, &contents.deliveryDate, &contents.comment})
        *text = textOf(row, column++);
    contents.details.taxExempt = row.number(column++) != 0;
    contents.taxStatus = row.number(column++) != 0 ? TaxStatus::exempt : TaxStatus::taxed;
    contents.totals.order = moneyOf(row.text(column++));
    contents.totals.tax = moneyOf(row.text(column++));
    for (const auto& address : addressColumns)
        contents.details.*address.text = textOf(row, column++);
}

}

KeptOrderHead headOf(const SqlStatement& row) {
    return {row.number(0),
            textOf(row, 1),
            textOf(row, 2),
            timeOf(row.text(3)).value_or(std::chrono::system_clock::time_point()),
            departureOf(row.text(4)),
            textOf(row, 5),
            row.number(6),
            moneyOf(row.text(7))};
}

std::int64_t insertOrder(const SqlDatabase& sql, const KeptOrder& order) {
    insertHead(sql, order);
    const auto id = sql.lastId();
    insertLines(sql, id, order.contents.rows);
    insertCodes(sql, order);
    sql.prepare("insert into documents(order_id, is_html, text) values(?, ?, ?)")
        .bind(id)
        .bind(std::int64_t{order.document.isHtml})
        .bind(base::toUtf8(order.document.text))
        .run();
    sql.prepare("insert into order_words(rowid, words) values(?, ?)").bind(id).bind(wordsOf(order)).run();
    return id;
}

std::optional<KeptOrder> readOrder(const SqlDatabase& sql, std::int64_t id) {
    auto select = sql.prepare(selectOrderText());
    select.bind(id);
    if (!select.next())
        return std::nullopt;
    KeptOrder order;
    readHead(select, order);
    order.contents.rows = readLines(sql, id);
    order.document = readDocument(sql, id);
    return order;
}

}
