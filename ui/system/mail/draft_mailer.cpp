#include "ui/system/mail/draft_mailer.h"

#include "base/code_page.h"
#include "ui/system/background_work.h"
#include "ui/system/mail/mail_message.h"
#include "ui/system/mail/plain_text.h"
#include "ui/system/waiting_process.h"

#include <QDesktopServices>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QUrl>

#include <chrono>
#include <memory>

namespace ui::system {
namespace {

QString shown(const std::string& text) {
    return QString::fromStdString(base::shownAsUtf8(text));
}

// The command may stay for as long as the mail program runs; what fails, fails soon.
bool openByCommand(const QString& name, const QStringList& arguments) {
    constexpr std::chrono::seconds longestFailure(5);
    const auto command = QStandardPaths::findExecutable(name);
    if (command.isEmpty())
        return false;
    auto process = std::make_unique<QProcess>();
    process->setProgram(command);
    process->setArguments(arguments);
    runFor(*process, {}, longestFailure);
    if (process->state() == QProcess::NotRunning)
        return exitCodeOf(*process) == 0;
    // It lives on by itself and goes when the mail program does.
    auto* const living = process.release();
    QObject::connect(living, &QProcess::finished, living, &QObject::deleteLater);
    return true;
}

QUrl mailtoUrl(const platform::Mail& mail, QString text) {
    const auto encoded = [](const QString& part) { return QUrl::toPercentEncoding(part); };
    return QUrl::fromEncoded("mailto:" + QUrl::toPercentEncoding(shown(mail.to), "@") + "?subject=" +
                             encoded(shown(mail.subject)) + "&body=" + encoded(text.replace("\n", "\r\n")));
}

bool openAddress(const platform::Mail& mail, const QString& text, const QUrl& address) {
    return openByCommand(QStringLiteral("xdg-email"),
                         {QStringLiteral("--utf8"), QStringLiteral("--subject"), shown(mail.subject),
                          QStringLiteral("--body"), text, shown(mail.to)}) ||
           QDesktopServices::openUrl(address);
}

bool openFile(const QByteArray& message) {
    QTemporaryFile file(QDir::temp().filePath(QStringLiteral("Order-XXXXXX.eml")));
    if (!file.open() || file.write(message) != message.size() || !file.flush())
        return false;
    file.close();
    file.setAutoRemove(!openByCommand(QStringLiteral("xdg-open"), {file.fileName()}) &&
                       !QDesktopServices::openUrl(QUrl::fromLocalFile(file.fileName())));
    return !file.autoRemove();
}

/// A draft in both of its forms; the address is empty where it would grow too long.
struct Draft {
    QString text;
    QUrl address;
    QByteArray message;
};

Draft draftOf(const platform::Mail& mail, qsizetype longestAddress) {
    Draft draft{plainText(mail), {}, {}};
    if (draft.text.size() <= longestAddress)
        draft.address = mailtoUrl(mail, draft.text);
    if (draft.address.isEmpty() || draft.address.toEncoded().size() > longestAddress)
        draft = {{}, {}, QByteArray::fromStdString(draftMessage(mail))};
    return draft;
}

}

platform::Mailer::Outcome DraftMailer::send(const platform::Mail& mail) {
    Draft draft;
    runInBackground([&] { draft = draftOf(mail, m_longestAddress); }, QEventLoop::ExcludeUserInputEvents);
    const bool opened =
        draft.address.isEmpty() ? openFile(draft.message) : openAddress(mail, draft.text, draft.address);
    return opened ? Outcome::draftOpened : Outcome::failed;
}

}
