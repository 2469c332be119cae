#pragma once

#include "ui/grid_columns.h"
#include "ui/order_row.h"

#include <QAbstractTableModel>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ui::qt {

/// What both grids' models have in common: columns, alignments, the ordered row's colour, and a first
/// column that takes quantities. A cell is worked out when it is asked for; nothing is kept for a row.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QuantityHandler = std::function<void(int row, std::string_view text)>;

    GridModel(std::vector<Column> columns, int quantityDecimals, QObject* parent);

    [[nodiscard]] const std::vector<Column>& columns() const { return m_columns; }

    [[nodiscard]] int quantityDecimals() const { return m_quantityDecimals; }

    [[nodiscard]] virtual bool takesQuantity(int row) const = 0;

    /// Whether there is the same record in each row as long as the model lives.
    [[nodiscard]] virtual bool keepsRows() const = 0;

    /// Hears every quantity that an editor or a paste hands over. It is the handler who says `rowChanged`.
    void onQuantity(QuantityHandler handler) { m_quantityHandler = std::move(handler); }

    void rowChanged(int row);
    void allRowsChanged();

    /// The text of a cell, in the code page.
    [[nodiscard]] std::string cellText(int row, int column) const {
        return cell(row, m_columns.at(static_cast<std::size_t>(column)).field);
    }

    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

protected:
    [[nodiscard]] virtual std::string cell(int row, Field field) const = 0;
    [[nodiscard]] virtual bool isHeading(int row) const = 0;
    [[nodiscard]] virtual RowColour colour(int row) const = 0;

private:
    [[nodiscard]] QVariant font(int row, Field field) const;

    std::vector<Column> m_columns;
    int m_quantityDecimals;
    QuantityHandler m_quantityHandler;
};

}
