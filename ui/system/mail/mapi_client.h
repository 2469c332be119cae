#pragma once

#include "ui/system/mail/simple_mapi.h"

#include <optional>

/// Windows only.
namespace ui::system::mapi {

/// The user's mail program, where he has one that offers Simple MAPI. It stays loaded from then on.
[[nodiscard]] std::optional<Functions> findClient();

/// The text in the system's code page; what that lacks becomes a decimal character reference (`&#960;`).
[[nodiscard]] std::string toAnsi(std::u16string_view text);

}
