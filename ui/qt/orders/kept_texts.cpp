#include "ui/qt/orders/kept_texts.h"

#include "base/code_page.h"
#include "base/html.h"
#include "base/numbers.h"
#include "base/text.h"
#include "ui/qt/widgets/qt_text.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

#include <algorithm>

namespace ui::qt {
namespace {

using order::Departure;

constexpr auto lineFeed = "\n";

QString shortTime(const QTime& time) {
    const auto system = QLocale::system();
    return system.timeFormat(QLocale::ShortFormat) == QLocale::c().timeFormat(QLocale::ShortFormat)
               ? time.toString("HH:mm")
               : system.toString(time, QLocale::ShortFormat);
}

// The parts that are there, with a comma between them.
QString joined(std::initializer_list<std::string_view> parts) {
    QStringList there;
    for (const auto part : parts)
        if (!base::trim(part).empty())
            there << toQt(base::trim(part)).simplified();
    return there.join(", ");
}

void addLine(QStringList& lines, const QString& caption, const QString& text) {
    if (!text.isEmpty())
        lines << caption + text;
}

QString addressText(const order::DeliveryDetails& details) {
    return joined({details.business, details.attention, details.street, details.city, details.state,
                   details.zip, details.country, details.phone});
}

bool beginsAWord(const QString& text, const QString& start) {
    for (auto at = text.indexOf(start, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(start, at + 1, Qt::CaseInsensitive))
        if (at == 0 || !text[at - 1].isLetterOrNumber())
            return true;
    return false;
}

bool hasQuantity(const order::DocumentRow& row) {
    return base::parseNumber(base::replaceAll(row.quantity, ",", ".")) > 0;
}

}

QString departureText(Departure departure) {
    switch (departure) {
    case Departure::printed:
        return "Printed";
    case Departure::savedAsPdf:
        return "Saved as PDF";
    case Departure::mailed:
        return "E-mailed";
    case Departure::draftOpened:
        return "Opened as a draft";
    }
    return {};
}

QString departureText(const order::KeptOrder& order) {
    const auto how = departureText(order.departure);
    const auto where = toQt(order.where).simplified();
    if (where.isEmpty())
        return how;
    if (order.departure == Departure::savedAsPdf)
        return how + ": " + where;
    return how + (order.departure == Departure::printed ? " on " : " to ") + where;
}

QString momentText(std::chrono::system_clock::time_point moment) {
    const auto local = localTime(moment);
    return shortDate(local.date()) + " " + shortTime(local.time());
}

QString orderText(const order::KeptOrder& order) {
    const auto& contents = order.contents;
    QStringList lines{toQt(order.catalogName).simplified() + ", " + momentText(order.left) + ". " +
                      departureText(order) + "."};
    addLine(lines, "Order number: ", toQt(contents.orderNumber).simplified());
    addLine(lines, "Deliver to: ", addressText(contents.details));
    if (contents.deliveryDate != "00/00/00")
        addLine(lines, "Delivery date: ", toQt(contents.deliveryDate).simplified());
    addLine(lines, "Comments: ", toQt(base::trim(contents.comment)));
    return lines.join(lineFeed);
}

QString orderText(const order::UnfinishedOrder& order) {
    return toQt(order.owner.catalogName).simplified() + ", typed last " + momentText(order.changed) +
           ". It is not finished and has not left.";
}

QString totalsText(const order::Totals& totals) {
    const auto total = "Total " + toQt(base::groupedText(totals.order));
    return totals.tax == 0 ? total : total + ", of which tax " + toQt(base::groupedText(totals.tax));
}

std::string documentPage(const order::OrderDocument& document) {
    if (document.isHtml)
        return document.text;
    return "<!DOCTYPE html><meta charset=\"utf-8\"><pre style=\"white-space:pre-wrap\">" +
           base::asHtml(base::shownAsUtf8(document.text)) + "</pre>";
}

std::vector<WantedLine> wantedAgain(const std::vector<order::DocumentRow>& rows,
                                    std::span<const int> chosen) {
    std::vector<WantedLine> lines;
    const auto add = [&](const order::DocumentRow& row) {
        if (hasQuantity(row))
            lines.push_back({row.code, row.quantity, row.description, row.unitPrice});
    };
    if (chosen.empty())
        std::for_each(rows.begin(), rows.end(), add);
    for (const int row : chosen)
        add(rows.at(static_cast<std::size_t>(row)));
    return lines;
}

bool holdsWords(const order::UnfinishedOrder& order, const QString& text) {
    static const QRegularExpression blanks("\\s+");
    const auto words = text.split(blanks, Qt::SkipEmptyParts);
    return std::all_of(words.begin(), words.end(), [&](const QString& word) {
        return std::any_of(order.lines.begin(), order.lines.end(), [&](const auto& line) {
            return beginsAWord(toQt(line.code), word) || beginsAWord(toQt(line.description), word);
        });
    });
}

}
