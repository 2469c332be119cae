#pragma once

#include "pages/browse/group_lists.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QFontMetricsF>
#include <QWidget>

#include <array>

namespace ui::qt {

/// The entries of one group list. Texts are read when they are painted.
class GroupEntriesModel final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setEntries(const std::vector<pages::GroupEntry>& entries);
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    /// The room that the widest text takes; rather too much than too little.
    [[nodiscard]] double widest(const QFontMetricsF& metrics) const;

private:
    std::vector<pages::GroupEntry> m_entries;
};

/// A list that tells when somebody is about to look into it. The wheel turns it only while it has the focus,
/// so that a hand that scrolls past it chooses nothing.
class GroupBox final : public QComboBox {
    Q_OBJECT

public:
    explicit GroupBox(QWidget* parent);

    void showEntries(const std::vector<pages::GroupEntry>& entries);
    void showPopup() override;

signals:
    void entered();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void makeRoomForTexts();

    GroupEntriesModel* m_entries;
};

/// The row of group lists `GDB(0)` to `GDB(3)`.
class GroupBoxes final : public QWidget {
    Q_OBJECT

public:
    explicit GroupBoxes(QWidget* parent);

    /// Fills the first list. The lists must outlive this widget's use.
    void open(pages::GroupLists& lists);

signals:
    /// A record number in Prdlst.dat.
    void chosen(int record);

private:
    [[nodiscard]] GroupBox* boxAt(int list) const { return m_boxes.at(static_cast<std::size_t>(list)); }

    void enter(int list);
    void choose(int list, int entry);

    pages::GroupLists* m_lists = nullptr;
    std::array<GroupBox*, pages::groupListCount> m_boxes{};
};

}
