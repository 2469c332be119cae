#include "ui/qt/grid/copied_rows.h"

#include "ui/qt/widgets/qt_text.h"

namespace ui::qt {
namespace {

constexpr std::size_t pieceLength = 1 << 16; // converted at a time

}

QString textOf(const GridModel& model, const RowBlock& block) {
    QString text;
    std::string piece;
    for (int row = block.first; row <= block.last; ++row) {
        const char* separator = row == block.first ? "" : "\n";
        for (const int column : block.columns) {
            piece.append(separator).append(model.cellText(row, column));
            separator = "\t";
        }
        if (piece.size() > pieceLength || row == block.last) {
            text += toQt(piece);
            piece.clear();
        }
    }
    return text;
}

QVariant CopiedRows::retrieveData(const QString& type, QMetaType) const {
    return m_model && hasFormat(type) ? QVariant(textOf(*m_model, m_block)) : QVariant();
}

}
