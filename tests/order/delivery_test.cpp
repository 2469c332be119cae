#include "base/text.h"
#include "order/delivery_date.h"
#include "order/details_file.h"
#include "order/order_check.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>

#include <fstream>

namespace {
using order::DateBox;

order::DeliveryDetails details(std::string business, std::string phone) {
    order::DeliveryDetails result;
    result.business = std::move(business);
    result.phone = std::move(phone);
    return result;
}

TEST(DeliveryDate, BoxesTakeDigitsOnly) {
    for (int code = 0; code < 256; ++code)
        EXPECT_EQ(order::passesIntoDate(static_cast<char>(code)), code >= 48 && code <= 57) << code;
    EXPECT_FALSE(order::isFull("3"));
    EXPECT_TRUE(order::isFull("31"));
}

TEST(DeliveryDate, ABoxIsLeftOnlyWithADayOrMonthThatCanBe) {
    const struct {
        const char *day, *month;
        bool mayLeaveDay, mayLeaveMonth;
    } cases[] = {{"1", "1", true, true},      {"31", "12", true, true},   {"32", "1", false, true},
                 {"0", "1", false, true},     {"00", "00", false, false}, {"31", "13", true, false},
                 {"28", "2", true, true},     {"29", "02", true, false},  {"30", "4", true, true},
                 {"31", "4", true, false},    {"31", "6", true, false},   {"31", "9", true, false},
                 {"31", "11", true, false},   {"31", "8", true, true},    {"", "", true, true},
                 {"", "2", true, true},       {"5", "", true, true},      {"x", "x", false, false},
                 {"999", "999", false, false}};

    for (const auto& c : cases) {
        const order::DateBoxes boxes{c.day, c.month, "26"};
        EXPECT_EQ(order::mayLeave(DateBox::day, boxes), c.mayLeaveDay) << c.day;
        EXPECT_EQ(order::mayLeave(DateBox::month, boxes), c.mayLeaveMonth) << c.day << "/" << c.month;
        EXPECT_TRUE(order::mayLeave(DateBox::year, boxes));
    }
}

TEST(DeliveryDate, IsAssembledOfTwoCharactersEach) {
    EXPECT_EQ(order::assembledDate({"", "", ""}), "00/00/00");
    EXPECT_EQ(order::assembledDate({"1", "12", "6"}), "01/12/06");
    EXPECT_EQ(order::assembledDate({"123", "x", ""}), "23/0x/00");
}

TEST(OrderCheck, FindsDatesOnWhichNothingCanBeDelivered) {
    const struct {
        const char* date;
        bool valid;
    } cases[] = {{"30/04/05", true},  {"31/04/05", false}, {"28/02/08", true},  {"29/02/08", false},
                 {"00/00/00", true},  {"", true},          {"   ", true},       {" 00/00/00 ", true},
                 {"00/01/00", false}, {"05/00/00", false}, {"01/13/00", false}, {"31/12/xx", true},
                 {"31/08/05", true},  {"32/08/05", false}, {"31/1", true},      {"3", false},
                 {"xx/yy/zz", false}, {"-1/01/05", false}, {"1e/01/05", true}};

    for (const auto& c : cases)
        EXPECT_EQ(order::checkOrder(details("B", "1"), c.date).empty(), c.valid) << c.date;
}

TEST(OrderCheck, ComplainsAboutEverythingInTurn) {
    const std::vector<order::Complaint> everything{
        {"Missing Information", "You must enter a Business Name to complete the order"},
        {"Missing Information", "You must enter a Phone Number to complete the order"},
        {"Incorrect Information", "Delivery date is incorrect"}};
    EXPECT_EQ(order::checkOrder(details("  ", " "), "31/04/05"), everything);
    EXPECT_EQ(order::checkOrder(details("\t", "\xA0"), "").size(), 0U);
}

TEST(DeliveryDetails, ReadsAnySettingsFileAndGivesBackWhatWasTyped) {
    const auto path = support::testFolder() / "User.ini";
    const catalog::SettingsFile settings(path);
    EXPECT_EQ(order::readDetails(settings).city, "");
    for (const std::string tax : {"1", " 1", "1.4", "1d0"}) {
        std::ofstream(path, std::ios::trunc) << "[order]\nTAX=" << tax << "\nCity=K\xF6ln ; x\nStreet";
        EXPECT_TRUE(order::readDetails(settings).taxExempt) << tax;
        EXPECT_EQ(order::readDetails(settings).city, "K\xF6ln ; x");
        EXPECT_EQ(order::readDetails(settings).street, "");
    }
    for (const std::string tax : {"", "0", "2", "-1", "yes", "1e99", "\xFF"}) {
        std::ofstream(path, std::ios::trunc) << "[Order]\nTax=" << tax << "\n" << std::string(5000, '[');
        EXPECT_FALSE(order::readDetails(settings).taxExempt) << tax;
    }
    for (const std::string typed :
         {"\"Acme\"", "'", "''", "\"\"x\"\"", "\"x", "\"x'", "a=b;c", "[x]", "\xD6\xFF", "\t\"x\"\t", "\tx",
          "  ", " \"x\" ", " 'x'", "\" x \"", "x "}) {
        auto saved = details(typed, "");
        saved.taxExempt = true;
        order::saveDetails(saved, settings);
        EXPECT_EQ(order::readDetails(settings).business, base::trim(typed)) << typed;
        EXPECT_TRUE(order::readDetails(settings).taxExempt);
    }
}

TEST(DeliveryDetails, CanBeKeptUpToWhatIsReadBack) {
    const catalog::SettingsFile settings(support::testFolder() / "User.ini");
    const std::string full(249, 'x');

    const struct {
        std::string typed;
        bool kept;
    } cases[] = {{"", true},
                 {full, true},
                 {full + "x", false},
                 {"   " + full + "  ", true},
                 {"\"" + full.substr(2) + "\"", true},
                 {" \"" + full.substr(1) + "\"", false},
                 {"\t" + full, false}};

    for (const auto& c : cases) {
        EXPECT_EQ(order::canBeKept(c.typed), c.kept) << c.typed;
        order::saveDetails(details(c.typed, ""), settings);
        EXPECT_EQ(order::readDetails(settings).business == base::trim(c.typed), c.kept) << c.typed;
    }
}

TEST(DetailsFile, TellsOnceThatDetailsAreLostAndKeepsTrying) {
    const auto folder = support::testFolder() / "ACME";
    const catalog::SettingsFile settings(folder / "User.ini");
    support::Journal journal;
    support::FakeMessageBox messages(journal);
    order::DetailsFile file(settings, messages);
    const auto told = [&](const order::DeliveryDetails& typed) {
        file.save(typed);
        file.tellFailure();
        return journal.take().size();
    };

    EXPECT_EQ(told({}), 0U) << "there is nothing to lose";
    file.save(details("Marlowe", ""));
    EXPECT_TRUE(journal.take().empty()) << "saving alone says nothing";
    file.tellFailure();
    EXPECT_THAT(journal.take(), testing::ElementsAre(testing::StartsWith("exclamation [Delivery details] " +
                                                                         settings.path().string())));
    EXPECT_EQ(told(details("Marlowe", "1")), 0U) << "told already";
    std::filesystem::create_directories(folder);
    EXPECT_EQ(told(details("Marlowe", "12")), 0U);
    EXPECT_EQ(file.read(), details("Marlowe", "12"));

    std::filesystem::permissions(settings.path(), std::filesystem::perms::owner_read);
    EXPECT_EQ(told(details("Marlowe", "12")), 0U) << "the file says so already";
    EXPECT_EQ(told(details("Marlowe", "123")), 1U) << "lost again";
}

}
