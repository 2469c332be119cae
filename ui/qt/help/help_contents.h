#pragma once

#include "ui/help/help_book.h"
#include "ui/help/help_trail.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QWidget>

namespace ui::qt {

/// The left side of the help window: the pages of the book with their sections, or, while something is
/// searched for, the pages that hold it. What is marked in the lists is shown at once.
class HelpContents final : public QWidget {
    Q_OBJECT

public:
    /// The book must outlive it.
    HelpContents(const HelpBook& book, QWidget* parent);

    /// Puts the focus into the search box, its text selected.
    void focusSearch();

    /// Marks in the contents what is shown by other ways.
    void follow(const HelpPlace& place);

signals:
    void placeChosen(const ui::HelpPlace& place);
    /// A page that was found, and what to mark on it.
    void hitChosen(const ui::HelpPlace& place, const QString& marked);
    void searchCleared();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fill();
    void search();
    void addHit(std::string_view title);
    void chooseHit(int row);

    const HelpBook& m_book;
    std::vector<HelpHit> m_found;
    QLineEdit* m_phrase;
    QLabel* m_count;
    QStackedWidget* m_lists;
    QTreeWidget* m_contents;
    QListWidget* m_hits;
};

}
