#include "ui/system/mail/plain_text.h"

#include "base/code_page.h"
#include "ui/system/mail/html_text.h"

namespace ui::system {

QString plainText(const platform::Mail& mail) {
    const auto body = base::shownAsUtf8(mail.body);
    return mail.isHtml ? QString::fromStdString(textOfHtml(body))
                       : QString::fromStdString(body).replace("\r\n", "\n");
}

}
