#pragma once

#include <QLineEdit>

#include <string>

namespace ui::qt {

/// The editor of a quantity cell. It shows all that is typed; whether the catalogue sells it can be asked.
class QuantityEditor final : public QLineEdit {
    Q_OBJECT

public:
    QuantityEditor(int decimals, QWidget* parent);

    /// What was typed, as the order takes it.
    [[nodiscard]] std::string quantity() const;

    /// Why the catalogue does not sell what was typed; empty when it does, and when nothing was typed.
    [[nodiscard]] QString complaint() const;

    /// Marks the quantity as refused until something else is typed.
    void markRefused(const QString& why);

private:
    void unmark();

    int m_decimals;
};

}
