#include "ui/qt/print/piece_check.h"

namespace ui::qt {
namespace {

// Says yes only to what is known to end with its sheet: elements without behaviour, and styles that neither
// count nor place things across sheets nor look at what stands before. Rules for every kind of output are
// looked at, since those for paper do not hold yet. What lies in a table ends with it, so rules may count
// its rows and cells, as those that colour every other row do.
constexpr auto check = R"JS(
(function (breaks) {
    var inHead = /^(html|head|title|meta|link|style|body)$/;
    var inSheets = new RegExp("^(a|abbr|address|b|big|blockquote|br|caption|center|cite|code|col|colgroup|dd|div|" +
        "dl|dt|em|font|h[1-6]|hr|i|img|li|nobr|ol|p|pre|s|small|span|strike|strong|sub|sup|table|tbody|td|tfoot|" +
        "th|thead|tr|tt|u|ul|wbr)$");
    var countsInTable = /\b(tr|td|th)([.#][\w-]+)*:(nth-[\w-]+\([^()]*\)|[\w-]+-of-type|(last|only)-child)/g;
    var crosses = new RegExp("counter|-quote|:nth-|-of-type|:last-child|:only-child|:has\\(|~|" +
        "@page\\s*[^\\s{]|@(top|bottom|left|right)-|[{;\\s]page:|break-(before|after):\\s*(left|right|recto|verso)|" +
        "position:[^;]*(absolute|fixed|sticky)|float:\\s*(?!none)|column-(count|width|span)|[^-]columns:");
    var harmlessAround = /^(margin|padding|border|color|font|line-height|text-|letter-|word-|box-sizing|background|width|max-width|direction|unicode-bidi|break-before|(-webkit-)?print-color)/;

    var marks = window.pageBreaks;
    var around = [document.documentElement, document.body];

    function rulesOf(rules) {
        return Array.from(rules).flatMap(function (rule) {
            return [rule].concat(rule.styleSheet ? rulesOf(rule.styleSheet.cssRules) : [],
                                 rule.cssRules ? rulesOf(rule.cssRules) : []);
        });
    }
    function isHarmless(style) {
        return Array.from(style).every(function (name) { return harmlessAround.test(name); }) &&
            !/url|gradient|image-set/.test(style.cssText);
    }
    function touches(rule, element) {
        return rule.selectorText && element.matches(rule.selectorText);
    }
    function mayStay(rule) {
        return !crosses.test(rule.cssText.replace(countsInTable, "")) &&
            (isHarmlessFor(rule, around) && isHarmlessFor(rule, marks.slice(0, 1)));
    }
    function isHarmlessFor(rule, elements) {
        return !elements.some(function (element) { return touches(rule, element); }) || isHarmless(rule.style);
    }
    function isPlain(element) {
        var name = element.localName;
        var isBehind = marks[0].compareDocumentPosition(element) & Node.DOCUMENT_POSITION_FOLLOWING;
        return (inSheets.test(name) || (!isBehind && inHead.test(name))) &&
            !element.getAttributeNames().some(function (key) { return key.startsWith("on"); }) &&
            !(element.hasAttribute("style") && crosses.test(element.style.cssText)) &&
            !(name === "li" && !element.closest("ul, ol")) &&
            !element.matches("img[align=left i], img[align=right i], table[align=left i], table[align=right i], " +
                             "a[href^='#'], [background]");
    }
    try {
        var styles = Array.from(document.styleSheets).flatMap(function (sheet) { return rulesOf(sheet.cssRules); });
        var apart = marks.length === breaks && breaks > 0 &&
            marks.every(function (mark) { return mark.parentNode === document.body; }) &&
            styles.every(mayStay) && around.every(function (element) { return isHarmless(element.style); }) &&
            Array.from(document.querySelectorAll("*")).every(isPlain);
        return !apart ? "" : document.compatMode + around.map(function (element) {
            return element.cloneNode(false).outerHTML;
        }).join("");
    } catch (unreadable) {
        return "";
    }
})(%1)
)JS";

}

QString pieceCheck(std::size_t breaks) {
    return QString(check).arg(breaks);
}

}
