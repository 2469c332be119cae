#include "ui/qt/grid/column_widths.h"

#include "ui/qt/widgets/qt_text.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr int widest = 10000;
constexpr int cellPadding = 8;

}

ColumnWidths::ColumnWidths(QHeaderView& header, const std::vector<Column>& columns)
    : QObject(&header), m_header(header), m_columns(columns), m_chosen(columns.size()) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int section = static_cast<int>(i);
        header.setSectionHidden(section, !columns[i].shown);
        header.setSectionResizeMode(section, columns[i].widthInUnits > 0 ? QHeaderView::Interactive
                                                                         : QHeaderView::Fixed);
    }
    connect(&header, &QHeaderView::sectionResized, this, [this](int section, int, int width) {
        if (m_fitting || width == 0)
            return;
        m_chosen.at(static_cast<std::size_t>(section)) = width;
        fit(m_room);
    });
}

ColumnRoom ColumnWidths::roomOf(std::size_t column) const {
    const auto& [designed, chosen] = std::pair(m_columns[column], m_chosen[column]);
    if (!designed.shown)
        return {0, 0};
    if (chosen > 0)
        return {chosen, chosen};
    const auto metrics = m_header.fontMetrics();
    const int unit = metrics.averageCharWidth();
    const int digit = designed.decimals >= 0 ? metrics.horizontalAdvance('0') : unit;
    const int least = designed.narrowest * digit + cellPadding;
    if (designed.widthInUnits == 0)
        return {0, least};
    const int wanted = std::max(designed.widthInUnits * unit + cellPadding, least);
    const int caption = metrics.horizontalAdvance(toQt(designed.caption)) + cellPadding;
    return {wanted, std::clamp(caption, least, wanted)};
}

void ColumnWidths::fit(int room) {
    const QScopedValueRollback fitting(m_fitting, true);
    m_room = room;
    m_header.setMinimumSectionSize(3 * m_header.fontMetrics().averageCharWidth());
    std::vector<ColumnRoom> columns;
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        columns.push_back(roomOf(i));
    const auto widths = fittedWidths(columns, room);
    for (std::size_t i = 0; i < widths.size(); ++i)
        if (widths[i] > 0)
            m_header.resizeSection(static_cast<int>(i), widths[i]);
}

void ColumnWidths::choose(const std::vector<int>& widths) {
    if (widths.size() != m_columns.size())
        return;
    for (std::size_t i = 0; i < widths.size(); ++i)
        if (widths[i] > 0 && widths[i] < widest && m_columns[i].widthInUnits > 0)
            m_chosen[i] = widths[i];
    fit(m_room);
}

}
