#include "ui/system/mail/plain_text.h"

#include "base/code_page.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

namespace ui::system {
namespace {

QStringList linesOf(QTextFrame::iterator at);

QString rowOf(const QTextTable& table, int row) {
    QStringList cells;
    for (int column = 0; column < table.columns(); ++column) {
        const auto cell = table.cellAt(row, column);
        if (cell.row() == row && cell.column() == column) // once, however far it spans
            cells += linesOf(cell.begin()).join(' ').trimmed();
    }
    return cells.join('\t');
}

QStringList linesOf(const QTextTable& table) {
    QStringList lines;
    for (int row = 0; row < table.rows(); ++row)
        if (table.columns() == 1) // it only places what it holds
            lines += linesOf(table.cellAt(row, 0).begin());
        else
            lines += rowOf(table, row);
    return lines;
}

QStringList linesOf(QTextFrame::iterator at) {
    QStringList lines;
    for (; !at.atEnd(); ++at) {
        if (const auto* table = qobject_cast<QTextTable*>(at.currentFrame()))
            lines += linesOf(*table);
        else if (const auto* frame = at.currentFrame())
            lines += linesOf(frame->begin());
        else
            lines += at.currentBlock().text().split(QChar::LineSeparator);
    }
    return lines;
}

QString shownText(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    auto text = linesOf(document.rootFrame()->begin()).join('\n');
    text.replace(QChar::Nbsp, ' ').remove(QChar::ObjectReplacementCharacter);
    return text.trimmed() + '\n';
}

}

QString plainText(const platform::Mail& mail) {
    const auto body = QString::fromStdString(base::shownAsUtf8(mail.body));
    return mail.isHtml ? shownText(body) : QString(body).replace("\r\n", "\n");
}

}
