#include "ui/system/mail/mapi_client.h"

#include <algorithm>
#include <array>
#include <windows.h>

namespace ui::system::mapi {
namespace {

constexpr auto clientsKey = L"Software\\Clients\\Mail";
constexpr std::array libraryValues{L"DLLPath", L"DLLPathEx", L"MSIComponentID"};

// The text of a value, no name meaning the key's own; empty where there is none.
std::wstring registryText(HKEY root, const std::wstring& key, const wchar_t* name) {
    std::array<wchar_t, 512> text{};
    auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ | RRF_ZEROONFAILURE, nullptr, text.data(),
                     &size) != ERROR_SUCCESS)
        return {};
    return text.data();
}

// The library of Windows is there without a mail program too, and complains to the user when it is called.
bool hasClient() {
    auto name = registryText(HKEY_CURRENT_USER, clientsKey, nullptr);
    if (name.empty())
        name = registryText(HKEY_LOCAL_MACHINE, clientsKey, nullptr);
    if (name.empty())
        return false;
    const auto key = std::wstring(clientsKey) + L"\\" + name;
    return std::any_of(libraryValues.begin(), libraryValues.end(), [&](const wchar_t* value) {
        return !registryText(HKEY_CURRENT_USER, key, value).empty() ||
               !registryText(HKEY_LOCAL_MACHINE, key, value).empty();
    });
}

template <typename Function>
Function functionOf(HMODULE library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

std::string referenceTo(std::u16string_view character) {
    constexpr std::uint32_t firstSurrogate = 0xD800;
    constexpr std::uint32_t secondSurrogate = 0xDC00;
    constexpr std::uint32_t firstBeyond = 0x10000;
    constexpr unsigned surrogateBits = 10;
    std::uint32_t number = character[0];
    if (character.size() == 2)
        number =
            firstBeyond + ((number - firstSurrogate) << surrogateBits) + (character[1] - secondSurrogate);
    return "&#" + std::to_string(number) + ";";
}

// A character is one unit of UTF-16 or two.
std::string characterToAnsi(std::u16string_view character) {
    std::array<char, 8> bytes{};
    BOOL isLost = FALSE;
    const bool isUtf8 = GetACP() == CP_UTF8; // takes neither the flag nor the question
    const int count = WideCharToMultiByte(
        CP_ACP, isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS, reinterpret_cast<const wchar_t*>(character.data()),
        static_cast<int>(character.size()), bytes.data(), static_cast<int>(bytes.size()), nullptr,
        isUtf8 ? nullptr : &isLost);
    if (count <= 0 || isLost != FALSE)
        return referenceTo(character);
    return {bytes.data(), static_cast<std::size_t>(count)};
}

}

std::optional<Functions> findClient() {
    if (!hasClient())
        return std::nullopt;
    const auto library = LoadLibraryExW(L"mapi32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr)
        return std::nullopt;
    const Functions found{functionOf<SendMail<char16_t>>(library, "MAPISendMailW"),
                          functionOf<SendMail<char>>(library, "MAPISendMail"), toAnsi};
    if (found.sendMailW == nullptr && found.sendMail == nullptr)
        return std::nullopt;
    return found;
}

std::string toAnsi(std::u16string_view text) {
    std::string ansi;
    while (!text.empty()) {
        const bool isPair = text.size() > 1 && IS_HIGH_SURROGATE(text[0]) && IS_LOW_SURROGATE(text[1]);
        const auto character = text.substr(0, isPair ? 2 : 1);
        ansi += characterToAnsi(character);
        text.remove_prefix(character.size());
    }
    return ansi;
}

}
