#include "ui/qt/widgets/row_table.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace ui::qt {
namespace {

// A tab or a line feed would end the cell.
QString oneCell(QString text) {
    return text.replace('\t', ' ').replace('\r', ' ').replace('\n', ' ');
}

}

RowTable::RowTable(const QString& name, const QString& accessibleName, QWidget* parent) : QTableView(parent) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    horizontalHeader()->setHighlightSections(false);
}

void RowTable::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        copySelection();
    else
        QTableView::keyPressEvent(event);
}

// The selection comes as ranges: a list of its cells would be long.
void RowTable::copySelection() const {
    auto ranges = selectionModel()->selection();
    std::sort(ranges.begin(), ranges.end(), [](const auto& a, const auto& b) { return a.top() < b.top(); });
    QString copied;
    for (const auto& range : std::as_const(ranges))
        for (int row = range.top(); row <= range.bottom(); ++row) {
            QStringList cells;
            for (int column = 0; column < model()->columnCount(); ++column)
                if (!isColumnHidden(column))
                    cells << oneCell(model()->index(row, column).data().toString());
            copied += cells.join('\t') + '\n';
        }
    if (!copied.isEmpty())
        QApplication::clipboard()->setText(copied);
}

}
