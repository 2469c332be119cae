#include "ui/qt/keep/offer_bar.h"

#include "ui/qt/widgets/qt_text.h"

#include <QAccessible>
#include <QHBoxLayout>

#include <utility>

namespace ui::qt {
namespace {

/// The second press of a double click may meet the answer to another question.
class ChoiceButton final : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void mouseDoubleClickEvent(QMouseEvent*) override {}
};

}

OfferBar::OfferBar(Guard& guard, QWidget* parent)
    : QWidget(parent),
      m_guard(guard),
      m_sentence(new QLabel(this)),
      m_choices(new QWidget(this)),
      m_close(new QToolButton(this)) {
    setObjectName("OfferBar");
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    m_sentence->setObjectName("lbOffer");
    m_sentence->setTextFormat(Qt::PlainText);
    m_sentence->setWordWrap(true);
    m_sentence->setForegroundRole(QPalette::Text);
    m_close->setObjectName("OfferClose");
    m_close->setText(QChar(0x00D7));
    m_close->setAccessibleName("Close this line");
    m_close->setToolTip("Close this line");
    m_close->setAutoRaise(true);
    m_close->setFocusPolicy(Qt::TabFocus);
    connect(m_close, &QToolButton::clicked, this, m_guard([this] { closeCurrent(); }));
    auto* choices = new QHBoxLayout(m_choices);
    choices->setContentsMargins(0, 0, 0, 0);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 4, 6, 4);
    layout->addWidget(m_sentence, 1);
    layout->addWidget(m_choices);
    layout->addWidget(m_close);
    hide();
}

void OfferBar::offer(Offer offer) {
    m_offers.push_back(std::move(offer));
    if (m_offers.size() == 1 && !m_choosing)
        showCurrent();
}

void OfferBar::offerNext(Offer offer) {
    if (m_choosing || m_offers.empty())
        m_offers.push_front(std::move(offer));
    else
        m_offers.insert(m_offers.begin() + 1, std::move(offer));
    if (m_offers.size() == 1 && !m_choosing)
        showCurrent();
}

void OfferBar::showCurrent() {
    const auto* focus = window()->focusWidget();
    const bool hadFocus = focus && m_choices->isAncestorOf(focus);
    qDeleteAll(m_choices->findChildren<QPushButton*>(Qt::FindDirectChildrenOnly));
    const auto& offer = m_offers.front();
    m_sentence->setText(offer.sentence);
    for (std::size_t i = 0; i < offer.choices.size(); ++i) {
        auto* button = new ChoiceButton(asCaption(offer.choices[i].caption), m_choices);
        button->setObjectName(offer.choices[i].name);
        button->setFocusPolicy(Qt::TabFocus);
        // The button goes with its offer, so not within its own signal.
        connect(button, &QPushButton::clicked, this, m_guard([this, i] { choose(i); }), Qt::QueuedConnection);
        m_choices->layout()->addWidget(button);
    }
    m_choices->setVisible(!offer.choices.empty());
    show();
    if (hadFocus)
        m_close->setFocus();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

// Something else may be on the bar when a second click comes.
void OfferBar::choose(std::size_t choice) {
    if (m_offers.empty() || choice >= m_offers.front().choices.size())
        return;
    const auto act = m_offers.front().choices[choice].act;
    m_choosing = true;
    m_offers.pop_front();
    m_guard.run(act);
    m_choosing = false;
    showNext();
}

void OfferBar::endCurrent() {
    const auto onClosed = std::exchange(m_offers.front().onClosed, nullptr);
    m_offers.pop_front();
    if (onClosed)
        onClosed();
}

void OfferBar::closeCurrent() {
    endCurrent();
    showNext();
}

void OfferBar::closeAll() {
    while (!m_offers.empty())
        endCurrent();
    hide();
}

void OfferBar::showNext() {
    if (m_offers.empty())
        hide();
    else
        showCurrent();
}

}
