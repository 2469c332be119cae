#pragma once

#include "catalog/parameters.h"
#include "order/order_contents.h"
#include "order/order_fields.h"
#include "pages/template/layout_sizes.h"
#include "pages/template/template_text.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace order {

/// What begins a new sheet in an order's page.
inline constexpr std::string_view sheetBreak = "<br style=\"page-break-before:always;\">";

/// "PrtOrd.ect" or "EmlOrd.ect"; with "_NT" where no tax is charged.
[[nodiscard]] std::string_view orderTemplateName(OutputKind kind, bool chargesTax, TaxStatus status);

/// Takes the row marker ("{ROW=12}") out of the text of a printed order's template, with everything in front
/// of it and one character behind it. Gives its number, the row places that are taken on the first page; 0
/// where there is no marker or no number.
unsigned takeRowMarker(std::string& text);

/// Fills a catalogue's order templates (docs/template-language.md, "Order templates"). The parameters must
/// live as long.
class OrderWriter {
public:
    OrderWriter(const catalog::Parameters& parameters, std::filesystem::path dataFolder,
                pages::LayoutSizes sizes);

    /// The template for an order of this tax status; nothing where it is missing or cannot be read.
    [[nodiscard]] std::optional<pages::TemplateFile> readTemplate(OutputKind kind, TaxStatus status) const;

    /// The page of an order: the rows with a quantity above 0, in pages of 50.
    [[nodiscard]] std::string page(const pages::TemplateFile& file, const OrderContents& order) const;

    /// The text of an order's e-mail: all rows.
    [[nodiscard]] std::string mailText(const pages::TemplateFile& file, const OrderContents& order) const;

    // Both take what a value holds as text, whatever it looks like. A damaged template throws
    // base::DamagedFile, a price in a row that is no number NotANumber.

private:
    const catalog::Parameters& m_parameters;
    std::filesystem::path m_dataFolder;
    pages::LayoutSizes m_sizes;
};

}
