#include "pages/product_fields.h"

#include "base/money.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace pages {
namespace {

enum class Field : unsigned {
    picture = ParameterFields::numberEnd,
    code,
    description,
    other,
    taxRate,
    tax,
    priceWithTax,
    price,
    longDescription,
    groupDescription
};

struct NamedField {
    std::string_view tag;
    Field field;
};

constexpr std::array fields{
    NamedField{"{IMG}", Field::picture},
    NamedField{"{CODE}", Field::code},
    NamedField{"{DESC}", Field::description},
    NamedField{"{OTHER}", Field::other},
    NamedField{"{TAX%}", Field::taxRate},
    NamedField{"{TAX$}", Field::tax},
    NamedField{"{PRICEINC}", Field::priceWithTax},
    NamedField{"{PRICEEXC}", Field::price},
    NamedField{"{LNGDESC}", Field::longDescription},
    NamedField{"{GRPDESC}", Field::groupDescription},
};

constexpr int decimals = 2;
constexpr std::string_view nothing = "0.00";

}

void ProductFields::show(const catalog::ProductRecord& record, std::string_view groupDescription,
                         TaxStatus tax) {
    m_record = record;
    m_code = record.code();
    m_description = record.description();
    m_groupDescription = groupDescription;
    m_tax = tax;
}

unsigned ProductFields::number(std::string_view tag) const {
    const auto found =
        std::find_if(fields.begin(), fields.end(), [&](const auto& known) { return known.tag == tag; });
    return found == fields.end() ? m_parameters.number(tag) : static_cast<unsigned>(found->field);
}

void ProductFields::append(unsigned number, std::string& out) const {
    if (number < ParameterFields::numberEnd)
        return m_parameters.append(number, out);
    switch (static_cast<Field>(number)) {
    case Field::picture:
        return appendPicture(out);
    case Field::code:
        out += m_code;
        return;
    case Field::description:
        out += m_description;
        return;
    case Field::other:
        out += m_record.other();
        return;
    case Field::taxRate:
        return appendTaxRate(out);
    case Field::tax:
        return appendTax(out);
    case Field::priceWithTax:
        return appendPriceWithTax(out);
    case Field::price:
        return base::appendFixed(out, m_record.price(), decimals);
    case Field::longDescription:
        return appendLongDescription(out);
    case Field::groupDescription:
        out += m_groupDescription;
        return;
    }
}

void ProductFields::appendPicture(std::string& out) const {
    const auto name = m_record.pictureName();
    // Deliberate: the name keeps the blanks behind it, as it is stored.
    if (name.find_first_not_of(' ') != std::string_view::npos)
        out += name;
    else if (!m_code.empty() || m_record.text().find('\n') != std::string_view::npos)
        out.append(m_code).append(".Jpg");
}

void ProductFields::appendTaxRate(std::string& out) const {
    if (m_tax == TaxStatus::exempt)
        out += nothing;
    else
        base::appendFixed(out, m_record.taxRate(), decimals);
}

void ProductFields::appendTax(std::string& out) const {
    if (m_tax == TaxStatus::exempt)
        out += nothing;
    else
        base::appendFixed(
            out, base::held(base::percentOf(double{m_record.price()}, double{m_record.taxRate()})), decimals);
}

void ProductFields::appendPriceWithTax(std::string& out) const {
    const double price = m_record.price();
    const double withTax = base::percentOf(price, double{m_record.taxRate()}) + price;
    const bool exempt = m_tax == TaxStatus::exempt;
    base::appendFixed(out, exempt ? m_record.price() : base::heldCents(withTax), decimals);
}

void ProductFields::appendLongDescription(std::string& out) const {
    constexpr std::string_view lineBreak = " <br> ";
    auto text = m_memos.text(m_record.memoPosition(), m_record.memoLength());
    for (auto end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        out.append(text.substr(0, end)).append(lineBreak);
        text.remove_prefix(end + 1);
    }
    out += text;
}

}
