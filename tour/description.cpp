#include "tour/description.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>

#include <algorithm>
#include <fstream>

namespace tour {
namespace {

constexpr int describedRows = 5;

QString oneLine(QString text) {
    return text.replace('\n', " / ");
}

QString rowOf(const QTableView& table, int row) {
    QStringList cells;
    for (int column = 0; column < table.model()->columnCount(); ++column)
        if (!table.isColumnHidden(column))
            cells.append(row < 0 ? table.model()->headerData(column, Qt::Horizontal).toString()
                                 : table.model()->index(row, column).data().toString());
    return cells.join(" | ");
}

QString described(const QTableView& table) {
    if (!table.model())
        return {};
    QStringList rows{"row " + QString::number(table.currentIndex().row())};
    const int first = std::max(0, table.rowAt(0));
    for (int row = -1; row < std::min(describedRows, table.model()->rowCount() - first); ++row)
        rows.append(rowOf(table, row < 0 ? -1 : first + row));
    return rows.join("\n    ");
}

QString textOf(const QWidget& widget, const PageTexts& pages) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return oneLine(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text() + (button->isChecked() ? " (ticked)" : "");
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget))
        return edit->text().isEmpty() ? edit->placeholderText() : edit->text();
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        return box->currentIndex() < 0 ? box->placeholderText() : box->currentText();
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&widget))
        return oneLine(edit->toPlainText());
    if (const auto* table = qobject_cast<const QTableView*>(&widget))
        return described(*table);
    if (const auto* view = qobject_cast<const QWebEngineView*>(&widget))
        return oneLine(pages.of(*view));
    return {};
}

// In the order in which widgets were made; what the toolkit makes inside its own has no name.
void describe(const QWidget& widget, const PageTexts& pages, QStringList& lines) {
    for (const auto* child : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (!child->isVisible() || child->isWindow())
            continue;
        if (const auto text = textOf(*child, pages); !text.isEmpty())
            lines.append("  " + child->objectName() + ": " + text + (child->isEnabled() ? "" : " (greyed)"));
        if (!child->inherits("QAbstractScrollArea") || child->inherits("QScrollArea"))
            describe(*child, pages, lines);
    }
}

}

void PageTexts::ask() {
    m_texts->clear();
    for (auto* widget : QApplication::allWidgets())
        if (auto* view = qobject_cast<QWebEngineView*>(widget); view && view->isVisible()) {
            m_texts->emplace(view, std::nullopt);
            view->page()->toPlainText(
                [texts = m_texts, view](const QString& text) { (*texts)[view] = text; });
        }
}

bool PageTexts::areThere() const {
    return std::all_of(m_texts->begin(), m_texts->end(),
                       [](const auto& text) { return text.second.has_value(); });
}

QString PageTexts::of(const QWebEngineView& view) const {
    const auto found = m_texts->find(&view);
    return found == m_texts->end() ? QString() : found->second.value_or(QString());
}

QString describeScreen(const PageTexts& pages) {
    auto windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* window) {
        return !window->isVisible() || window->windowType() == Qt::Popup ||
               window->windowType() == Qt::ToolTip;
    });
    std::sort(windows.begin(), windows.end(),
              [](const QWidget* a, const QWidget* b) { return a->objectName() < b->objectName(); });
    QStringList lines;
    for (const auto* window : windows) {
        lines.append(window->objectName() + " \"" + window->windowTitle() + "\"");
        describe(*window, pages, lines);
    }
    return lines.join('\n') + '\n';
}

void writeDescription(const std::filesystem::path& file, const QString& description) {
    std::ofstream(file, std::ios::binary) << description.toStdString();
}

}
