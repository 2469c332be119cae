#include "ui/qt/orders/chosen_order.h"

#include "ui/qt/orders/kept_texts.h"
#include "ui/qt/orders/order_table.h"

#include <QItemSelectionModel>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace ui::qt {
namespace {

constexpr int fewestLines = 4;
constexpr qsizetype longestText = 2000; // a comment may be as long as a book

QLabel* textLabel(const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

QString shortened(const QString& text) {
    return text.size() <= longestText ? text : text.left(longestText) + "...";
}

}

ChosenOrder::ChosenOrder(QWidget* parent)
    : QWidget(parent),
      m_text(textLabel("OrderText", this)),
      m_model(new OrderLinesModel(this)),
      m_lines(orderTable("OrderLines", "Lines of the order", m_model, this)),
      m_totals(textLabel("OrderTotals", this)) {
    m_lines->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_lines->setMinimumHeight(fontMetrics().height() * fewestLines);
    setColumnWidths(*m_lines, {12, 18, 0, 14, 10, 12, 12, 14});
    m_totals->setAlignment(Qt::AlignRight);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addWidget(m_lines, 1);
    layout->addWidget(m_totals);
    connect(m_lines->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ChosenOrder::markedChanged);
}

void ChosenOrder::show(order::KeptOrder& order) {
    m_text->setText(shortened(orderText(order)));
    m_totals->setText(totalsText(order.contents.totals));
    m_model->show(std::move(order.contents.rows));
    showUsedColumns();
}

void ChosenOrder::show(const order::UnfinishedOrder& order) {
    m_text->setText(shortened(orderText(order)));
    m_totals->setText(totalsText({order.total, 0}));
    m_model->show(order.lines);
    showUsedColumns();
}

void ChosenOrder::showNothing(const QString& sentence) {
    m_text->setText(sentence);
    m_totals->clear();
    m_model->show(std::vector<order::DocumentRow>());
}

void ChosenOrder::showUsedColumns() {
    for (int column = 0; column < m_model->columnCount(); ++column)
        m_lines->setColumnHidden(column, !m_model->isUsed(column));
}

std::vector<int> ChosenOrder::marked() const {
    std::vector<int> rows;
    for (const auto& index : m_lines->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

}
