#pragma once

#include <QDateEdit>
#include <QDialog>

#include <chrono>

namespace ui::qt {

/// Asks for the day before which orders are deleted. A year ago is proposed.
class DeleteBeforeDialog final : public QDialog {
    Q_OBJECT

public:
    /// `whose` names the supplier.
    DeleteBeforeDialog(const QString& whose, QWidget* parent);

    [[nodiscard]] QDate date() const { return m_date->date(); }

    /// The day's beginning by the local clock.
    [[nodiscard]] std::chrono::system_clock::time_point before() const;

private:
    QDateEdit* m_date;
};

}
