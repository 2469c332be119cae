#pragma once

#include "order/delivery_date.h"

#include <QLineEdit>

#include <array>

namespace ui::qt {

/// One of the three boxes `txDel` of the delivery date. It takes digits only; Delete works, Backspace does
/// nothing. Entry ends with the second digit; Enter leads on as Tab does. The box that gets the focus has its
/// whole text selected.
class DateBox final : public QLineEdit {
    Q_OBJECT

public:
    DateBox(int number, QWidget* parent);

signals:
    void entryEnded();

    /// The focus has gone on inside the window.
    void left();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

/// The delivery date: three boxes that lead from one to the next. One that holds no day or month keeps the
/// focus, however the user tries to leave it.
class DateBoxRow final : public QWidget {
    Q_OBJECT

public:
    explicit DateBoxRow(QWidget* parent);

    /// DD/MM/YY of what the boxes show, as `txDelDate` holds it; empty until one is used.
    [[nodiscard]] QString date() const { return m_date->text(); }

private:
    [[nodiscard]] order::DateBoxes texts() const;
    [[nodiscard]] bool mayLeave(std::size_t box) const;
    void endEntry(std::size_t box);
    void leave(std::size_t box);
    void returnTo(DateBox& box);
    void assemble();

    std::array<DateBox*, 3> m_boxes{};
    QLineEdit* m_date;
    bool m_returning = false; // the focus is on its way back to a box
};

}
