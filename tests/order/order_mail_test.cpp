#include "order/order_mail.h"

#include <gtest/gtest.h>

namespace {

TEST(OrderMail, OnlyTheAddressOfOneMailboxIsAnAddress) {
    for (const auto* address : {"a@b", "orders@smith.example", "o'neil+x.y@a-b.c1.example", "1@2.3"})
        EXPECT_TRUE(order::isMailAddress(address)) << address;
    const std::string refused[] = {"",
                                   "orders",
                                   "@smith.example",
                                   "orders@",
                                   "a@b@c",
                                   "a@b, c@d",
                                   "a@b;c@d",
                                   "a b@c",
                                   "a@b\r\nBcc: c@d",
                                   "a@b\n",
                                   "Orders <a@b>",
                                   "<a@b>",
                                   "\"a\"@b",
                                   "a@b(c)",
                                   "a.@b",
                                   ".a@b",
                                   "a..b@c",
                                   "a@b..c",
                                   "a@.b",
                                   "a@b.",
                                   "a@[1.2.3.4]",
                                   "a:b@c",
                                   "-oQ/tmp@b",
                                   "a?bcc=c@d",
                                   "a?attach=/etc/passwd&bcc=c@d",
                                   "a%40b@c",
                                   "a#b@c",
                                   "b!a@c",
                                   "|sh@c",
                                   "`id`@c",
                                   "$HOME@c",
                                   "/tmp/x@c",
                                   "m\xFCller@b",
                                   "a@m\xFCller",
                                   std::string("a@b\0", 4),
                                   std::string(65, 'a') + "@b",
                                   "a@" + std::string(260, 'b')};
    for (const auto& address : refused) {
        EXPECT_FALSE(order::isMailAddress(address)) << address;
        EXPECT_FALSE(order::orderMail(address, "1", "", false)) << address;
    }
    EXPECT_EQ(order::orderMail("  a@b  ", "1", "", false).value().to, "a@b");
}

}
