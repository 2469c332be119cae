#include "tour/layout_check.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTableView>
#include <QWebEngineView>

#include <algorithm>

namespace tour {
namespace {

constexpr int longestWholeHeading = 11; // characters
constexpr int shownOfAnEntry = 8;       // of a list, in characters; the open list shows all of it

QString nameOf(const QWidget& widget) {
    const auto name = widget.objectName().isEmpty() ? "?" : widget.objectName();
    return widget.window()->objectName() + "/" + widget.metaObject()->className() + " " + name;
}

QString text(QSize size) {
    return QString("%1 x %2").arg(size.width()).arg(size.height());
}

/// Walks through one window and writes down what it finds.
class Check {
public:
    explicit Check(QStringList& faults) : m_faults(faults) {}

    void window(const QWidget& window) {
        const auto frame = window.frameGeometry();
        if (!window.screen()->availableGeometry().contains(frame))
            complain(window, "is not wholly on the screen: " + text(frame.size()) +
                                 QString(" at %1, %2").arg(frame.x()).arg(frame.y()));
        inside(window);
    }

private:
    void complain(const QWidget& widget, const QString& what) {
        m_faults.append(nameOf(widget) + " " + what);
    }

    static QList<QWidget*> visibleChildren(const QWidget& parent) {
        QList<QWidget*> children;
        for (auto* child : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (child->isVisible() && !child->isWindow() && !child->size().isEmpty())
                children.append(child);
        return children;
    }

    // What a widget of the toolkit is made of inside is its own affair.
    void inside(const QWidget& parent) {
        if (const auto* scrolled = qobject_cast<const QScrollArea*>(&parent)) {
            inside(*scrolled->widget());
            return;
        }
        texts(parent);
        for (const auto* toolkit : {"QAbstractScrollArea", "QComboBox", "QLineEdit", "QWebEngineView"})
            if (parent.inherits(toolkit))
                return;
        const auto children = visibleChildren(parent);
        for (qsizetype i = 0; i < children.size(); ++i) {
            const auto& child = *children[i];
            if (!parent.rect().contains(child.geometry()))
                complain(child, "leaves the widget it lies in");
            for (qsizetype j = i + 1; j < children.size(); ++j)
                if (child.geometry().intersects(children[j]->geometry()))
                    complain(child, "lies over " + nameOf(*children[j]));
            inside(child);
        }
    }

    void texts(const QWidget& widget) {
        if (const auto* label = qobject_cast<const QLabel*>(&widget))
            fits(widget,
                 label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint());
        else if (qobject_cast<const QAbstractButton*>(&widget))
            fits(widget, widget.sizeHint());
        else if (const auto* box = qobject_cast<const QComboBox*>(&widget))
            currentText(*box);
        else if (const auto* edit = qobject_cast<const QLineEdit*>(&widget))
            fits(widget, {widget.fontMetrics().horizontalAdvance(edit->placeholderText()),
                          widget.minimumSizeHint().height()});
        else if (const auto* table = qobject_cast<const QTableView*>(&widget))
            cells(*table);
    }

    void fits(const QWidget& widget, QSize needed) {
        if (needed.width() > widget.width() || needed.height() > widget.height())
            complain(widget, "needs " + text(needed) + " and has " + text(widget.size()));
    }

    void currentText(const QComboBox& box) {
        QStyleOptionComboBox option;
        option.initFrom(&box);
        const auto field =
            box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
        const auto shown = box.currentIndex() < 0 ? box.placeholderText() : box.currentText();
        const auto metrics = box.fontMetrics();
        const int beginning = metrics.averageCharWidth() * shownOfAnEntry;
        if (field.width() < std::min(metrics.horizontalAdvance(shown), beginning))
            complain(box, "cuts off: " + shown);
    }

    // Texts and long headings may be cut off (a tip shows them whole), numbers not.
    void cells(const QTableView& table) {
        const auto& model = *table.model();
        for (int column = 0; column < model.columnCount(); ++column) {
            if (table.isColumnHidden(column))
                continue;
            const auto caption = model.headerData(column, Qt::Horizontal).toString();
            if (caption.size() <= longestWholeHeading &&
                table.fontMetrics().horizontalAdvance(caption) > table.columnWidth(column))
                complain(table, "cuts off the heading " + caption);
            const auto alignment = model.index(0, column).data(Qt::TextAlignmentRole).toInt();
            if (alignment & Qt::AlignRight)
                numbers(table, column);
        }
    }

    void numbers(const QTableView& table, int column) {
        const int last = table.rowAt(table.viewport()->height() - 1);
        const int end = last < 0 ? table.model()->rowCount() : last + 1;
        for (int row = std::max(0, table.rowAt(0)); row < end; ++row)
            if (const auto cell = table.model()->index(row, column);
                table.sizeHintForIndex(cell).width() > table.columnWidth(column))
                complain(table, "cuts off the number " + cell.data().toString());
    }

    QStringList& m_faults;
};

bool isShownByItself(const QWidget& window) {
    return window.isVisible() && window.windowType() != Qt::Popup && window.windowType() != Qt::ToolTip;
}

}

QStringList layoutFaults() {
    QStringList faults;
    for (const auto* window : QApplication::topLevelWidgets())
        if (isShownByItself(*window))
            Check(faults).window(*window);
    return faults;
}

}
