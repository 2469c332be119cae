#include "ui/qt/widgets/message_boxes.h"

#include "base/errors.h"
#include "ui/qt/widgets/qt_text.h"

#include <QApplication>
#include <QMessageBox>

namespace ui::qt {
namespace {

QMessageBox::Icon qtIcon(platform::Icon icon) {
    switch (icon) {
    case platform::Icon::information:
        return QMessageBox::Information;
    case platform::Icon::question:
        return QMessageBox::Question;
    case platform::Icon::exclamation:
        return QMessageBox::Warning;
    case platform::Icon::critical:
        return QMessageBox::Critical;
    case platform::Icon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

int exec(platform::Icon icon, std::string_view title, std::string_view text,
         QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton) {
    QMessageBox box(qtIcon(icon), asTitle(toQt(title)), toQt(text), buttons, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setDefaultButton(defaultButton);
    if (buttons.testFlag(QMessageBox::No))
        box.setEscapeButton(QMessageBox::No);
    return box.exec();
}

}

void MessageBoxes::show(platform::Icon icon, std::string_view title, std::string_view text) {
    if (!m_givenUp)
        exec(icon, title, text, QMessageBox::Ok, QMessageBox::Ok);
}

platform::Answer MessageBoxes::ask(platform::Icon icon, std::string_view title, std::string_view text,
                                   platform::Answer defaultAnswer) {
    const auto defaultButton = defaultAnswer == platform::Answer::yes ? QMessageBox::Yes : QMessageBox::No;
    const int pressed = m_givenUp
                            ? QMessageBox::No
                            : exec(icon, title, text, QMessageBox::Yes | QMessageBox::No, defaultButton);
    if (m_givenUp == Unanswered::endsProgram)
        throw base::Quit();
    return pressed == QMessageBox::Yes ? platform::Answer::yes : platform::Answer::no;
}

}
