#pragma once

#include "order/delivery_details.h"
#include "ui/qt/date_box.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QWidget>

#include <vector>

namespace ui::qt {

/// The delivery details of the order view. A box that gets the focus has its whole text selected; Enter
/// goes on to the next box, and in the comments Ctrl+Enter starts a new line.
class DetailsForm final : public QWidget {
    Q_OBJECT

public:
    explicit DetailsForm(QWidget* parent);

    /// The tax status is the check box `cbTax`'s and stays as it is.
    void show(const order::DeliveryDetails& details);
    using QWidget::show;
    void readInto(order::DeliveryDetails& details) const;

    void focusFirst();

    [[nodiscard]] QString orderNumber() const { return m_orderNumber->text(); }

    [[nodiscard]] QString comment() const { return m_comment->toPlainText(); }

    [[nodiscard]] QString deliveryDate() const { return m_date->date(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Box {
        QLineEdit* edit;
        std::string order::DeliveryDetails::*detail;
    };

    void addComment();
    void watch(QWidget* box);

    std::vector<Box> m_boxes;
    QLineEdit* m_orderNumber = nullptr;
    QPlainTextEdit* m_comment;
    DateBoxRow* m_date;
};

}
