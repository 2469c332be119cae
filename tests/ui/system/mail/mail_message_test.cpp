#include "base/code_page.h"
#include "base/text.h"
#include "order/order_mail.h"
#include "tests/support/read_mail.h"
#include "ui/system/mail/mail_message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using support::readMail;

std::string messageOf(const platform::Mail& mail) {
    return ui::system::mailMessage(mail,
                                   {"jo@ashby.example", "01 Apr 2025 10:20:30 +0200", "1.2@ashby.example"});
}

platform::Mail mailOf(std::string orderNumber, std::string body, bool isHtml = false) {
    return order::orderMail("orders@smith.example", orderNumber, std::move(body), isHtml).value();
}

std::string longestLineOf(const std::string& message) {
    std::string_view longest;
    for (const auto line : base::split(message, '\n'))
        if (line.size() > longest.size())
            longest = line;
    return std::string(longest);
}

TEST(MailMessage, IsReadByOthersAsItWasMeant) {
    const auto mail = readMail(messageOf(mailOf("A-7", "2 x H1\r\n1 x S1\n\nTotal: 22.50\n")));
    EXPECT_EQ(mail.headers,
              "From,To,Subject,Date,Message-ID,MIME-Version,Content-Type,Content-Transfer-Encoding");
    EXPECT_EQ(mail.from, "jo@ashby.example");
    EXPECT_EQ(mail.to, "orders@smith.example");
    EXPECT_EQ(mail.subject, "Tavorine Order Number: A-7");
    EXPECT_EQ(mail.date, "2025-04-01T10:20:30+02:00");
    EXPECT_EQ(mail.messageId, "<1.2@ashby.example>");
    EXPECT_EQ(mail.type, "text/plain");
    EXPECT_EQ(mail.charset, "windows-1252");
    EXPECT_EQ(mail.defects, "0");
    EXPECT_EQ(mail.body, "2 x H1\n1 x S1\n\nTotal: 22.50\n");
    EXPECT_EQ(readMail(messageOf(mailOf("1", "<html></html>\n", true))).type, "text/html");
}

TEST(MailMessage, SubjectsArriveWholeWhateverTheyHold) {
    const std::string orderNumbers[] = {
        "",
        "M\xFCller \x80 7",
        "&#960; &#128512;",
        "=?UTF-8?Q?x?=",
        "a?b=c_d \"e\" <f@g>, h",
        std::string(300, 'x'),
        std::string(50, '\xE9') + " " + base::replaceAll(std::string(40, 'p'), "p", "&#960;"),
        "one two three four five six seven eight nine ten eleven twelve thirteen fourteen"};
    for (const auto& orderNumber : orderNumbers) {
        const auto message = messageOf(mailOf(orderNumber, "x"));
        const auto mail = readMail(message);
        EXPECT_EQ(mail.subject, "Tavorine Order Number: " + base::shownAsUtf8(orderNumber)) << orderNumber;
        EXPECT_EQ(mail.defects, "0") << orderNumber;
        EXPECT_LE(longestLineOf(message).size(), 76U) << orderNumber;
    }
}

TEST(MailMessage, WhateverItIsGivenItsHeadersStayOneLineEach) {
    for (const auto* address : {"a@b\r\nBcc: x@evil.example", "a@b\nX: y\n\nbody", "a@b,\r\n x@evil.example",
                                "a@b, x@evil.example", "a@b>; x@evil.example", "a@b\xA0\xE9\"(c)"}) {
        const platform::Mail mail{address, address, "x", false};
        const auto sent = readMail(
            ui::system::mailMessage(mail, {address, "01 Apr 2025 10:20:30 +0200\r\nX: " + mail.to, address}));
        EXPECT_EQ(sent.headers,
                  "From,To,Subject,Date,Message-ID,MIME-Version,Content-Type,Content-Transfer-Encoding")
            << address;
        EXPECT_EQ(sent.to.substr(0, 3), "a@b") << address;
        EXPECT_EQ(sent.to.find_first_of(",; <>\r\n@", 2), std::string::npos) << address;
        EXPECT_EQ(readMail(ui::system::draftMessage(mail)).headers.substr(0, 20), "X-Unsent,To,Subject,")
            << address;
    }
}

TEST(MailMessage, AnOrderNumberAddsNeitherHeadersNorRecipients) {
    for (const auto* orderNumber :
         {"7\r\nBcc: x@evil.example", "7\nTo: x@evil.example", "7\r\n\r\nbody", "7\rBcc: x"}) {
        const auto mail = readMail(messageOf(mailOf(orderNumber, "x")));
        EXPECT_EQ(mail.headers,
                  "From,To,Subject,Date,Message-ID,MIME-Version,Content-Type,Content-Transfer-Encoding");
        EXPECT_EQ(mail.to, "orders@smith.example");
        EXPECT_EQ(mail.body, "x\n");
        EXPECT_THAT(mail.subject, testing::StartsWith("Tavorine Order Number: 7 "));
    }
}

TEST(MailMessage, BodiesArriveWholeInTheCodePageOrInUnicode) {
    const struct {
        std::string body;
        const char* charset;
    } cases[] = {{"Gr\xF6\xDF"
                  "e 5 \x80\n",
                  "windows-1252"},
                 {"&#960; and &#8364; and &amp;\n", "utf-8"},
                 {"&#8364; &#65; &#x3C0;\n", "windows-1252"},
                 {".\n..\nFrom x\n>From\n" + std::string(75, 'a') + ".\n" + std::string(76, 'b') + "\n",
                  "windows-1252"},
                 {"blanks  \ntab\t\n = == =41 \n", "windows-1252"},
                 {std::string(1000, '\xE9') + "\n" + std::string(1000, ' ') + "\n", "windows-1252"},
                 {base::replaceAll(std::string(200, 'p'), "p", "&#128512;") + "\n", "utf-8"},
                 {std::string(1'000'000, 'x') + "\n", "windows-1252"}};

    for (const auto& c : cases) {
        const auto message = messageOf(mailOf("1", c.body));
        const auto mail = readMail(message);
        EXPECT_TRUE(mail.body == base::shownAsUtf8(c.body)) << c.body.substr(0, 60);
        EXPECT_EQ(mail.charset, c.charset) << c.body.substr(0, 60);
        EXPECT_LE(longestLineOf(message).size(), 76U);
        EXPECT_THAT(message, testing::Not(testing::HasSubstr("\n.")));
        EXPECT_THAT(message, testing::Not(testing::HasSubstr("\nFrom x")));
    }
}

}
