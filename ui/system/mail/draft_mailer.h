#pragma once

#include "platform/mailer.h"

#include <QtGlobal>

namespace ui::system {

/// Opens mail in the user's mail program, filled in and for the user to send. The usual way is a mailto
/// address; it carries plain text only, so an HTML message goes as the text that it shows. What is too long
/// for an address goes, as it is, by way of a draft's file (".eml"), which stays in the folder for temporary
/// files.
class DraftMailer final : public platform::Mailer {
public:
    /// Longer addresses than this are not tried.
    explicit DraftMailer(qsizetype longestAddress = systemsLongestAddress)
        : m_longestAddress(longestAddress) {}

    [[nodiscard]] bool placesInOutbox() const override { return false; }

    Outcome send(const platform::Mail& mail) override;

private:
#ifdef Q_OS_LINUX
    static constexpr qsizetype systemsLongestAddress = 100'000; // one argument of a command has 128 KiB
#else
    static constexpr qsizetype systemsLongestAddress = 2'000; // Windows cuts what is longer
#endif

    qsizetype m_longestAddress;
};

}
