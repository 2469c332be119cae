#include "app/marker_files.h"
#include "app/supplier_page.h"
#include "base/errors.h"
#include "tests/app/start_up_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

class SupplierPage : public StartUpFixture {
protected:
    [[nodiscard]] std::string page(std::string_view pageTemplate, std::size_t count) const {
        put("Start.ect", pageTemplate);
        std::vector<app::Supplier> suppliers;
        for (std::size_t number = 1; number <= count; ++number)
            suppliers.push_back({"F" + std::to_string(number), "S" + std::to_string(number),
                                 "Name " + std::to_string(number)});
        return app::supplierPage(program, {"75", "3", "4"}, suppliers);
    }

    /// The page of a template with the cells "a" and "b", without its head, tail and line ends.
    [[nodiscard]] std::string rows(std::size_t count) const {
        auto text = page("<R1>a</R1><R2>b</R2>", count);
        std::erase(text, '\r');
        std::erase(text, '\n');
        return base::replaceAll(text, "</tr><tr>", "/");
    }
};

TEST_F(SupplierPage, FillsRowsOfTwoThreeOrFourAndEndsAFullLastRowWithTwoEmptyOnes) {
    const char* pages[] = {
        "aa/bb///",         "aa/bb/a/b/",         "aaa/bbb/a/b/",          "aaa/bbb/aa/bb/",
        "aaaa/bbbb/aa/bb/", "aaaa/bbbb/aaa/bbb/", "aaaa/bbbb/aaaa/bbbb///"};
    for (std::size_t count = 2; count <= 8; ++count)
        EXPECT_EQ(rows(count), pages[count - 2]) << count;
}

TEST_F(SupplierPage, IsWrittenByteForByteAsItsTemplateTells) {
    const auto dir = base::textOf(program);
    EXPECT_EQ(page("<html {LS}{FS1}{FS2}>\n<tr><R1><td><a href='{DIR}\\{SUPPID}'>{SUPPLIER}</a></R1> dropped "
                   "<R2><td>{SUPPLIER}{X}</R2></tr></html>",
                   2),
              "<html 7534>\n<tr>"
              "\r\n<td><a href='" +
                  dir + "\\S1'>Name 1</a>\r\n<td><a href='" + dir +
                  "\\S2'>Name 2</a></tr>\r\n<tr>\r\n"
                  "\r\n<td>Name 1{X}\r\n<td>Name 2{X}</tr>\r\n<tr>\r\n"
                  "</tr>\r\n<tr>\r\n</tr>\r\n<tr>\r\n"
                  "</tr></html>\r\n");
}

TEST_F(SupplierPage, ShowsWhatAMarkerTellsAsTextAndNoMoreThanAHundredCharacters) {
    put("Start.ect", "<R1><a href=\"{SUPPID}\">{SUPPLIER}</a></R1>");
    const auto supplier = app::parseMarker("N", "a\"b'c|<b>S&P &amp; [*]</b>\"" + std::string(200, 'x'));
    const auto page = app::supplierPage(program, {}, {supplier.value()});
    EXPECT_THAT(page,
                testing::StartsWith("\r\n<a href=\"a&quot;b&#39;c\">&lt;b&gt;S&P &amp; [*]&lt;/b&gt;&quot;"));
    EXPECT_EQ(std::count(page.begin(), page.end(), 'x'), 100 - 21);
}

TEST_F(SupplierPage, WithoutASecondBlockHasNoCellsInEverySecondRow) {
    EXPECT_EQ(page("<tr><R1>{SUPPID}</R1></tr>", 3),
              "<tr>\r\nS1\r\nS2</tr>\r\n<tr>\r\n\r\n\r\n</tr>\r\n<tr>\r\n\r\nS3</tr>\r\n<tr>\r\n\r\n</"
              "tr>\r\n<tr>\r\n</tr>\r\n");
}

TEST_F(SupplierPage, EndsTheProgramWithoutItsTemplateOrAnEndMarker) {
    try {
        static_cast<void>(app::supplierPage(program, {}, {}));
        FAIL() << "no template";
    } catch (const base::ProgramEnd& end) {
        EXPECT_EQ(end.title(), "Terminating error");
        EXPECT_EQ(end.text(), "Can not find Start.ect\nPlease re-install your program");
    }
    EXPECT_THROW(static_cast<void>(page("<R1>a", 2)), base::DamagedFile);
    EXPECT_THROW(static_cast<void>(page("<R1>a</R1><R2>", 2)), base::DamagedFile);
}

}
