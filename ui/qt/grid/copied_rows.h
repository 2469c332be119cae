#pragma once

#include "ui/qt/grid/grid_model.h"

#include <QMimeData>
#include <QPointer>

#include <vector>

namespace ui::qt {

/// Some columns of neighbouring rows.
struct RowBlock {
    int first;
    int last;
    std::vector<int> columns;
};

/// The rows as lines, their cells separated by tabs.
[[nodiscard]] QString textOf(const GridModel& model, const RowBlock& block);

/// Rows on the clipboard whose text is made when it is pasted, as it is then: that of a million rows would
/// stay in memory for nothing. When the model is gone there is none. For a model that keeps its rows.
class CopiedRows final : public QMimeData {
    Q_OBJECT

public:
    CopiedRows(const GridModel& model, RowBlock block) : m_model(&model), m_block(std::move(block)) {}

    [[nodiscard]] QStringList formats() const override { return {"text/plain"}; }

    [[nodiscard]] bool hasFormat(const QString& type) const override { return formats().contains(type); }

protected:
    QVariant retrieveData(const QString& type, QMetaType preferred) const override;

private:
    QPointer<const GridModel> m_model;
    RowBlock m_block;
};

}
