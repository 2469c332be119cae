#include "ui/system/mail/simple_mapi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#ifdef _WIN32
#include "ui/system/mail/mapi_client.h"

// clang-format off
#include <windows.h> // whose types the other needs
#include <mapi.h>
// clang-format on
#endif

namespace {

namespace mapi = ui::system::mapi;
using testing::ElementsAre;

/// What the mail program that stands in was given, in the order of the calls.
struct Call {
    std::string way;
    std::u16string name, address, subject, text;
    std::uint32_t flags;
    bool isPlain; ///< one recipient, no originator, no files, nothing reserved
};

std::vector<Call> calls;
std::uint32_t answer = mapi::success;
std::uint32_t unicodeAnswer = mapi::success;

template <typename Char>
std::uint32_t TAVORINE_MAPI_CALL record(std::uintptr_t session, std::uintptr_t window,
                                        mapi::Message<Char>* message, std::uint32_t flags,
                                        std::uint32_t reserved) {
    const auto text = [](const Char* units) {
        const std::basic_string_view<Char> all(units);
        return std::u16string(all.begin(), all.end());
    };
    const auto& recipient = *message->recipients;
    const bool isPlain = session == 0 && window == 0 && reserved == 0 && message->reserved == 0 &&
                         message->messageType == nullptr && message->flags == 0 &&
                         message->originator == nullptr && message->recipientCount == 1 &&
                         message->fileCount == 0 && message->files == nullptr && recipient.kind == 1 &&
                         recipient.reserved == 0 && recipient.entryIdSize == 0;
    constexpr bool isUnicode = sizeof(Char) > 1;
    calls.push_back({isUnicode ? "Unicode" : "ANSI", text(recipient.name), text(recipient.address),
                     text(message->subject), text(message->noteText), flags, isPlain});
    return isUnicode ? unicodeAnswer : answer;
}

std::string marked(std::u16string_view text) {
    return "<" + std::string(text.begin(), text.end()) + ">";
}

class SimpleMapi : public testing::Test {
protected:
    SimpleMapi() {
        calls.clear();
        answer = unicodeAnswer = mapi::success;
    }

    static std::vector<std::string> ways() {
        std::vector<std::string> all;
        for (const auto& call : calls)
            all.push_back(call.way);
        return all;
    }

    mapi::Functions functions{record<char16_t>, record<char>, marked};
    mapi::Note note{u"orders@smith.example", u"Order \u03C0", u"2 x H1\r\n"};
};

TEST_F(SimpleMapi, SendsOneNoteToOneAddressWithoutADialog) {
    EXPECT_EQ(mapi::send(functions, note), mapi::success);
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].way, "Unicode");
    EXPECT_EQ(calls[0].name, u"orders@smith.example");
    EXPECT_EQ(calls[0].address, u"SMTP:orders@smith.example");
    EXPECT_EQ(calls[0].subject, u"Order \u03C0");
    EXPECT_EQ(calls[0].text, u"2 x H1\r\n");
    EXPECT_EQ(calls[0].flags, 0x40001U);
    EXPECT_TRUE(calls[0].isPlain);
}

TEST_F(SimpleMapi, AMailProgramWithoutUnicodeGetsTheSystemsCodePage) {
    note.subject = u"Order";
    unicodeAnswer = mapi::unicodeNotSupported;
    EXPECT_EQ(mapi::send(functions, note), mapi::success);
    EXPECT_THAT(ways(), ElementsAre("Unicode", "ANSI"));
    EXPECT_EQ(calls[1].address, u"SMTP:<orders@smith.example>");
    EXPECT_EQ(calls[1].subject, u"<Order>");
    EXPECT_EQ(calls[1].text, u"<2 x H1\r\n>");
    EXPECT_EQ(calls[1].flags, 1U);
    EXPECT_TRUE(calls[1].isPlain);

    calls.clear();
    functions.sendMailW = nullptr;
    EXPECT_EQ(mapi::send(functions, note), mapi::success);
    EXPECT_THAT(ways(), ElementsAre("ANSI"));
}

TEST_F(SimpleMapi, OtherFailuresAreNotTriedAgain) {
    for (const std::uint32_t code : {1U, 2U, 3U, 18U, 26U}) {
        calls.clear();
        unicodeAnswer = code;
        EXPECT_EQ(mapi::send(functions, note), code);
        EXPECT_THAT(ways(), ElementsAre("Unicode"));
    }
    unicodeAnswer = mapi::unicodeNotSupported;
    answer = 3;
    EXPECT_EQ(mapi::send(functions, note), 3U);
    functions.sendMail = nullptr;
    EXPECT_EQ(mapi::send(functions, note), mapi::failure);
}

#ifdef _WIN32
template <typename Char>
constexpr bool layoutIsThatOfWindows() {
    using Message = mapi::Message<Char>;
    using Recipient = mapi::Recipient<Char>;
    return sizeof(Message) == sizeof(MapiMessage) && sizeof(Recipient) == sizeof(MapiRecipDesc) &&
           offsetof(Message, subject) == offsetof(MapiMessage, lpszSubject) &&
           offsetof(Message, noteText) == offsetof(MapiMessage, lpszNoteText) &&
           offsetof(Message, flags) == offsetof(MapiMessage, flFlags) &&
           offsetof(Message, originator) == offsetof(MapiMessage, lpOriginator) &&
           offsetof(Message, recipientCount) == offsetof(MapiMessage, nRecipCount) &&
           offsetof(Message, recipients) == offsetof(MapiMessage, lpRecips) &&
           offsetof(Message, fileCount) == offsetof(MapiMessage, nFileCount) &&
           offsetof(Message, files) == offsetof(MapiMessage, lpFiles) &&
           offsetof(Recipient, kind) == offsetof(MapiRecipDesc, ulRecipClass) &&
           offsetof(Recipient, name) == offsetof(MapiRecipDesc, lpszName) &&
           offsetof(Recipient, address) == offsetof(MapiRecipDesc, lpszAddress) &&
           offsetof(Recipient, entryIdSize) == offsetof(MapiRecipDesc, ulEIDSize) &&
           offsetof(Recipient, entryId) == offsetof(MapiRecipDesc, lpEntryID);
}

static_assert(layoutIsThatOfWindows<char>() && layoutIsThatOfWindows<char16_t>());
static_assert(sizeof(char16_t) == sizeof(wchar_t));
static_assert(mapi::to == MAPI_TO && mapi::logonUi == MAPI_LOGON_UI);
static_assert(mapi::failure == MAPI_E_FAILURE);

TEST(MapiClient, TextsOutsideTheCodePageBecomeReferences) {
    if (GetACP() == CP_UTF8)
        GTEST_SKIP() << "this system's code page has every character";
    EXPECT_EQ(mapi::toAnsi(u"a\r\nb &#960;"), "a\r\nb &#960;");
    EXPECT_EQ(mapi::toAnsi(u"\u2603|\U0001F600|\xD83D|"), "&#9731;|&#128512;|&#55357;|");
    if (GetACP() == 1252) {
        EXPECT_EQ(mapi::toAnsi(u"M\u00FCller \u20AC \u03C0 \u221E"), "M\xFCller \x80 &#960; &#8734;");
    }
}
#endif

}
