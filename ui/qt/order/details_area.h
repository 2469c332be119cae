#pragma once

#include "ui/qt/order/details_form.h"

#include <QScrollArea>

namespace ui::qt {

/// The delivery details at their full height, or, where the window is too low for that, as a part that
/// follows the focus.
class DetailsArea final : public QScrollArea {
    Q_OBJECT

public:
    explicit DetailsArea(QWidget* parent);

    [[nodiscard]] DetailsForm& form() { return *m_form; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void follow(QWidget* focus);

    DetailsForm* m_form;
};

}
