#include "ui/qt/group_boxes.h"

#include <QAbstractItemView>
#include <QIdentityProxyModel>
#include <QTest>
#include <gtest/gtest.h>

#include <random>

namespace {

/// Stands between a box and its entries and counts how often one is asked for.
class CountedEntries final : public QIdentityProxyModel {
public:
    explicit CountedEntries(QComboBox& box) {
        box.model()->setParent(this); // it would go with its place
        setSourceModel(box.model());
        box.setModel(this);
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        ++asked;
        return QIdentityProxyModel::data(index, role);
    }

    mutable int asked = 0;
};

std::vector<std::string> anyTexts(int count) {
    std::mt19937 any(7); // NOLINT: the same ones each time
    std::vector<std::string> texts(static_cast<std::size_t>(count));
    for (auto& text : texts)
        for (auto length = any() % 40; length > 0; --length)
            text += static_cast<char>(32 + any() % 224);
    return texts;
}

std::vector<pages::GroupEntry> entriesOf(const std::vector<std::string>& texts) {
    std::vector<pages::GroupEntry> entries;
    for (const auto& text : texts)
        entries.push_back({text, 1});
    return entries;
}

TEST(GroupBox, OpensWithoutAskingForEntriesThatAreNotSeen) {
    const auto texts = anyTexts(20'000);
    ui::qt::GroupBox box(nullptr);
    box.showEntries(entriesOf(texts));
    box.show();
    CountedEntries entries(box);
    box.showPopup();
    (void)box.view()->grab();
    EXPECT_LT(entries.asked, 1000);
    EXPECT_LE(box.view()->height(), 26 * box.view()->sizeHintForIndex(entries.index(0, 0)).height());
}

TEST(GroupBox, HasRoomForEachText) {
    ui::qt::GroupBox box(nullptr);
    box.show();
    for (const auto& text : anyTexts(300)) {
        const std::vector texts{std::string("Short"), text};
        box.showEntries(entriesOf(texts));
        box.showPopup();
        EXPECT_GE(box.view()->viewport()->width(),
                  box.view()->sizeHintForIndex(box.model()->index(1, 0)).width())
            << text;
        box.hidePopup();
    }
}

}
