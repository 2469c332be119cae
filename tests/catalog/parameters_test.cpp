#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using catalog::Parameters;
using catalog::ParameterText;

class ParameterFile : public testing::Test {
protected:
    ParameterFile() { builder.writeTo(folder); }

    Parameters read() {
        builder.writeTo(folder);
        return Parameters(path);
    }

    [[nodiscard]] std::string bytes() const { return base::readFile(path).value_or("no file"); }

    support::CatalogBuilder builder;
    std::filesystem::path folder = support::testFolder();
    std::filesystem::path path = folder / catalog::parametersFile;
};

std::string headerBytes() {
    auto bytes = std::string("\x01\x02\x03\x04") + "secret   " + " reset   " + "IxN" + std::string(4, '\0') +
                 "00 12" + "N" + "R    ";
    bytes[27] = 1;
    bytes[28] = 9;
    return bytes;
}

TEST_F(ParameterFile, TheHeaderIsReadFieldByField) {
    base::replaceFile(path, headerBytes() + std::string(18 * 40, ' '));
    const Parameters parameters(path);
    const auto header = parameters.header();
    EXPECT_EQ(header.catalogPassword(), "SECRET");
    EXPECT_EQ(header.resetPassword(), "RESET");
    EXPECT_EQ(header.groupPageStyle(), 'I');
    EXPECT_EQ(header.taxSwitch(), 'N');
    EXPECT_FALSE(parameters.chargesTax());
    EXPECT_TRUE(header.orderGridHasOtherColumn());
    EXPECT_EQ(header.quantityDecimals(), 4) << "the most there is";
    EXPECT_EQ(header.version(), "00 12");
    EXPECT_EQ(header.otherColumnAlignment(), 'R');
}

TEST_F(ParameterFile, TheTextsStandInTheOrderOfTheirRecords) {
    std::string file = headerBytes();
    for (int number = 2; number <= 19; ++number)
        file += "text " + std::to_string(number) + std::string(number < 10 ? 34 : 33, ' ');
    base::replaceFile(path, file);
    const Parameters parameters(path);
    EXPECT_EQ(parameters.text(ParameterText::supplierName), "text 2");
    EXPECT_EQ(parameters.text(ParameterText::supplierCell), "text 12");
    EXPECT_EQ(parameters.text(ParameterText::codeCaption), "text 14");
    EXPECT_EQ(parameters.text(ParameterText::taxName), "text 17");
    EXPECT_EQ(parameters.text(ParameterText::currency), "text 19");
}

TEST_F(ParameterFile, TextsLoseTheirPaddingAndTheTaxNameItsPercentSigns) {
    const std::string full(40, 'x');

    const struct {
        ParameterText which;
        std::string stored;
        std::string read;
    } cases[] = {{ParameterText::supplierName, full, full},
                 {ParameterText::supplierStreet, "  Low Road 5%  ", "Low Road 5%"},
                 {ParameterText::currency, "", ""},
                 {ParameterText::taxName, " GST% ", "GST"},
                 {ParameterText::taxName, "%V%AT %", "VAT "}};

    for (const auto& c : cases) {
        builder.texts[c.which] = c.stored;
        EXPECT_EQ(read().text(c.which), c.read);
    }
}

TEST_F(ParameterFile, OneThatIsTooShortIsDamagedAndOneThatIsNotThereIsMissing) {
    const auto whole = bytes();
    for (const std::size_t size : {std::size_t{0}, std::size_t{40}, whole.size() - 1}) {
        base::replaceFile(path, whole.substr(0, size));
        EXPECT_THROW(Parameters{path}, base::DamagedFile) << size;
        EXPECT_THROW(catalog::storeCatalogPassword(path, "A"), base::DamagedFile) << size;
        EXPECT_EQ(bytes().size(), size);
    }
    base::replaceFile(path, whole + "more");
    EXPECT_NO_THROW(Parameters{path});
    EXPECT_THROW(Parameters{folder / "none"}, base::MissingFile);
    EXPECT_THROW(catalog::storeCatalogPassword(folder / "none", "A"), base::MissingFile);
    EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST_F(ParameterFile, APasswordChangesItsNineBytesAndNoOther) {
    const struct {
        const char* password;
        const char* stored;
    } cases[] = {{"abc", "ABC      "},
                 {"abcdefghijkl", "ABCDEFGHI"},
                 {"", "         "},
                 {"m\xFCller", "M\xDCLLER   "}};

    base::replaceFile(path, headerBytes() + std::string(18 * 40, '\xFF') + "tail");
    const auto before = bytes();
    for (const auto& c : cases) {
        catalog::storeCatalogPassword(path, c.password);
        EXPECT_EQ(bytes(), std::string(before).replace(4, 9, c.stored));
    }
}

TEST_F(ParameterFile, APasswordIsNotWrittenToAReadOnlyFile) {
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    const auto before = bytes();
    EXPECT_THROW(catalog::storeCatalogPassword(path, "A"), base::FileError);
    EXPECT_EQ(bytes(), before);
}

}
