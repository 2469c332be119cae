#include "publish/templates/template_check.h"

#include "base/charset.h"
#include "base/code_page.h"
#include "base/text.h"
#include "pages/template/layout_sizes.h"
#include "pages/template/render_guard.h"
#include "publish/templates/address_check.h"
#include "publish/templates/html_references.h"
#include "publish/templates/order_check.h"
#include "publish/templates/trial_rendering.h"

#include <algorithm>

namespace publish {
namespace {

using Weight = Complaint::Weight;

bool isOrder(TemplateKind kind) {
    return kind == TemplateKind::print || kind == TemplateKind::mail;
}

// As the viewer does first of all, but with texts of the tags' own lengths, so that places stay.
std::string withLayoutSizes(std::string_view text) {
    std::string filled(text);
    for (const auto tag : pages::layoutTags)
        filled = base::replaceAll(filled, tag, std::string(tag.size(), '5'));
    return filled;
}

bool isWide(std::string_view text) {
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") ||
           text.substr(0, 4).find('\0') != std::string_view::npos;
}

void checkEncoding(std::string_view text, TemplateKind kind, TemplateReport& report) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    const auto* const first = std::find_if_not(text.begin(), text.end(), isAscii);
    const bool isUtf8 = base::isUtf8(text);
    const bool saysUtf8 = kind != TemplateKind::mail && base::declaredCharset(text) == "utf-8";
    if (first == text.end() || isUtf8 == saysUtf8)
        return;
    const auto at = static_cast<std::size_t>(first - text.begin());
    if (isUtf8)
        report.warning(
            "utf-8", at,
            "the letters beyond plain English are UTF-8, which the viewer reads as Windows-1252; save "
            "the template as Windows-1252 (\"ANSI\"), or write them as HTML (&eacute;)");
    else
        report.warning("not-utf-8", at,
                       "the page says that it is UTF-8 and is not; say <meta charset=\"windows-1252\">, in "
                       "which the values come too");
}

// An address that the template writes out itself; nothing where it comes with the values.
std::optional<std::string> writtenOut(const std::string& address) {
    auto plain = base::replaceAll(base::replaceAll(address, "{DIR}", "."), "{NOIMG}", ".");
    return plain.find('{') == std::string::npos ? std::optional(std::move(plain)) : std::nullopt;
}

void checkReferences(std::string_view text, const CatalogFiles& files, TemplateReport& report) {
    for (const auto& reference : htmlReferences(text)) {
        const auto address = writtenOut(reference.address);
        const auto bad = address ? judge(*address, reference.resource, files) : std::nullopt;
        if (!bad || (reference.hasStandIn && bad->rule == "file-missing"))
            continue;
        if (bad->weight == Weight::error)
            report.error(bad->rule, reference.at, bad->text);
        else
            report.warning(bad->rule, reference.at, bad->text);
    }
}

void checkTrial(std::string_view text, const TemplateUse& use, TemplateReport& report) {
    if (!report.holdsError() && tryRendering(text, use) != Trial::passed)
        report.add(
            Weight::error, "template-damaged", std::nullopt,
            "the viewer takes the template for damaged: it has more than 10,000 tags to replace on a page, "
            "makes a page of more than 8 MB, or keeps the customer waiting");
}

}

void checkTemplate(std::string_view name, std::string_view text, const CatalogFiles& files,
                   Complaints& complaints) {
    const auto use = templateUse(name);
    if (!use)
        return;
    TemplateReport report(std::string(name), text, complaints);
    if (text.size() > pages::RenderGuard::mostBytes)
        return report.add(Weight::error, "template-damaged", std::nullopt,
                          "a template has at most 8 MB; the viewer takes a larger one for damaged");
    if (isWide(text))
        return report.error(
            "utf-16", 0,
            "the template is UTF-16, in which the viewer finds no tags; save it as Windows-1252 (\"ANSI\")");
    checkEncoding(text, use->kind, report);
    if (use->kind != TemplateKind::mail)
        checkReferences(text, files, report);

    auto filled = withLayoutSizes(text);
    takeLayoutMarker(filled, use->kind, report);
    const auto braces = checkBraces(filled, *use, report);
    const auto row = checkMarkers(filled, *use, braces.blocks, report);
    if (isOrder(use->kind))
        checkOrderTags(braces, row, *use, report);
    checkTrial(text, *use, report);
}

}
