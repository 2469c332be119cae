#include "app/supplier.h"

#include <gtest/gtest.h>

namespace {

TEST(Suppliers, AreFoundByFolderNameThenByIdentifierInAnyLetterCase) {
    const std::vector<app::Supplier> listed{{"ACME", "B", "first"}, {"B", "X1 ", "second"}};

    const struct {
        const char* name;
        const char* found;
    } cases[] = {{"acme", "first"}, {" B ", "second"}, {"x1", "second"}, {"", ""},
                 {"..", ""},        {"ACME2", ""},     {"first", ""}};

    for (const auto& c : cases)
        EXPECT_EQ(app::findSupplier(listed, c.name).value_or(app::Supplier{}).displayName, c.found) << c.name;
}

}
