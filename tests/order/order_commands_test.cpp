#include "base/errors.h"
#include "order/email_command.h"
#include "order/print_command.h"
#include "tests/order/sample_order.h"
#include "tests/support/fake_message_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using platform::Mailer;
using testing::ElementsAre;
using testing::IsEmpty;

class FakeMailer : public Mailer {
public:
    explicit FakeMailer(support::Journal& journal) : m_journal(journal) {}

    [[nodiscard]] bool placesInOutbox() const override { return outcome != Outcome::draftOpened; }

    Outcome send(const platform::Mail& mail) override {
        m_journal.add("mail to " + mail.to + " [" + mail.subject + "] " + (mail.isHtml ? "html " : "") +
                      mail.body);
        return outcome;
    }

    Outcome outcome = Outcome::placed;

private:
    support::Journal& m_journal;
};

class FakePrintTarget : public order::PrintTarget {
public:
    explicit FakePrintTarget(support::Journal& journal) : m_journal(journal) {}

    void print(const std::filesystem::path& file, std::string_view bytes) override {
        m_journal.add("print " + file.filename().string() + " " + std::string(bytes));
        EXPECT_EQ(base::readFile(file), bytes);
    }

private:
    support::Journal& m_journal;
};

class OrderCommands : public testing::Test, protected SampleOrder {
protected:
    OrderCommands() {
        std::filesystem::create_directory(userFolder);
        install("PrtOrd.ect", "<R1>{CODE}</R1>");
        install("PrtOrd_NT.ect", "no tax <R1>{CODE}</R1>");
        install("EmlOrd.ect", "<R1>{CODE} </R1>");
        install("EmlOrd_NT.ect", "no tax <R1>{CODE} </R1>");
    }

    void install(std::string_view name, std::string_view text) const {
        base::replaceFile(folder / name, text);
    }

    std::vector<std::string> print() {
        const pages::ScratchPage scratchPage(userFolder);
        order::PrintCommand(writer(), scratchPage, box, target).run(contents);
        return journal.take();
    }

    std::vector<std::string> email() {
        order::EmailCommand(parameters(), writer(), box, mailer).run(contents);
        return journal.take();
    }

    [[nodiscard]] bool pageWritten() const { return std::filesystem::exists(userFolder / "Tmp.htm"); }

    std::filesystem::path userFolder = folder / "user";
    support::Journal journal;
    support::FakeMessageBox box{journal};
    FakeMailer mailer{journal};
    FakePrintTarget target{journal};
};

constexpr auto outbox =
    "information [Place email order in Outbox] Your email order is being placed in your Outbox";
constexpr auto notSent = "critical [Email Connection error] Unable to email order";

TEST_F(OrderCommands, PrintingWritesTheScratchPageAndHandsItOn) {
    EXPECT_THAT(print(), ElementsAre("print Tmp.htm H1\nS1\r\n"));
    contents.taxStatus = order::TaxStatus::exempt;
    EXPECT_THAT(print(), ElementsAre("print Tmp.htm no tax H1\nS1\r\n"));
}

TEST_F(OrderCommands, EmailingTellsOfTheOutboxAndThenSends) {
    EXPECT_THAT(email(),
                ElementsAre(outbox, "mail to orders@smith.example [Tavorine Order Number:  A-7 ] H1 H2 S1 "));
    contents.orderNumber = "";
    contents.taxStatus = order::TaxStatus::exempt;
    EXPECT_THAT(
        email(),
        ElementsAre(outbox, "mail to orders@smith.example [Tavorine Order Number: ] no tax H1 H2 S1 "));
}

TEST_F(OrderCommands, AnOrderThatIsNotValidGoesNowhere) {
    contents.details.business = "  ";
    contents.details.phone = "";
    contents.deliveryDate = "31/04/26";
    const auto complaints =
        ElementsAre("critical [Missing Information] You must enter a Business Name to complete the order",
                    "critical [Missing Information] You must enter a Phone Number to complete the order",
                    "critical [Incorrect Information] Delivery date is incorrect");
    EXPECT_THAT(print(), complaints);
    EXPECT_THAT(email(), complaints);
    EXPECT_FALSE(pageWritten());
}

TEST_F(OrderCommands, AMissingTemplateIsToldAndEndsTheCommandOnly) {
    for (const auto* name : {"PrtOrd.ect", "EmlOrd.ect"})
        std::filesystem::remove(folder / name);
    EXPECT_THAT(print(), ElementsAre("critical [Print Template not found] Unable to print order"));
    EXPECT_THAT(email(), ElementsAre("critical [Email Template not found] Unable to email order"));
    EXPECT_FALSE(pageWritten());
}

TEST_F(OrderCommands, APriceThatIsNoNumberEndsTheCommand) {
    install("PrtOrd.ect", "<R1>{PRICEINC}</R1>");
    install("EmlOrd.ect", "<R1>{PRICEINC}</R1>");
    EXPECT_THAT(print(), ElementsAre("critical [Print Template not found] Unable to print order"));
    EXPECT_THAT(email(), ElementsAre(notSent));
    EXPECT_FALSE(pageWritten());
}

TEST_F(OrderCommands, ADamagedTemplateEndsTheProgramAndLeavesTheOldPage) {
    install("PrtOrd.ect", "} {CODE}");
    install("EmlOrd.ect", "} {CODE}");
    EXPECT_THROW(print(), base::DamagedFile);
    EXPECT_THROW(email(), base::DamagedFile);
    EXPECT_FALSE(pageWritten());
}

TEST_F(OrderCommands, AnAddressThatIsNoneFailsBeforeAnythingIsPromised) {
    supplier.texts[catalog::ParameterText::supplierEmail] = "a@smith.example, b@smith.example";
    EXPECT_THAT(email(), ElementsAre(notSent));
}

TEST_F(OrderCommands, AMailThatDoesNotLeaveIsReported) {
    mailer.outcome = Mailer::Outcome::failed;
    EXPECT_THAT(email(), ElementsAre(outbox, testing::StartsWith("mail to "), notSent));
}

TEST_F(OrderCommands, ADraftIsNeverCalledSent) {
    mailer.outcome = Mailer::Outcome::draftOpened;
    EXPECT_THAT(email(),
                ElementsAre(testing::StartsWith("mail to "),
                            "information [Place email order in Outbox] Your email order waits in your "
                            "mail program. Send it from there"));
}

TEST_F(OrderCommands, OnlyTheTemplateMakesAMessageHtml) {
    contents.rows = {{"1", "<html>", "", "", "", "", "", ""}};
    EXPECT_THAT(email(), ElementsAre(outbox, testing::EndsWith("] <html> ")));
    install("EmlOrd.ect", "<!DOCTYPE html><HTML lang=en>");
    EXPECT_THAT(email(), ElementsAre(outbox, testing::EndsWith("] html <!DOCTYPE html><HTML lang=en>")));
}

}
