#include "ui/qt/grid/quantity_editor.h"

#include "ui/qt/widgets/qt_text.h"
#include "ui/quantity.h"

namespace ui::qt {
namespace {

constexpr QColor refused(0xFF, 0xC0, 0xC0);

}

QuantityEditor::QuantityEditor(int decimals, QWidget* parent) : QLineEdit(parent), m_decimals(decimals) {
    setObjectName("quantity");
    setAccessibleName("Quantity");
    setFrame(false);
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textEdited, this, &QuantityEditor::unmark);
}

std::string QuantityEditor::quantity() const {
    return quantityOf(fromQt(text().trimmed()));
}

QString QuantityEditor::complaint() const {
    return isModified() ? toQt(quantityComplaint(quantity(), m_decimals).value_or("")) : QString();
}

void QuantityEditor::markRefused(const QString& why) {
    auto marked = palette();
    marked.setColor(QPalette::Base, refused);
    marked.setColor(QPalette::Text, Qt::black);
    setPalette(marked);
    setAccessibleDescription(why);
}

void QuantityEditor::unmark() {
    setPalette({});
    setAccessibleDescription({});
}

}
