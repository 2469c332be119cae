#include "base/code_page.h"
#include "base/text.h"
#include "order/email_command.h"
#include "tests/order/sample_order.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/read_mail.h"
#include "ui/system/mail/sendmail_mailer.h"

#include <QProcess>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// Orders on their way through a real mail agent (msmtp under the name of sendmail) to the supplier's mailbox
/// (a Maildir, by aiosmtpd). All of it runs as the user of the tests, in the test's folder; no port is
/// opened.
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto outbox =
    "information [Place email order in Outbox] Your email order is being placed in your Outbox";
constexpr auto notSent = "critical [Email Connection error] Unable to email order";
constexpr auto headers =
    "From,To,Subject,Date,Message-ID,MIME-Version,Content-Type,Content-Transfer-Encoding";

class MailDelivery : public testing::Test, protected SampleOrder {
protected:
    MailDelivery() { qputenv("HOME", QByteArray::fromStdString(folder.string())); }

    ~MailDelivery() override {
        closeMailbox();
        qputenv("HOME", home);
    }

    void SetUp() override {
        if (!fs::exists(TAVORINE_MSMTP))
            GTEST_SKIP() << "msmtp is not installed";
        fs::create_symlink(TAVORINE_MSMTP, folder / "sendmail");
        const auto settings = folder / ".msmtprc";
        base::replaceFile(settings, "account default\nhost localhost\nsocket " +
                                        (folder / "socket").string() +
                                        "\nauto_from on\nmaildomain ashby.example\n");
        fs::permissions(settings, fs::perms::owner_read | fs::perms::owner_write);
        const auto path = [&](const char* name) { return QString::fromStdString((folder / name).string()); };
        server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        server.start(TAVORINE_PYTHON, {TAVORINE_MAILBOX_SERVER, path("socket"), path("box")});
        while (!server.canReadLine() && server.waitForReadyRead()) {
        }
        const auto state = server.readLine().trimmed();
        if (state == "missing")
            GTEST_SKIP() << "python3-aiosmtpd is not installed";
        ASSERT_EQ(state, "ready");
    }

    void closeMailbox() {
        server.closeWriteChannel();
        server.waitForFinished();
    }

    std::vector<std::string> email(std::string_view templateText) {
        base::replaceFile(folder / "EmlOrd.ect", templateText);
        support::Journal journal;
        support::FakeMessageBox box(journal);
        ui::system::SendmailMailer mailer(QString::fromStdString((folder / "sendmail").string()));
        order::EmailCommand(parameters(), writer(), box, mailer).run(contents);
        return journal.take();
    }

    [[nodiscard]] std::vector<support::ReadMail> mailbox() const {
        std::vector<support::ReadMail> found;
        for (const auto& entry : fs::directory_iterator(folder / "box" / "new"))
            found.push_back(support::readMail(base::readFile(entry.path()).value()));
        return found;
    }

    QByteArray home = qgetenv("HOME");
    QProcess server;
};

TEST_F(MailDelivery, AnOrderReachesTheSupplierAsItWasMeant) {
    contents.orderNumber = "M\xFCller 7 \x80 &#960;";
    contents.comment =
        ".\r\n..\r\nFrom here\r\n\r\n blanks  \r\ntab\t\r\n=3D = \xE9 " + std::string(2000, 'x');
    const std::string text = "Order {REFNUM}\n<R1>{QTY} x {CODE}  {DESC}\n</R1>{COMMENT}\nTotal {TOTINC}\n";
    EXPECT_THAT(email(text), ElementsAre(outbox));
    const auto mails = mailbox();
    ASSERT_EQ(mails.size(), 1U);
    const auto& mail = mails[0];
    EXPECT_EQ(mail.envelope, "orders@smith.example");
    EXPECT_EQ(mail.to, "orders@smith.example");
    EXPECT_EQ(mail.headers, std::string(headers) + ",X-Peer,X-MailFrom,X-RcptTo"); // three by the mailbox
    EXPECT_EQ(mail.subject, "Tavorine Order Number: M\xC3\xBCller 7 \xE2\x82\xAC \xCF\x80");
    EXPECT_EQ(mail.type, "text/plain");
    EXPECT_EQ(mail.defects, "0");
    EXPECT_THAT(mail.body, testing::HasSubstr("2.00 x H1  Claw hammer\n0.00 x H2  Mallet\n"));
    EXPECT_EQ(mail.body, base::shownAsUtf8(base::replaceAll(mailText(text), "\r\n", "\n")));
}

TEST_F(MailDelivery, AnHtmlOrderArrivesAsHtmlHoweverLongItIs) {
    fillRows(20'000);
    const std::string text = "<html><table>\n<R1><tr><td>{QTY}<td>{CODE} \xA3</tr>\n</R1></table>\n";
    EXPECT_THAT(email(text), ElementsAre(outbox));
    const auto mails = mailbox();
    ASSERT_EQ(mails.size(), 1U);
    EXPECT_EQ(mails[0].type, "text/html");
    EXPECT_EQ(mails[0].charset, "windows-1252");
    EXPECT_TRUE(mails[0].body == base::toUtf8(mailText(text)));
}

TEST_F(MailDelivery, NothingThatIsTypedAddsRecipientsOrHeaders) {
    for (const auto* orderNumber :
         {"7\r\nBcc: spy@smith.example", "7\nCc: spy@smith.example", "7\r\n\r\nTo: spy@smith.example",
          "7 =?UTF-8?Q?=0ABcc:_spy@smith.example?=", "7, spy@smith.example <spy@smith.example>"}) {
        contents.orderNumber = orderNumber;
        contents.comment = ".\r\nRCPT TO:<spy@smith.example>\r\nTo: spy@smith.example";
        EXPECT_THAT(email("{COMMENT}\n"), ElementsAre(outbox));
    }
    const auto mails = mailbox();
    EXPECT_EQ(mails.size(), 5U);
    for (const auto& mail : mails) {
        EXPECT_EQ(mail.envelope, "orders@smith.example");
        EXPECT_EQ(mail.headers, std::string(headers) + ",X-Peer,X-MailFrom,X-RcptTo");
        EXPECT_EQ(mail.body, ".\nRCPT TO:<spy@smith.example>\nTo: spy@smith.example\n");
    }
}

class OtherAddresses : public MailDelivery, public testing::WithParamInterface<const char*> {};

TEST_P(OtherAddresses, BringNoMail) {
    supplier.texts[catalog::ParameterText::supplierEmail] = GetParam();
    EXPECT_THAT(email("x\n"), ElementsAre(notSent));
    EXPECT_THAT(mailbox(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(MailDelivery, OtherAddresses,
                         testing::Values("a@smith.example\r\nBcc: b@smith.example",
                                         "a@smith.example, b@smith.example", "-bs@smith.example",
                                         "a@smith.example b@smith.example", ""));

TEST_F(MailDelivery, AMailboxThatIsUnknownIsAFailure) {
    supplier.texts[catalog::ParameterText::supplierEmail] = "orders@other.example";
    EXPECT_THAT(email("x\n"), ElementsAre(outbox, notSent));
    EXPECT_THAT(mailbox(), IsEmpty());
}

TEST_F(MailDelivery, AServerThatIsGoneIsAFailure) {
    closeMailbox();
    EXPECT_THAT(email("x\n"), ElementsAre(outbox, notSent));
    EXPECT_THAT(mailbox(), IsEmpty());
}

}
