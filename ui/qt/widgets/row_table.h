#pragma once

#include <QTableView>

namespace ui::qt {

/// A table to read and to choose whole rows in, whose rows are of one height, so that a hundred thousand of
/// them cost no more than ten. Tab leaves it; copying gives the chosen rows as lines with tabs between their
/// cells.
class RowTable : public QTableView {
    Q_OBJECT

public:
    RowTable(const QString& name, const QString& accessibleName, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void copySelection() const;
};

}
