#include "base/code_page.h"
#include "base/files.h"
#include "tests/support/read_mail.h"
#include "tests/support/stand_in_commands.h"
#include "ui/system/mail/draft_mailer.h"
#include "ui/system/mail/mapi_mailer.h"
#include "ui/system/mail/sendmail_mailer.h"
#include "ui/system/mail/system_mailer.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QTimer>
#include <QUrl>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <semaphore>

namespace {

namespace fs = std::filesystem;
using Outcome = platform::Mailer::Outcome;
using namespace std::chrono_literals;

class Mailers : public testing::Test {
protected:
    QString install(const std::string& name, const std::string& script) const {
        return commands.install(name, script);
    }

    QString installRecorder(const std::string& name, const std::string& afterwards = {}) const {
        return commands.installRecorder(name, afterwards);
    }

    [[nodiscard]] std::string recorded(const char* what) const { return commands.recorded(what); }

    // A command that writes its number down first, so that a test can see that nothing of it is left.
    [[nodiscard]] QString installNumbered(const std::string& script) const {
        return install("sendmail", "echo $$ > '" + commands.folder.string() + "/process'\n" + script);
    }

    [[nodiscard]] bool processIsLeft() const { // a dead one too, until its end has been taken note of
        return fs::exists("/proc/" + std::string(QByteArray::fromStdString(recorded("process")).trimmed()));
    }

    const support::StandInCommands commands;
    platform::Mail mail{"orders@smith.example", "Tavorine Order Number: M\xFCller & &#960;",
                        ".\r\na=b \n&#960;\n", false};
};

TEST_F(Mailers, NothingLeavesForMoreThanOneAddress) {
    const auto command = installRecorder("sendmail");
    ui::system::SystemMailer mailer([&]() -> std::unique_ptr<platform::Mailer> {
        return std::make_unique<ui::system::SendmailMailer>(command);
    });
    for (const auto* address :
         {"", "a@b, x@evil.example", "a@b\nBcc: x@evil.example", "a?bcc=x@evil.example"}) {
        mail.to = address;
        EXPECT_EQ(mailer.send(mail), Outcome::failed) << address;
        EXPECT_EQ(recorded("arguments"), "nothing") << address;
    }
}

TEST_F(Mailers, SendmailGetsTheMessageAndNoRecipientOnItsCommandLine) {
    EXPECT_EQ(ui::system::SendmailMailer(installRecorder("sendmail")).send(mail), Outcome::placed);
    EXPECT_EQ(recorded("arguments"), "[-oi][-t]");
    const auto message = recorded("input");
    EXPECT_THAT(message,
                testing::ContainsRegex("^From: [^ @]+@[^ @]+\nTo: orders@smith.example\nSubject: =\\?UTF-8"));
    EXPECT_THAT(message, testing::ContainsRegex("\nDate: [0-9]+ [A-Z][a-z]+ [0-9]+ [0-9:]+ [-+][0-9]+\n"));
    EXPECT_THAT(message, testing::ContainsRegex("\nMessage-ID: <[-0-9a-f]+@[^ >]+>\n"));
    EXPECT_THAT(message, testing::EndsWith("\n\n=2E\na=3Db=20\n=CF=80\n"));
    EXPECT_THAT(message, testing::Not(testing::HasSubstr("\r")));
}

TEST_F(Mailers, OnlyTheExitCodeNoughtMeansThatTheMailIsQueued) {
    for (const int code : {0, 1, 64, 65, 67, 69, 70, 71, 75, 77, 78, 127, 255}) {
        const auto command = install("sendmail", "cat > /dev/null\nexit " + std::to_string(code));
        EXPECT_EQ(ui::system::SendmailMailer(command).send(mail),
                  code == 0 ? Outcome::placed : Outcome::failed)
            << code;
    }
    EXPECT_EQ(ui::system::SendmailMailer(install("sendmail", "kill -9 $$")).send(mail), Outcome::failed);
    EXPECT_EQ(ui::system::SendmailMailer("/no/such/sendmail").send(mail), Outcome::failed);
}

TEST_F(Mailers, ACommandThatHangsIsEndedWhileTheWindowStaysAlive) {
    mail.body.assign(1'000'000, 'x'); // more than it takes without reading
    ui::system::SendmailMailer mailer(installNumbered("exec sleep 60"), 300ms);
    bool windowWasAlive = false;
    QTimer::singleShot(0, [&] { windowWasAlive = true; });
    EXPECT_EQ(mailer.send(mail), Outcome::failed);
    EXPECT_TRUE(windowWasAlive);
    EXPECT_FALSE(processIsLeft());
}

TEST_F(Mailers, AMessageThatIsNotTakenWholeIsNotQueuedWhateverTheCommandSays) {
    mail.body.assign(1'000'000, 'x');
    for (const auto* script :
         {"exec <&-\nexit 0", "exec <&-\nexit 75", "exec <&-\nsleep 0.2\nexit 0",
          "head -c 1000 > /dev/null\nexit 0", "head -c 1000 > /dev/null\nkill -9 $$", "kill -SEGV $$"}) {
        EXPECT_EQ(ui::system::SendmailMailer(installNumbered(script)).send(mail), Outcome::failed) << script;
        EXPECT_FALSE(processIsLeft()) << script;
    }
}

TEST_F(Mailers, ALargeMessageArrivesWhole) {
    mail.body = std::string(2'000'000, 'x') + "\nlast line";
    EXPECT_EQ(ui::system::SendmailMailer(installRecorder("sendmail")).send(mail), Outcome::placed);
    EXPECT_THAT(recorded("input"), testing::EndsWith("\nlast line\n"));
}

TEST_F(Mailers, SendmailIsFoundInPathAndThenInTheFoldersOfTheSystem) {
    EXPECT_FALSE(ui::system::findSendmail({}));
    const auto elsewhere = QString::fromStdString((commands.folder / "sbin").string());
    fs::create_directory(commands.folder / "sbin");
    const auto second = install("sbin/sendmail", "");
    EXPECT_EQ(ui::system::findSendmail({"/no/such", elsewhere}), second);
    const auto first = install("sendmail", "");
    EXPECT_EQ(ui::system::findSendmail({elsewhere}), first);
}

/// Stands for the desktop, which opens addresses in their programs.
class FakeDesktop : public QObject {
    Q_OBJECT

public:
    FakeDesktop() { QDesktopServices::setUrlHandler("mailto", this, "open"); }

