#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace ui::qt {

/// Puts its items side by side and goes on in a further row where the width ends. What a row has left over
/// goes to the items in it that can grow; a hidden item takes no room.
class FlowLayout final : public QLayout {
    Q_OBJECT

public:
    explicit FlowLayout(QWidget* parent = nullptr);
    ~FlowLayout() override;

    void addLayout(QLayout* layout);
    void addStretch();

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

    [[nodiscard]] int heightForWidth(int width) const override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }

    [[nodiscard]] QSize minimumSize() const override;
    /// All in one row.
    [[nodiscard]] QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Row {
        std::vector<QLayoutItem*> items;
        int width = 0;
        int height = 0;
    };

    [[nodiscard]] std::vector<Row> rowsIn(int width) const;
    void placeRow(const Row& row, const QRect& place) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

}
