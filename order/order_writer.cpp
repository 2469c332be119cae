#include "order/order_writer.h"

#include "base/errors.h"
#include "base/numbers.h"
#include "catalog/template_names.h"
#include "order/document_part.h"
#include "order/order_fields.h"
#include "order/pricing.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace order {
namespace {

using pages::MarkedText;
using pages::RenderGuard;

/// An order template with its blocks decided, cut at its row markers, its tags marked.
struct TemplateParts {
    MarkedText header;
    MarkedText row;
    MarkedText footer;
    bool hasRow = false;
    pages::DecidedValues decided;
};

TemplateParts partsOf(std::string_view bytes, const OrderFields& fields, RenderGuard& guard) {
    constexpr std::u16string_view rowStart = u"<R1>";
    constexpr std::u16string_view rowEnd = u"</R1>";

    TemplateParts parts;
    auto text = pages::markedText(bytes);
    decideBlocks(text, fields, parts.decided, guard);
    const auto start = text.find(rowStart);
    parts.header = withTagsMarked(text.substr(0, start), fields, guard);
    if (start == MarkedText::npos)
        return parts;
    const auto end = text.find(rowEnd, start);
    if (end == MarkedText::npos)
        guard.damaged();
    const auto row = start + rowStart.size();
    parts.row = withTagsMarked(text.substr(row, end - row), fields, guard);
    parts.footer = withTagsMarked(text.substr(end + rowEnd.size()), fields, guard);
    parts.hasRow = true;
    return parts;
}

void removeEvery(MarkedText& text, const MarkedText& marker, RenderGuard& guard) {
    pages::replaceEvery(text, marker, MarkedText(), 0, guard);
}

// What stands between two pages of rows; empty for a header without a page header.
// Deliberate: the page header goes on to the header's end.
MarkedText takePageBreak(MarkedText& header, RenderGuard& guard) {
    const MarkedText start = u"<PH>";
    const MarkedText end = u"</PH>";
    MarkedText pageBreak;
    const auto at = header.find(start);
    if (at != MarkedText::npos) {
        auto pageHeader = header.substr(at + start.size());
        removeEvery(pageHeader, end, guard);
        pageBreak = u"</table> " + MarkedText(sheetBreak.begin(), sheetBreak.end()) + pageHeader;
    }
    removeEvery(header, start, guard);
    removeEvery(header, end, guard);
    return pageBreak;
}

void appendPages(std::string& out, const OrderContents& order, unsigned placesTaken, const DocumentPart& row,
                 const std::string& pageBreak, OrderFields& fields, RenderGuard& guard) {
    constexpr unsigned placesOnPage = 50;
    bool first = true;
    for (const auto& cells : order.rows) {
        if (typedQuantity(cells.quantity) <= 0)
            continue;
        if (!std::exchange(first, false))
            out += '\n';
        fields.show(cells);
        row.append(fields, out, guard);
        if (++placesTaken >= placesOnPage) {
            out += pageBreak;
            checkDocumentSize(out, guard);
            placesTaken = 0;
        }
    }
}

// Room for the rows, so that a long order is not copied over and over while it grows.
void reserveRows(std::string& out, const DocumentPart& row, std::size_t rows) {
    constexpr std::size_t bytesOfValues = 64;
    constexpr std::size_t most = std::size_t{32} * 1024 * 1024;
    out.reserve(out.size() + std::min(most, rows * (row.textSize() + bytesOfValues)));
}

std::string filled(const DocumentPart& part, const OrderFields& fields, RenderGuard& guard) {
    std::string text;
    part.append(fields, text, guard);
    return text;
}

}

std::string_view orderTemplateName(OutputKind kind, bool chargesTax, TaxStatus status) {
    const bool taxed = chargesTax && status == TaxStatus::taxed;
    if (kind == OutputKind::print)
        return taxed ? catalog::printTemplate : catalog::printTemplateWithoutTax;
    return taxed ? catalog::mailTemplate : catalog::mailTemplateWithoutTax;
}

unsigned takeRowMarker(std::string& text) {
    constexpr std::string_view markerStart = "{ROW=";
    constexpr std::size_t digits = 2;
    // Deliberate: the character behind the marker goes with it.
    constexpr std::size_t taken = 9;
    constexpr double most = 255;

    const auto at = text.find(markerStart);
    if (at == std::string::npos)
        return 0;
    const auto value = base::parseNumber(std::string_view(text).substr(at + markerStart.size(), digits));
    text.erase(0, std::min(at + taken, text.size()));
    return static_cast<unsigned>(std::clamp(std::nearbyint(value), 0.0, most));
}

OrderWriter::OrderWriter(const catalog::Parameters& parameters, std::filesystem::path dataFolder,
                         pages::LayoutSizes sizes)
    : m_parameters(parameters), m_dataFolder(std::move(dataFolder)), m_sizes(std::move(sizes)) {}

std::optional<pages::TemplateFile> OrderWriter::readTemplate(OutputKind kind, TaxStatus status) const {
    try {
        return pages::readTemplate(m_dataFolder, orderTemplateName(kind, m_parameters.chargesTax(), status));
    } catch (const base::ProgramEnd&) {
        return std::nullopt; // an order that cannot go out does not end the program
    }
}

std::string OrderWriter::page(const pages::TemplateFile& file, const OrderContents& order) const {
    constexpr std::string_view inPlaceOfEmptyCell = ".";
    constexpr std::string_view inPlaceOfEmptyFooterValue = " ";

    RenderGuard guard(file.path);
    OrderFields fields(m_parameters, order, OutputKind::print);
    auto text = pages::replaceLayoutSizes(file.text, m_sizes);
    const auto placesTaken = takeRowMarker(text);
    auto parts = partsOf(text, fields, guard);
    const auto breakText = takePageBreak(parts.header, guard);

    auto page = filled({parts.header, parts.decided}, fields, guard);
    const auto pageBreak = filled({breakText, parts.decided}, fields, guard);
    const auto footer = filled({parts.footer, parts.decided, inPlaceOfEmptyFooterValue}, fields, guard);
    if (parts.hasRow) {
        const DocumentPart row(parts.row, parts.decided, inPlaceOfEmptyCell);
        reserveRows(page, row, order.rows.size());
        appendPages(page, order, placesTaken, row, pageBreak, fields, guard);
    }
    page.append(footer).append("\r\n");
    checkDocumentSize(page, guard);
    return page;
}

std::string OrderWriter::mailText(const pages::TemplateFile& file, const OrderContents& order) const {
    RenderGuard guard(file.path);
    OrderFields fields(m_parameters, order, OutputKind::email);
    const auto parts = partsOf(pages::replaceLayoutSizes(file.text, m_sizes), fields, guard);

    auto text = filled({parts.header, parts.decided}, fields, guard);
    const auto footer = filled({parts.footer, parts.decided}, fields, guard);
    const DocumentPart row(parts.row, parts.decided);
    reserveRows(text, row, order.rows.size());
    for (const auto& cells : order.rows) {
        fields.show(cells);
        row.append(fields, text, guard);
    }
    return text += footer;
}

}
