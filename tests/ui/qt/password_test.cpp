#include "tests/ui/qt/program_folder.h"

#include <QTest>

namespace {
using namespace tour;

class PasswordTest : public ProgramTest {
protected:
    PasswordTest() {
        writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
        catalog.resetPassword = "SUPPLIER";
    }

    /// Confirms a new password as soon as the second entry has the focus.
    void confirm(const QString& password) {
        script.when(
            "the confirmation", [] { return takesKeys(visibleWidget("txtConfirm")); },
            [password] {
                EXPECT_EQ(visibleWidget("cbNext(0)"), nullptr);
                EXPECT_NE(visibleWidget("cbNext(1)"), nullptr);
                QTest::keyClicks(visibleWidget("txtConfirm"), password);
                QTest::keyClick(visibleWidget("txtConfirm"), Qt::Key_Return);
            });
    }

    [[nodiscard]] std::string storedPassword() const { return readFile("ACME/PrdPrm.dat").substr(4, 9); }

    support::CatalogBuilder catalog = smallCatalog("Acme");
};

TEST_F(PasswordTest, ANewPasswordIsTypedTwiceStoredAndAskedForFromThenOn) {
    deliver("ACME", catalog);
    enterPassword("abc");
    confirm("abd");
    answer("Password Protection", QMessageBox::Yes);
    enterPassword("abc");
    confirm("ABC");
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_EQ(boxTexts.back(), "Password and Confirm Password fields differ\nTry again");
    EXPECT_EQ(storedPassword(), "ABC      ");
    auto untouched = readFile("ACME/PrdPrm.dat");
    const auto delivered = [&] {
        support::CatalogBuilder copy = catalog;
        copy.writeTo(folder / "compare");
        return readFile("compare/PrdPrm.dat");
    }();
    untouched.replace(4, 9, delivered.substr(4, 9));
    EXPECT_EQ(untouched, delivered);

    enterPassword("xyz");
    answer("Password Protection", QMessageBox::Yes);
    enterPassword(" aBc ");
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_EQ(boxTexts.back(), "Incorrect Password\nTry again");
}

TEST_F(PasswordTest, DecliningAnotherTryEndsTheProgram) {
    catalog.catalogPassword = "SECRET";
    deliver("ACME", catalog);
    enterPassword("wrong");
    answer("Password Protection", QMessageBox::No);
    script.when(
        "never", [] { return false; }, [] {});
    EXPECT_FALSE(play());
    EXPECT_EQ(storedPassword(), "SECRET   ");
}

TEST_F(PasswordTest, TheSuppliersResetPasswordOpensAndClears) {
    catalog.catalogPassword = "SECRET";
    deliver("ACME", catalog);
    enterPassword("supplier");
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_EQ(storedPassword(), "         ");
}

}
