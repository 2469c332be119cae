#include "pages/product_fields.h"

#include "base/money.h"
#include "base/text.h"

namespace pages {
namespace {

enum class Field {
    picture,
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

constexpr std::array productTagsInOrder{
    Tag{"{IMG}", Field::picture},
    Tag{"{CODE}", Field::code},
    Tag{"{DESC}", Field::description},
    Tag{"{OTHER}", Field::other},
    Tag{"{TAX%}", Field::taxRate},
    Tag{"{TAX$}", Field::tax},
    Tag{"{PRICEINC}", Field::priceWithTax},
    Tag{"{PRICEEXC}", Field::price},
    Tag{"{LNGDESC}", Field::longDescription},
    Tag{"{GRPDESC}", Field::groupDescription},
};
constexpr TagTable productTags{folderTags.end(), productTagsInOrder};
static_assert(isDistinct(productTags));
static_assert(areDistinct(parameterTags, productTags) && areDistinct(folderTags, productTags));

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
    const auto number = productTags.number(tag);
    return number != 0 ? number : m_parameters.number(tag);
}

std::vector<std::string_view> ProductFields::tags() {
    return tagsOf(productTags, folderTags, parameterTags);
}

void ProductFields::append(unsigned number, std::string& out) const {
    if (!productTags.holds(number))
        return m_parameters.append(number, out);
    switch (productTags[number]) {
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
        return base::appendFixed(out, m_record.price(), base::moneyDecimals);
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
        base::appendFixed(out, m_record.taxRate(), base::moneyDecimals);
}

void ProductFields::appendTax(std::string& out) const {
    if (m_tax == TaxStatus::exempt)
        out += nothing;
    else
        base::appendFixed(out,
                          base::held(base::percentOf(double{m_record.price()}, double{m_record.taxRate()})),
                          base::moneyDecimals);
}

void ProductFields::appendPriceWithTax(std::string& out) const {
    const double price = m_record.price();
    const double withTax = base::percentOf(price, double{m_record.taxRate()}) + price;
    const bool exempt = m_tax == TaxStatus::exempt;
    base::appendFixed(out, exempt ? m_record.price() : base::heldCents(withTax), base::moneyDecimals);
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
