#include "app/passwords.h"

#include "base/text.h"

namespace app {

PasswordOutcome judgePassword(std::string_view entry, const Passwords& passwords) {
    const auto typed = base::upper(base::trim(entry));
    if (typed == passwords.CatalogPassword)
        return PasswordOutcome::open;
    if (!passwords.ResetPassword.empty() && typed == passwords.ResetPassword)
        return PasswordOutcome::clearAndOpen;
    return passwords.CatalogPassword.empty() ? PasswordOutcome::setPassword : PasswordOutcome::wrong;
}

bool isConfirmed(std::string_view entry, std::string_view confirmation) {
    return base::equalIgnoringCase(entry, confirmation);
}

}
