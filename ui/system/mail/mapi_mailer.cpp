#include "ui/system/mail/mapi_mailer.h"

#include "base/code_page.h"
#include "ui/system/background_work.h"
#include "ui/system/mail/plain_text.h"

#include <QString>

namespace ui::system {

platform::Mailer::Outcome MapiMailer::send(const platform::Mail& mail) {
    const auto text = [](const std::string& shown) {
        return QString::fromStdString(base::shownAsUtf8(shown)).toStdU16String();
    };
    auto result = mapi::failure;
    runInBackground(
        [&] {
            const mapi::Note note{text(mail.to), text(mail.subject),
                                  plainText(mail).replace("\n", "\r\n").toStdU16String()};
            result = mapi::send(m_functions, note);
        },
        QEventLoop::ExcludeUserInputEvents);
    return result == mapi::success ? Outcome::placed : Outcome::failed;
}

}
