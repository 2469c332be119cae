#include "ui/system/mail/html_text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace {

struct Message {
    std::string_view html;
    std::string_view text;
};

TEST(HtmlText, IsWhatAPersonReads) {
    constexpr std::array messages = {
        Message{"", "\n"},
        Message{"<!DOCTYPE html><html><head><title>no</title><style>p { a: '<p>' }</style>"
                "<script>if (a < b) '</p>'</script><body>yes",
                "yes\n"},
        Message{"<p>one\r\n  two</p>three<br><br>four<div><div>five</div></div>",
                "one two\nthree\n\nfour\nfive\n"},
        Message{"<pre>a\r\n  b</pre>c", "a\n  b\nc\n"},
        Message{"1 < 2 & <b title='>'>3</B> > <!-- <p> --> 2<1 <<", "1 < 2 & 3 > 2<1 <<\n"},
        Message{
            "&eacute;&Eacute;&euro;&Alpha;&thetasym;&#233;&#xe9;&#128;&nbsp;&nosuch;&amp;lt;&#0;&#1114112;",
            "\u00E9\u00C9\u20AC\u0391\u03D1\u00E9\u00E9\u20AC &nosuch;&lt;&#0;\uFFFD\n"},
        Message{"a<table><tr><td>b<td><p>c</p><p>d</p><tr><td></td><td> e<br>f </td></table>g",
                "a\n\nb\tc d\n\te f\ng\n"},
        Message{"<table><tr><td>a<br>b<tr><td><table><tr><td>c<td>d<tr><td colspan=2>e</table></table>f",
                "a\nb\nc\td\ne\nf\n"},
        Message{"<table><tr><td>a<td><table><tr><td>b<tr><td>c<td>d</table>x</table>", "a\tb c\td x\n"},
        Message{"</table><td>a</td></tr><tr>b<td>c", "a\nb\nc\n"},
        Message{"a<b", "a\n"},
        Message{"a<!-- b", "a\n"},
        Message{"a<p title=\"b>c", "a\nc\n"},
        Message{"a<style>b</styl>", "a\n"},
    };
    for (const auto& message : messages)
        EXPECT_EQ(ui::system::textOfHtml(message.html), message.text) << message.html;
}

// Each of these is more than a day's work for a reader that looks back or ahead at every tag.
TEST(HtmlText, IsReadOnceWhateverIsNestedOrLeftOpen) {
    constexpr std::size_t size = 4'000'000;
    for (const std::string_view piece :
         {"<ul><li>a", "<table><tr><td>a<td>", "<b>a", "<!--", "<a b=\"", "<a b='", "<", "&", "&#", "</td>",
          "<style>", "</", "<p>&nbsp;", "<pre> \n", "<a     \"", "<table></table>"}) {
        std::string html;
        while (html.size() < size)
            html += piece;
        EXPECT_LE(ui::system::textOfHtml(html).size(), 2 * size) << piece;
    }
}

}
