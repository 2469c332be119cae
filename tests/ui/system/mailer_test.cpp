#include "base/files.h"
#include "tests/support/test_folder.h"
#include "ui/system/draft_mailer.h"
#include "ui/system/sendmail_mailer.h"
#include "ui/system/system_mailer.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTimer>
#include <QUrl>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using Outcome = platform::Mailer::Outcome;
using namespace std::chrono_literals;

/// Stand-ins for the system's commands, the only ones in PATH besides the shell's own folder, which holds
/// no mail program in tests.
class Mailers : public testing::Test {
protected:
    Mailers() { qputenv("PATH", QByteArray::fromStdString(commands.string())); }

    ~Mailers() override { qputenv("PATH", path); }

    QString install(const std::string& name, const std::string& script) const {
        const auto file = commands / name;
        base::replaceFile(file, "#!/bin/sh\nPATH=/usr/bin:/bin\n" + script + "\n");
        fs::permissions(file, fs::perms::owner_exec, fs::perm_options::add);
        return QString::fromStdString(file.string());
    }

    // A script that writes down its arguments and its input.
    QString installRecorder(const std::string& name, const std::string& afterwards = {}) const {
        const auto place = "'" + commands.string();
        return install(name, "printf '[%s]' \"$@\" > " + place + "/arguments'\ncat > " + place + "/input'\n" +
                                 afterwards);
    }

    [[nodiscard]] std::string recorded(const char* what) const {
        return base::readFile(commands / what).value_or("nothing");
    }

    QByteArray path = qgetenv("PATH");
    fs::path commands = support::testFolder();
    platform::Mail mail{"orders@smith.example", "Tavorine Order Number: M\xFCller & &#960;",
                        ".\r\na=b \n&#960;\n", false};
};

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
    ui::system::SendmailMailer mailer(
        install("sendmail", "echo $$ > '" + commands.string() + "/process'\nexec sleep 60"), 300ms);
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start(20ms);
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_EQ(mailer.send(mail), Outcome::failed);
    EXPECT_LT(elapsed.elapsed(), 5000);
    EXPECT_GT(ticks, 3);
    EXPECT_FALSE(
        fs::exists("/proc/" + std::string(QByteArray::fromStdString(recorded("process")).trimmed())));
}

TEST_F(Mailers, ALargeMessageArrivesWhole) {
    mail.body = std::string(2'000'000, 'x') + "\nlast line";
    EXPECT_EQ(ui::system::SendmailMailer(installRecorder("sendmail")).send(mail), Outcome::placed);
    EXPECT_THAT(recorded("input"), testing::EndsWith("\nlast line\n"));
}

TEST_F(Mailers, SendmailIsFoundInPathAndThenInTheFoldersOfTheSystem) {
    EXPECT_FALSE(ui::system::findSendmail({}));
    const auto elsewhere = QString::fromStdString((commands / "sbin").string());
    fs::create_directory(commands / "sbin");
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
    ui::system::SystemMailer mailer([] { return ui::system::findSendmail({}); });
    installRecorder("xdg-email");
    EXPECT_FALSE(mailer.placesInOutbox());
    EXPECT_EQ(mailer.send(mail), Outcome::draftOpened);
    EXPECT_EQ(recorded("arguments"),
              "[--utf8][--subject][Tavorine Order Number: M\xC3\xBCller & \xCF\x80][--body][.\r\n"
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
