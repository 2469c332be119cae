#include "ui/system/draft_mailer.h"

#include "base/code_page.h"
#include "base/text.h"
#include "ui/system/waiting_process.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>

#include <chrono>
#include <memory>

namespace ui::system {
namespace {

QString shown(const std::string& text) {
    return QString::fromStdString(base::shownAsUtf8(text));
}

// The command may stay for as long as the mail program runs; what fails, fails soon.
bool openByCommand(const platform::Mail& mail) {
    constexpr std::chrono::seconds longestFailure(5);
    const auto command = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (command.isEmpty())
        return false;
    auto process = std::make_unique<QProcess>();
    process->setProgram(command);
    process->setArguments({QStringLiteral("--utf8"), QStringLiteral("--subject"), shown(mail.subject),
                           QStringLiteral("--body"), shown(mail.body), shown(mail.to)});
    runFor(*process, {}, longestFailure);
    if (process->state() == QProcess::NotRunning)
        return exitCodeOf(*process) == 0;
    // It lives on by itself and goes when the mail program does.
    auto* const living = process.release();
    QObject::connect(living, &QProcess::finished, living, &QObject::deleteLater);
    return true;
}

QUrl mailtoUrl(const platform::Mail& mail) {
    const auto encoded = [](const std::string& text) { return QUrl::toPercentEncoding(shown(text)); };
    const auto body = base::replaceAll(base::replaceAll(mail.body, "\r\n", "\n"), "\n", "\r\n");
    return QUrl::fromEncoded("mailto:" + QUrl::toPercentEncoding(shown(mail.to), "@") +
                             "?subject=" + encoded(mail.subject) + "&body=" + encoded(body));
}

}

platform::Mailer::Outcome DraftMailer::send(const platform::Mail& mail) {
    const bool opened = openByCommand(mail) || QDesktopServices::openUrl(mailtoUrl(mail));
    return opened ? Outcome::draftOpened : Outcome::failed;
}

}
