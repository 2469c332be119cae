#include "publish/templates/trial_rendering.h"

#include "base/errors.h"
#include "catalog/record_codec.h"
#include "order/order_writer.h"
#include "pages/group_entries.h"
#include "pages/product_fields.h"
#include "pages/template/prepared_template.h"
#include "pages/template/template_text.h"
#include "publish/templates/viewer_setting.h"

#include <algorithm>
#include <string>
#include <vector>

namespace publish {
namespace {

/// Every tag has the same value.
class PlainFields : public pages::Fields {
public:
    PlainFields(TemplateKind kind, std::string_view value)
        : m_tags(kind == TemplateKind::welcome ? pages::ParameterFields::tags()
                                               : pages::ProductFields::tags()),
          m_value(value) {}

    [[nodiscard]] unsigned number(std::string_view tag) const override {
        const auto found = std::find(m_tags.begin(), m_tags.end(), tag);
        return found == m_tags.end() ? 0 : static_cast<unsigned>(found - m_tags.begin()) + 1;
    }

    void append(unsigned /*number*/, std::string& out) const override { out += m_value; }

private:
    std::vector<std::string_view> m_tags;
    std::string_view m_value;
};

class PlainEntries : public pages::Entries {
public:
    explicit PlainEntries(const pages::Fields& fields) : m_fields(fields) {}

    [[nodiscard]] std::size_t count() const override { return pages::mostGroupEntries; }

    [[nodiscard]] const pages::Fields& entry(std::size_t /*index*/) override { return m_fields; }

private:
    const pages::Fields& m_fields;
};

pages::RowBlocks rowsOf(TemplateKind kind) {
    if (kind == TemplateKind::group)
        return pages::RowBlocks::repeated;
    return kind == TemplateKind::product ? pages::RowBlocks::dropped : pages::RowBlocks::none;
}

void renderPage(std::string text, TemplateKind kind, std::string_view value) {
    const PlainFields fields(kind, value);
    PlainEntries entries(fields);
    const auto columns = kind == TemplateKind::group ? pages::takeColumnCount(text) : 0;
    std::string page;
    pages::PreparedTemplate(std::filesystem::path(), std::move(text), rowsOf(kind), columns)
        .render(fields, entries, page);
}

catalog::Parameters parametersWith(std::string_view value) {
    catalog::ParameterValues values;
    std::fill(values.texts.begin(), values.texts.end(), std::string(value));
    return catalog::Parameters(encode(values));
}

order::OrderContents orderWith(const std::string& value) {
    order::OrderContents contents;
    contents.details = {false, value, value, value, value, value, value, value, value};
    contents.orderNumber = contents.comment = contents.deliveryDate = contents.today = value;
    contents.rows = {{"1", value, value, value, "8.00", "2.50", "0.20", "2.70"}};
    return contents;
}

void renderOrder(std::string text, const TemplateUse& use, const std::string& value) {
    auto contents = orderWith(value);
    contents.taxStatus = use.taxed ? pages::TaxStatus::taxed : pages::TaxStatus::exempt;
    const auto parameters = parametersWith(value);
    const order::OrderWriter writer(parameters, {}, usualSizes());
    const pages::TemplateFile file{{}, std::move(text)};
    static_cast<void>(use.kind == TemplateKind::print ? writer.page(file, contents)
                                                      : writer.mailText(file, contents));
}

}

Trial tryRendering(std::string_view text, const TemplateUse& use) {
    const bool isOrder = use.kind == TemplateKind::print || use.kind == TemplateKind::mail;
    try {
        for (const auto* value : {"Value", ""})
            if (isOrder)
                renderOrder(std::string(text), use, value);
            else
                renderPage(pages::replaceLayoutSizes(text, usualSizes()), use.kind, value);
    } catch (const base::DamagedFile&) {
        return Trial::damaged;
    } catch (const order::NotANumber&) {
        return Trial::notANumber;
    }
    return Trial::passed;
}

}