    ~FakeDesktop() override { QDesktopServices::unsetUrlHandler("mailto"); }

    FakeDesktop(const FakeDesktop&) = delete;
    FakeDesktop& operator=(const FakeDesktop&) = delete;

    QByteArray opened;

public slots:

    void open(const QUrl& url) { opened = url.toEncoded(); }
};

TEST_F(Mailers, WithoutSendmailTheOrderWaitsInTheMailProgram) {
    ui::system::SystemMailer mailer([]() -> std::unique_ptr<platform::Mailer> {
        const auto command = ui::system::findSendmail({});
        return command ? std::make_unique<ui::system::SendmailMailer>(*command) : nullptr;
    });
    installRecorder("xdg-email");
    EXPECT_FALSE(mailer.placesInOutbox());
    EXPECT_EQ(mailer.send(mail), Outcome::draftOpened);
    EXPECT_EQ(recorded("arguments"),
              "[--utf8][--subject][Tavorine Order Number: M\xC3\xBCller & \xCF\x80][--body][.\n"
              "a=b \n\xCF\x80\n][orders@smith.example]");

    installRecorder("sendmail");
    EXPECT_TRUE(mailer.placesInOutbox());
    EXPECT_EQ(mailer.send(mail), Outcome::placed);
    installRecorder("sendmail", "exit 75");
    EXPECT_EQ(mailer.send(mail), Outcome::failed);
}

TEST_F(Mailers, TheDesktopOpensTheDraftWhereTheCommandIsMissingOrFails) {
    FakeDesktop desktop;
    EXPECT_EQ(ui::system::DraftMailer().send(mail), Outcome::draftOpened);
    EXPECT_EQ(desktop.opened,
              "mailto:orders@smith.example?subject=Tavorine%20Order%20Number%3A%20M%C3%BCller%20%26%20"
              "%CF%80&body=.%0D%0Aa%3Db%20%0D%0A%CF%80%0D%0A");
    desktop.opened.clear();
    install("xdg-email", "exit 3");
    EXPECT_EQ(ui::system::DraftMailer().send(mail), Outcome::draftOpened);
    EXPECT_NE(desktop.opened, "");
}

constexpr auto htmlOrder = "<html><head><style>td { color: red }</style><title>no</title></head><body>"
                           "<h1>Order&nbsp;7</h1><p>Jo &amp; Co<br>Leeds &#960;</p><table><tr><td>"
                           "<table><tr><th>Qty</th><th>Code</th><th>Item</th></tr>"
                           "<tr><td>2</td><td>H1</td><td><b>Claw</b>\n hammer</td></tr>"
                           "<tr><td colspan=2>Total</td><td>22.50</td></tr></table>"
                           "</td></tr></table><img src=logo.png></body></html>";
constexpr auto htmlOrderAsText = "Order 7\nJo & Co\nLeeds \xCF\x80\n\nQty\tCode\tItem\n2\tH1\tClaw hammer\n"
                                 "Total\t22.50\n";

TEST_F(Mailers, AnHtmlOrderIsTextInAnAddress) {
    mail.body = htmlOrder;
    mail.isHtml = true;
    installRecorder("xdg-email");
    EXPECT_EQ(ui::system::DraftMailer().send(mail), Outcome::draftOpened);
    EXPECT_THAT(recorded("arguments"), testing::HasSubstr("[--body][" + std::string(htmlOrderAsText) + "]"));
}

TEST_F(Mailers, WhatIsTooLongForAnAddressIsADraftsFile) {
    installRecorder("xdg-email");
    install("xdg-open", "cp \"$1\" '" + commands.folder.string() + "/draft'\nrm \"$1\"");
    ui::system::DraftMailer mailer(2000);
    mail.body.assign(1800, 'x');
    EXPECT_EQ(mailer.send(mail), Outcome::draftOpened);
    EXPECT_EQ(recorded("draft"), "nothing");
    fs::remove(commands.folder / "arguments");

    mail.body = "<html>" + std::string(300'000, '\xE9');
    mail.isHtml = true;
    for (auto limit : {ui::system::DraftMailer(2000), ui::system::DraftMailer()}) {
        EXPECT_EQ(limit.send(mail), Outcome::draftOpened);
        EXPECT_EQ(recorded("arguments"), "nothing");
        const auto draft = support::readMail(recorded("draft"));
        EXPECT_EQ(draft.headers, "X-Unsent,To,Subject,MIME-Version,Content-Type,Content-Transfer-Encoding");
        EXPECT_EQ(draft.to, "orders@smith.example");
        EXPECT_EQ(draft.subject, "Tavorine Order Number: M\xC3\xBCller & \xCF\x80");
        EXPECT_EQ(draft.type, "text/html");
        EXPECT_EQ(draft.defects, "0");
        EXPECT_TRUE(draft.body == base::toUtf8(mail.body) + "\r\n");
        fs::remove(commands.folder / "draft");
    }
    install("xdg-open", "exit 3");
    EXPECT_EQ(mailer.send(mail), Outcome::failed);
}

/// What the mail program that stands in was given. It goes on once the window has been seen alive.
std::binary_semaphore windowAlive{0};
bool windowWasAlive = false;
std::u16string mapiSubject;
std::u16string mapiText;
std::uint32_t mapiAnswer = 0;

std::uint32_t sendOnceTheWindowLives(std::uintptr_t, std::uintptr_t,
                                     ui::system::mapi::Message<char16_t>* message, std::uint32_t,
                                     std::uint32_t) {
    windowWasAlive = windowAlive.try_acquire_for(30s);
    mapiSubject = message->subject;
    mapiText = message->noteText;
    return mapiAnswer;
}

TEST_F(Mailers, SimpleMapiGetsTextWhileTheWindowStaysAlive) {
    ui::system::MapiMailer mailer({sendOnceTheWindowLives});
    EXPECT_TRUE(mailer.placesInOutbox());
    mapiAnswer = 0;
    QTimer::singleShot(0, [] { windowAlive.release(); });
    EXPECT_EQ(mailer.send(mail), Outcome::placed);
    EXPECT_TRUE(windowWasAlive);
    EXPECT_EQ(mapiSubject, u"Tavorine Order Number: M\u00FCller & \u03C0");
    EXPECT_EQ(mapiText, u".\r\na=b \r\n\u03C0\r\n");

    mail.body = htmlOrder;
    mail.isHtml = true;
    mapiAnswer = 3;
    windowAlive.release();
    EXPECT_EQ(mailer.send(mail), Outcome::failed);
    EXPECT_EQ(QString::fromStdU16String(mapiText).remove('\r').toStdString(), htmlOrderAsText);
}

TEST_F(Mailers, WithoutAnyMailProgramTheMailFails) {
    EXPECT_EQ(ui::system::DraftMailer().send(mail), Outcome::failed);
    install("xdg-email", "exit 3");
    EXPECT_EQ(ui::system::DraftMailer().send(mail), Outcome::failed);
}

}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

#include "mailer_test.moc"
