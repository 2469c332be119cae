#pragma once

#include "order/delivery_details.h"
#include "ui/qt/order/date_box.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QWidget>

#include <vector>

namespace ui::qt {

/// The delivery details of the order view. A box that gets the focus has its whole text selected; Enter
/// goes on to the next box, and in the comments Ctrl+Enter starts a new line. A box whose text is kept takes
/// no more than can be. The boxes stand in two columns, or in one where two would be too narrow to type in.
class DetailsForm final : public QWidget {
    Q_OBJECT

public:
    explicit DetailsForm(QWidget* parent);

    /// The tax status is the check box `cbTax`'s and stays as it is.
    void show(const order::DeliveryDetails& details);
    using QWidget::show;
    void readInto(order::DeliveryDetails& details) const;

    /// Puts the boxes into as many columns as so many pixels have room for.
    void fitInto(int width);

    /// The least width in pixels that one column needs.
    [[nodiscard]] int narrowest() const;

    void focusFirst();

    /// Shows the button "Addresses" in the title's line, which opens this menu.
    void offerAddresses(QMenu* menu);

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

    /// A label with its box, and where they stand when there are two columns.
    struct Line {
        QLabel* label;
        QWidget* field;
        int row;
        int column;
    };

    void addBoxes();
    void addKept(QLineEdit* edit, std::string order::DeliveryDetails::*detail);
    void addComment();
    void watch(QWidget* box);
    void arrange(int columns);
    [[nodiscard]] int labelWidth(int column) const;
    [[nodiscard]] int boxWidth(int column) const;
    [[nodiscard]] int gaps(int count) const;

    QLabel* m_title;
    QToolButton* m_addresses;
    std::vector<Line> m_lines;
    int m_columns = 0;
    std::vector<Box> m_boxes;
    QLineEdit* m_orderNumber = nullptr;
    QPlainTextEdit* m_comment = nullptr;
    DateBoxRow* m_date = nullptr;
    QGridLayout* m_layout;
};

}
