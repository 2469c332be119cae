#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Simple MAPI, by which Windows' programs hand mail to the user's mail program. Its structures are declared
/// here as its published interface lays them out, since not every compiler brings them; `Char` is `char` for
/// texts in the system's code page and `char16_t` for Unicode.
namespace ui::system::mapi {

#ifdef _WIN32
#define TAVORINE_MAPI_CALL __stdcall
#else
#define TAVORINE_MAPI_CALL
#endif

template <typename Char>
struct Recipient {
    std::uint32_t reserved = 0;
    std::uint32_t kind = 0;
    const Char* name = nullptr;
    const Char* address = nullptr;
    std::uint32_t entryIdSize = 0;
    void* entryId = nullptr;
};

template <typename Char>
struct Message {
    std::uint32_t reserved = 0;
    const Char* subject = nullptr;
    const Char* noteText = nullptr;
    const Char* messageType = nullptr;
    const Char* dateReceived = nullptr;
    const Char* conversationId = nullptr;
    std::uint32_t flags = 0;
    Recipient<Char>* originator = nullptr;
    std::uint32_t recipientCount = 0;
    Recipient<Char>* recipients = nullptr;
    std::uint32_t fileCount = 0;
    void* files = nullptr;
};

template <typename Char>
using SendMail = std::uint32_t(TAVORINE_MAPI_CALL*)(std::uintptr_t session, std::uintptr_t window,
                                                    Message<Char>* message, std::uint32_t flags,
                                                    std::uint32_t reserved);

inline constexpr std::uint32_t to = 1;
inline constexpr std::uint32_t logonUi = 0x1;
inline constexpr std::uint32_t forceUnicode = 0x40000;
inline constexpr std::uint32_t success = 0;
inline constexpr std::uint32_t failure = 2;
inline constexpr std::uint32_t unicodeNotSupported = 27;

/// What a mail program offers. `sendMail` may be all there is; it goes with `toAnsi`.
struct Functions {
    SendMail<char16_t> sendMailW = nullptr;
    SendMail<char> sendMail = nullptr;
    std::string (*toAnsi)(std::u16string_view text) = nullptr; ///< into the system's code page
};

/// A plain text to one recipient.
struct Note {
    std::u16string to; ///< an Internet address
    std::u16string subject;
    std::u16string text; ///< lines end in CR LF
};

/// Hands the note over without a window of its own; the mail program may ask the user to log on. A mail
/// program that takes no Unicode gets the system's code page. Returns `success` or MAPI's own number of the
/// failure. May take long.
[[nodiscard]] std::uint32_t send(const Functions& functions, const Note& note);

}
