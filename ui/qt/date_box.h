#pragma once

#include "order/delivery_date.h"

#include <QLineEdit>

#include <array>

namespace ui::qt {

/// One of the three boxes `txDel` of the delivery date. It takes digits only; Delete works, Backspace does
/// nothing. Entry ends with the second digit. The box that gets the focus has its whole text selected.
class DateBox final : public QLineEdit {
    Q_OBJECT

public:
    DateBox(int number, QWidget* parent);

signals:
    void entryEnded();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

/// The delivery date: three boxes that lead from one to the next and keep the focus while what they hold
/// is no day or month.
class DateBoxRow final : public QWidget {
    Q_OBJECT

public:
    explicit DateBoxRow(QWidget* parent);

    /// DD/MM/YY, as `txDelDate` holds it.
    [[nodiscard]] QString date() const { return m_date->text(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] order::DateBoxes texts() const;
    void endEntry(std::size_t box);
    void assemble();

    std::array<DateBox*, 3> m_boxes{};
    QLineEdit* m_date;
};

}
