#pragma once

#include "catalog/parameters.h"

#include <string>
#include <string_view>

/// The lock of a catalogue, tested below its welcome page.
namespace app {

/// The two passwords of a catalogue's parameter header, trimmed and in upper case; empty means none.
struct Passwords {
    std::string CatalogPassword;
    std::string ResetPassword;

    /// The catalogue has neither welcome page nor password step.
    [[nodiscard]] bool omitsWelcome() const { return CatalogPassword == catalog::noWelcomePassword; }
};

/// What pressing Next leads to.
enum class PasswordOutcome { open, clearAndOpen, wrong, setPassword };

/// Letter case and blanks around the entry do not count.
[[nodiscard]] PasswordOutcome judgePassword(std::string_view entry, const Passwords& passwords);

/// Whether a new password was typed twice alike. Deliberate: unlike the entry's own test, blanks count.
[[nodiscard]] bool isConfirmed(std::string_view entry, std::string_view confirmation);

}
