#pragma once

#include <QObject>

namespace ui::qt {

/// While it lives, Alt with a button's letter presses the button at once, in all windows of the program. The
/// toolkit shows it pressed for a tenth of a second first, and what is typed meanwhile overtakes it.
class PromptLetters final : public QObject {
    Q_OBJECT

public:
    PromptLetters();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}
