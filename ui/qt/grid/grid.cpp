#include "ui/qt/grid/grid.h"

#include "ui/qt/grid/copied_rows.h"
#include "ui/qt/widgets/busy_notice.h"
#include "ui/qt/widgets/qt_text.h"
#include "ui/quantity.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr int quantityColumn = 0;
constexpr int mostRowsAsText = 20'000;
constexpr int paintPauseMs = 33;

// A sign too: without it the digits behind it would be another quantity.
bool startsQuantity(const QKeyEvent& event) {
    const auto text = event.text();
    return text.size() == 1 && (text[0].isDigit() || QString(".,+-").contains(text[0])) &&
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
    m_paintPause.setSingleShot(true);
    connect(&m_paintPause, &QTimer::timeout, this, [this] {
        setUpdatesEnabled(true);
        repaint(); // at once: the next key would come before
    });
    fit();
}

void Grid::open(GridModel* model) {
    m_model = model;
    model->setParent(this);
    setModel(model);
    // With the grid's own the header would ask every marked row whether it may be, each time it is painted.
    horizontalHeader()->setSelectionModel(new QItemSelectionModel(model, horizontalHeader()));
    m_cells = new CellDelegate(model->columns(), this);
    setItemDelegate(m_cells);
    connect(m_cells, &CellDelegate::moveAsked, this, &Grid::moveBy);
    connect(m_cells, &CellDelegate::refused, this,
            [this](const QString& why) { hint(why, visualRect(m_cells->edited())); });
    connect(m_cells, &CellDelegate::typingChanged, this, [this] {
        if (editor())
            dismissHint();
        emit typingChanged();
    });
    m_widths = new ColumnWidths(*horizontalHeader(), model->columns());
    fit();
}

void Grid::fit() {
    const auto height = fontMetrics().height() * 3 / 2;
    if (verticalHeader()->defaultSectionSize() != height) // the header goes through all rows for it
        verticalHeader()->setDefaultSectionSize(height);
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

std::optional<TypedQuantity> Grid::typedQuantity() const {
    const auto* typed = m_cells ? m_cells->editor() : nullptr;
    if (!typed || !m_cells->edited().isValid() || !typed->isModified() || !typed->complaint().isEmpty())
        return std::nullopt;
    return TypedQuantity{m_cells->edited().row(), typed->quantity()};
}

bool Grid::takePending() {
    return !m_cells || m_cells->takePending();
}

void Grid::closePending() {
    if (m_cells)
        m_cells->closePending();
}

// However an editor comes to be closed, with Escape excepted, this comes first.
void Grid::commitData(QWidget* editor) {
    const auto* quantity = qobject_cast<QuantityEditor*>(editor);
    const auto why = quantity ? quantity->complaint() : QString();
    if (!why.isEmpty())
        hint(why + ". The old quantity stays.", editor->geometry());
    QTableView::commitData(editor);
}

void Grid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    if (hint == QAbstractItemDelegate::RevertModelCache)
        dismissHint();
    QTableView::closeEditor(editor, hint);
}

void Grid::hint(const QString& text, const QRect& cell) {
    if (!m_hint)
        m_hint = new Hint(*this);
    m_hint->say(text, {viewport()->mapToGlobal(cell.topLeft()), cell.size()});
}

void Grid::dismissHint() {
    if (m_hint)
        m_hint->hide();
}

void Grid::moveBy(int rows) {
    const int row = std::clamp(currentIndex().row() + rows, 0, model()->rowCount() - 1);
    setCurrentIndex(model()->index(row, quantityColumn));
}

void Grid::keyPressEvent(QKeyEvent* event) {
    dismissHint();
    if (event->matches(QKeySequence::Copy))
        copySelection();
    else if (event->matches(QKeySequence::Paste))
        pasteQuantities();
    else if (startsQuantity(*event) || event->key() == Qt::Key_F2)
        startQuantity(event);
    else {
        if (event->isAutoRepeat())
            paintSeldom();
        QTableView::keyPressEvent(event);
    }
}

// The browser, which shares this thread, does one small thing each time that the event loop comes round. Were
// the window painted for every row that a held key passes, no page would come up meanwhile.
void Grid::paintSeldom() {
    if (m_paintPause.isActive())
        return;
    setUpdatesEnabled(false);
    m_paintPause.start(paintPauseMs);
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

void Grid::copySelection() {
    const auto selected = selectionModel()->selection();
    if (!m_model || selected.isEmpty())
        return;
    RowBlock block{selected.first().top(), selected.first().bottom(), {}};
    for (int column = 0; column < m_model->columnCount(); ++column)
        if (!isColumnHidden(column))
            block.columns.push_back(column);
    if (!m_model->keepsRows() || block.last - block.first < mostRowsAsText)
        QApplication::clipboard()->setText(textOf(*m_model, block));
    else
        QApplication::clipboard()->setMimeData(new CopiedRows(*m_model, std::move(block)));
}

// One line a row from the current one on; of a line with several cells the first is the quantity. A line
// that is not taken leaves its row alone, and so does an empty one.
void Grid::pasteQuantities() {
    if (!m_model || !currentIndex().isValid())
        return;
    const BusyNotice notice("Pasting quantities...", *window());
    const auto first = currentIndex();
    int row = first.row();
    int quantities = 0;
    int refused = 0;
    for (const auto& line : QApplication::clipboard()->text().split('\n')) {
        const auto quantity = line.section('\t', 0, 0).trimmed();
        if (!quantity.isEmpty()) {
            ++quantities;
            refused += pasteQuantity(row, quantity) ? 0 : 1;
        }
        ++row;
    }
    if (refused > 0)
        hint(QString("Not taken: %1 of %2 quantities").arg(refused).arg(quantities), visualRect(first));
}

bool Grid::pasteQuantity(int row, const QString& quantity) {
    const auto typed = fromQt(quantity);
    return row < m_model->rowCount() && !quantityComplaint(typed, m_model->quantityDecimals()) &&
           m_model->setData(m_model->index(row, quantityColumn), toQt(quantityOf(typed)), Qt::EditRole);
}

}
