#include "ui/qt/order/details_area.h"

#include <QApplication>
#include <QEvent>

namespace ui::qt {
namespace {

constexpr int fewestLines = 5;

}

DetailsArea::DetailsArea(QWidget* parent) : QScrollArea(parent), m_form(new DetailsForm(this)) {
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    setWidget(m_form);
    m_form->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
}

QSize DetailsArea::sizeHint() const {
    return m_form->sizeHint();
}

QSize DetailsArea::minimumSizeHint() const {
    return {m_form->narrowest(), fontMetrics().lineSpacing() * fewestLines};
}

// Its height follows the form's, whose lines may stand in one column or in two.
bool DetailsArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_form && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

void DetailsArea::resizeEvent(QResizeEvent* event) {
    m_form->fitInto(viewport()->width());
    QScrollArea::resizeEvent(event);
}

// The whole box, not only its cursor.
void DetailsArea::follow(QWidget* focus) {
    if (!focus || !m_form->isAncestorOf(focus))
        return;
    const auto centre = focus->mapTo(m_form, focus->rect().center());
    ensureVisible(centre.x(), centre.y(), 0, (focus->height() + fontMetrics().height()) / 2);
}

}
