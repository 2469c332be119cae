#pragma once

#include "ui/qt/widgets/guard.h"

#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include <deque>
#include <functional>
#include <vector>

namespace ui::qt {

/// A sentence for the user and what can be done about it.
struct Offer {
    struct Choice {
        QString name; ///< the button's object name
        QString caption;
        std::function<void()> act; ///< runs when the offer is off the bar
    };

    QString sentence{};
    std::vector<Choice> choices{};
    std::function<void()> onClosed{}; ///< its closing button was pressed, or the window is closing
};

/// A quiet line above the grids. It shows one offer at a time, until a choice is made or it is closed; the
/// others wait for their turn. It never takes the focus, and Tab leads to its buttons.
class OfferBar final : public QWidget {
    Q_OBJECT

public:
    OfferBar(Guard& guard, QWidget* parent);

    void offer(Offer offer);

    /// Before those that wait, once the choice that is being made is over.
    void offerNext(Offer offer);

    void say(const QString& sentence) { offer({.sentence = sentence}); }

    /// Every offer counts as closed.
    void closeAll();

private:
    void showNext();
    void showCurrent();
    void choose(std::size_t choice);
    void endCurrent();
    void closeCurrent();

    Guard& m_guard;
    QLabel* m_sentence;
    QWidget* m_choices;
    QToolButton* m_close;
    std::deque<Offer> m_offers; // the one that is shown first
    bool m_choosing = false;
};

}
