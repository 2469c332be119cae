#include "publish/templates/rendered_check.h"

#include "base/charset.h"
#include "base/code_page.h"
#include "base/text.h"
#include "pages/folder_text.h"
#include "publish/templates/address_check.h"

#include <algorithm>

namespace publish {
namespace {

using Weight = Complaint::Weight;
using pages::Resource;

constexpr auto none = std::string::npos;
constexpr std::string_view pictureEnding = ".Jpg";

std::string withSlashes(std::string text) {
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

// The text between the tags of an address: one piece where it has no tag.
std::vector<std::string> piecesOf(std::string_view address) {
    std::vector<std::string> pieces;
    for (auto open = address.find('{'); open != none; open = address.find('{')) {
        const auto close = address.find('}', open);
        pieces.emplace_back(address.substr(0, open));
        address.remove_prefix(close == none ? address.size() : close + 1);
    }
    pieces.emplace_back(address);
    return pieces;
}

bool fits(std::string_view address, const std::vector<std::string>& pieces) {
    if (!address.starts_with(pieces.front()))
        return false;
    for (const auto& piece : pieces) {
        const auto at = address.find(piece);
        if (at == none)
            return false;
        address.remove_prefix(at + piece.size());
    }
    return pieces.back().empty() || address.empty();
}

std::string escaped(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr std::string_view special = "\"'<>";
    std::string out;
    for (const auto character : text) {
        const auto value = static_cast<unsigned char>(character);
        if (value > 0x20 && value < 0x7F && special.find(character) == none)
            out += character;
        else
            ((out += '%') += digits[value / 16]) += digits[value % 16];
    }
    return out;
}

// As the browser hands over the address of a link in a page that is read as Windows-1252.
std::string asBrowserWrites(std::string_view address) {
    const auto place = std::min(address.find('#'), address.size());
    return "file:///" + escaped(address.substr(0, place)) + escaped(base::toUtf8(address.substr(place)));
}

bool isProductLink(const HtmlReference& reference) {
    const auto mark = reference.address.find_first_of("?|");
    return reference.resource == Resource::link && mark != none &&
           base::upper(reference.address.substr(0, mark)).ends_with("TMP.HTM");
}

}

RenderedCheck::RenderedCheck(std::string_view name, std::string_view text, const catalog::Catalog& catalog,
                             const catalog::Folders& folders, const CatalogFiles& files,
                             Complaints& complaints)
    : m_text(text),
      m_catalog(catalog),
      m_files(files),
      m_links(catalog, folders),
      m_folder(withSlashes(pages::folderText(folders.DataFolder))),
      m_report(std::string(name), text, complaints) {
    for (auto& reference : htmlReferences(text)) {
        const bool isPicture = reference.address.find("{IMG}") != none;
        const auto address = withSlashes(
            base::replaceAll(base::replaceAll(reference.address, "{DIR}", m_folder), "{NOIMG}", m_folder));
        reference.address = relative(address);
        if (address.find('{') == none)
            m_known.insert(reference.address);
        else
            m_patterns.push_back({piecesOf(reference.address), std::move(reference), isPicture});
    }
}

std::string RenderedCheck::relative(const std::string& address) const {
    const auto slashed = withSlashes(address);
    if (!slashed.starts_with(m_folder + "/"))
        return address;
    return address.substr(m_folder.size() + 1);
}

void RenderedCheck::look(std::string_view page, const std::string& subject) {
    checkEncoding(page, subject);
    for (auto& reference : htmlReferences(page)) {
        reference.address = relative(reference.address);
        if (m_known.insert(reference.address).second)
            checkAddress(reference, subject);
    }
}

void RenderedCheck::checkAddress(const HtmlReference& reference, const std::string& subject) {
    const auto* const pattern = patternOf(reference);
    if (isProductLink(reference)) {
        if (pattern != nullptr)
            checkProductLink(reference, *pattern, subject);
        return;
    }
    const auto bad = judge(reference.address, reference.resource, m_files);
    if (!bad || (bad->rule == "file-missing" && reference.hasStandIn))
        return;
    if (bad->rule != "file-missing" || pattern == nullptr || !pattern->isPicture)
        return report(bad->weight, bad->rule, pattern, subject, bad->text);
    const auto name = fileNameIn(reference.address); // pictures that are named are the tables' affair
    if (isPictureOfCode(name)) {
        m_missingPictures.insert(base::toUtf8(name));
        m_pictureAt = pattern->reference.at;
    }
}

const RenderedCheck::Pattern* RenderedCheck::patternOf(const HtmlReference& reference) const {
    const auto found = std::find_if(m_patterns.begin(), m_patterns.end(), [&](const Pattern& pattern) {
        return pattern.reference.resource == reference.resource && fits(reference.address, pattern.pieces);
    });
    return found == m_patterns.end() ? nullptr : &*found;
}

bool RenderedCheck::isPictureOfCode(std::string_view name) const {
    if (!name.ends_with(pictureEnding))
        return false;
    const auto record = m_catalog.codes.find(name.substr(0, name.size() - pictureEnding.size()));
    return base::trim(m_catalog.products.at(record).pictureName()).empty();
}

void RenderedCheck::checkProductLink(const HtmlReference& reference, const Pattern& pattern,
                                     const std::string& subject) {
    const auto end = m_links.follow(asBrowserWrites(reference.address));
    if (std::holds_alternative<pages::LeadsToMissingProduct>(end))
        report(Weight::error, "link-code-unreachable", &pattern, subject,
               "the link to " + base::toUtf8(reference.address) +
                   " leads to no product; codes with quotation marks, \"%\", \"<\" or \"&\" cannot be linked "
                   "to");
}

void RenderedCheck::checkEncoding(std::string_view page, const std::string& subject) {
    if (m_encodingTold || !base::isUtf8(m_text) || base::isUtf8(page) ||
        base::declaredCharset(page) != "utf-8")
        return;
    m_encodingTold = true;
    report(
        Weight::warning, "values-not-utf-8", nullptr, subject,
        "the template says UTF-8, but values come in Windows-1252, so their letters beyond plain English are "
        "not readable; say <meta charset=\"windows-1252\">");
}

void RenderedCheck::damaged(const std::string& subject) {
    report(
        Weight::error, "page-damaged", nullptr, subject,
        "the viewer takes the template for damaged and ends: a value has braces in it that begin a block or "
        "bring itself back, or the page grows beyond 8 MB or 10,000 tags");
}

void RenderedCheck::finish() {
    if (m_missingPictures.empty())
        return;
    const auto& first = *m_missingPictures.begin();
    const auto others = m_missingPictures.size() - 1;
    m_report.warning("picture-of-code", m_pictureAt,
                     "the place of {IMG} stays empty on some pages: " + first +
                         (others > 0 ? " and " + std::to_string(others) + " more are" : " is") +
                         " not in the catalogue; add the picture, or tell with onerror=\"...\" what to show "
                         "instead");
}

void RenderedCheck::report(Weight weight, std::string_view rule, const Pattern* pattern,
                           const std::string& subject, const std::string& text) {
    const auto said = subject + ": " + text;
    if (pattern == nullptr)
        m_report.add(weight, rule, std::nullopt, said);
    else if (weight == Weight::error)
        m_report.error(rule, pattern->reference.at, said);
    else
        m_report.warning(rule, pattern->reference.at, said);
}

}
