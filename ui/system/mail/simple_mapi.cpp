#include "ui/system/mail/simple_mapi.h"

namespace ui::system::mapi {
namespace {

template <typename Char>
struct Texts {
    std::basic_string<Char> name;
    std::basic_string<Char> address;
    std::basic_string<Char> subject;
    std::basic_string<Char> text;
};

template <typename Char>
std::uint32_t send(SendMail<Char> sendMail, const Texts<Char>& texts, std::uint32_t flags) {
    Recipient<Char> recipient;
    recipient.kind = to;
    recipient.name = texts.name.c_str();
    recipient.address = texts.address.c_str();
    Message<Char> message;
    message.subject = texts.subject.c_str();
    message.noteText = texts.text.c_str();
    message.recipientCount = 1;
    message.recipients = &recipient;
    return sendMail(0, 0, &message, flags, 0);
}

}

std::uint32_t send(const Functions& functions, const Note& note) {
    auto result = unicodeNotSupported;
    if (functions.sendMailW != nullptr)
        result = send<char16_t>(functions.sendMailW, {note.to, u"SMTP:" + note.to, note.subject, note.text},
                                logonUi | forceUnicode);
    if (result != unicodeNotSupported)
        return result;
    if (functions.sendMail == nullptr)
        return failure;
    auto* const toAnsi = functions.toAnsi;
    return send<char>(functions.sendMail,
                      {toAnsi(note.to), "SMTP:" + toAnsi(note.to), toAnsi(note.subject), toAnsi(note.text)},
                      logonUi);
}

}
