#include "ui/qt/widgets/prompt_letters.h"

#include <QAbstractButton>
#include <QApplication>
#include <QShortcutEvent>

namespace ui::qt {

PromptLetters::PromptLetters() {
    qApp->installEventFilter(this);
}

// A letter that several buttons have goes from one to the next, as everywhere. A tick takes the focus, as it
// does when it is clicked.
bool PromptLetters::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
        return false;
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (!button)
        return false;
    if (button->isCheckable() && button->focusPolicy() & Qt::ClickFocus)
        button->setFocus(Qt::ShortcutFocusReason);
    button->click();
    return true;
}

}
