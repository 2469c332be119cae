#include "ui/system/mail/mail_stamp.h"

#include "order/order_mail.h"

#include <QDateTime>
#include <QFile>
#include <QSysInfo>
#include <QUuid>

#include <string>

#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>
#endif

namespace ui::system {
namespace {

std::string userName() {
#ifndef _WIN32
    if (const auto* user = getpwuid(geteuid()); user != nullptr)
        return user->pw_name;
#endif
    return {};
}

// The name that mail from here bears, where the system has one.
std::string mailDomain() {
    QFile file(QStringLiteral("/etc/mailname"));
    if (file.open(QIODevice::ReadOnly))
        if (const auto name = file.readLine().trimmed(); !name.isEmpty())
            return name.toStdString();
    return QSysInfo::machineHostName().toStdString();
}

}

MailStamp mailStamp() {
    auto domain = mailDomain();
    if (!order::isMailAddress("x@" + domain))
        domain = "localhost";
    auto from = userName() + "@" + domain;
    if (!order::isMailAddress(from))
        from = "customer@" + domain;
    const auto unique = QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
    return {from, QDateTime::currentDateTime().toString(Qt::RFC2822Date).toStdString(),
            unique + "@" + domain};
}

}
