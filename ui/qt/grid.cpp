#include "ui/qt/grid.h"

#include "ui/qt/busy_notice.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QProgressDialog>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr int quantityColumn = 0;
constexpr int rowsBetweenReports = 2000;
constexpr int longCopyMs = 400;

bool startsQuantity(const QKeyEvent& event) {
    const auto text = event.text();
    return text.size() == 1 && (text[0].isDigit() || text[0] == '.') &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}

}

Grid::Grid(const QString& name, const QString& accessibleName, QWidget* parent) : QTableView(parent) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ContiguousSelection);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsMovable(false);
    horizontalHeader()->setTextElideMode(Qt::ElideRight);
    fit();
}

void Grid::open(GridModel* model) {
    m_model = model;
    model->setParent(this);
    setModel(model);
    m_cells = new CellDelegate(model->columns(), this);
    setItemDelegate(m_cells);
    connect(m_cells, &CellDelegate::moveAsked, this, &Grid::moveBy);
    m_widths = new ColumnWidths(*horizontalHeader(), model->columns());
    fit();
}

void Grid::fit() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    if (m_widths)
        m_widths->fit(viewport()->width());
}

void Grid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fit();
}

void Grid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fit();
}

void Grid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (m_rowsAreSound())
        return;
    QPainter(viewport()).fillRect(viewport()->rect(), palette().base());
    emit rowsNotSound();
}

void Grid::commitPending() {
    if (m_cells)
        m_cells->commitPending();
}

void Grid::moveBy(int rows) {
    const int row = std::clamp(currentIndex().row() + rows, 0, model()->rowCount() - 1);
    setCurrentIndex(model()->index(row, quantityColumn));
}

void Grid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        copySelection();
    else if (event->matches(QKeySequence::Paste))
        pasteQuantities();
    else if (startsQuantity(*event) || event->key() == Qt::Key_F2)
        startQuantity(event);
    else
        QTableView::keyPressEvent(event);
}

// The key that starts the edit is its first character; F2 edits what is there.
void Grid::startQuantity(QKeyEvent* event) {
    const int row = currentIndex().row();
    if (!m_model || row < 0 || !m_model->takesQuantity(row))
        return;
    setCurrentIndex(m_model->index(row, quantityColumn));
    const bool typed = event->key() != Qt::Key_F2;
    edit(currentIndex(), AllEditTriggers, nullptr);
    if (editor() && typed) {
        editor()->clear();
        QApplication::sendEvent(editor(), event);
    }
}

// What is in the clipboard stays there unless all of it has been copied.
void Grid::copySelection() {
    auto rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    QProgressDialog progress("Copying rows...", "Cancel", 0, static_cast<int>(rows.size()), window());
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(longCopyMs);
    for (const auto& row : rows) {
        if (lines.size() % rowsBetweenReports == 0)
            progress.setValue(static_cast<int>(lines.size()));
        if (progress.wasCanceled())
            return;
        QStringList cells;
        for (int column = 0; column < model()->columnCount(); ++column)
            if (!isColumnHidden(column))
                cells.append(row.siblingAtColumn(column).data().toString());
        lines.append(cells.join('\t'));
    }
    QApplication::clipboard()->setText(lines.join('\n'));
}

// One line a row from the current one on; of a line with several cells the first is the quantity. A line
// that no editor would take, an empty one among them, leaves its row alone.
void Grid::pasteQuantities() {
    if (!m_model || !currentIndex().isValid())
        return;
    const BusyNotice notice("Pasting quantities...", *window());
    const auto pattern = quantityPattern(m_model->quantityDecimals());
    int row = currentIndex().row();
    for (const auto& line : QApplication::clipboard()->text().split('\n')) {
        const auto quantity = line.section('\t', 0, 0).trimmed();
        if (row < m_model->rowCount() && !quantity.isEmpty() && pattern.match(quantity).hasMatch())
            m_model->setData(m_model->index(row, quantityColumn), quantity, Qt::EditRole);
        ++row;
    }
}

}
