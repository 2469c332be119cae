#pragma once

#include "ui/article_suggestions.h"

#include <QListWidget>

#include <optional>

namespace ui::qt {

/// The articles that a text may mean, in a small window of their own over the box in which it is typed. It
/// never takes the keys: whoever owns the box hands on those that choose.
class SuggestionList final : public QListWidget {
    Q_OBJECT

public:
    /// The box must outlive it.
    SuggestionList(const catalog::Catalog& catalog, QWidget& box);

    /// Shows the articles, or nothing when there are none. What is chosen stays chosen as long as it is
    /// there.
    void show(const std::vector<std::int32_t>& products);

    /// Up or down; from the box itself to the first or the last.
    void step(int direction);

    [[nodiscard]] std::optional<std::int32_t> chosen() const;

signals:
    void clickedOn(int product);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void placeOverBox();

    const catalog::Catalog& m_catalog;
    QWidget& m_box;
};

}
