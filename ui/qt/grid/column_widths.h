#pragma once

#include "ui/grid_columns.h"

#include <QHeaderView>
#include <QObject>

#include <vector>

namespace ui::qt {

/// How wide the columns of a grid are: as designed, narrower where the grid is, and each exactly as wide as
/// the user has made it.
class ColumnWidths final : public QObject {
    Q_OBJECT

public:
    /// The columns must outlive it.
    ColumnWidths(QHeaderView& header, const std::vector<Column>& columns);

    /// To be called whenever the pixels there are for the columns have changed, or the font.
    void fit(int room);

    /// The user's own widths in pixels, by column; 0 where there is none.
    [[nodiscard]] const std::vector<int>& chosen() const { return m_chosen; }

    /// A list of another number of columns is not taken, nor is a width that makes no sense.
    void choose(const std::vector<int>& widths);

private:
    [[nodiscard]] ColumnRoom roomOf(std::size_t column) const;

    QHeaderView& m_header;
    const std::vector<Column>& m_columns;
    std::vector<int> m_chosen;
    int m_room = 0;
    bool m_fitting = false;
};

}
