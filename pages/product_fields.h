#pragma once

#include "catalog/memo_file.h"
#include "catalog/records.h"
#include "pages/parameter_fields.h"
#include "pages/tax_status.h"
#include "pages/template/fields.h"

#include <string>
#include <string_view>
#include <vector>

namespace pages {

/// All tags of catalogue pages, for one record at a time (docs/template-language.md, "Tags").
/// Parameters and memos must live as long.
class ProductFields : public Fields {
public:
    ProductFields(const ParameterFields& parameters, const catalog::MemoFile& memos)
        : m_parameters(parameters), m_memos(memos) {}

    /// The record whose values are given from now on; nothing may be asked for before. The record's bytes and
    /// the group's name must live as long as values are asked for.
    void show(const catalog::ProductRecord& record, std::string_view groupDescription, TaxStatus tax);

    [[nodiscard]] unsigned number(std::string_view tag) const override;
    void append(unsigned number, std::string& out) const override;

    /// All that it knows.
    [[nodiscard]] static std::vector<std::string_view> tags();

private:
    void appendPicture(std::string& out) const;
    void appendTaxRate(std::string& out) const;
    void appendTax(std::string& out) const;
    void appendPriceWithTax(std::string& out) const;
    void appendLongDescription(std::string& out) const;

    const ParameterFields& m_parameters;
    const catalog::MemoFile& m_memos;
    catalog::ProductRecord m_record{catalog::RecordBytes()};
    // Cut out of the record's text once, for pages that show them several times.
    std::string_view m_code;
    std::string_view m_description;
    std::string_view m_groupDescription;
    TaxStatus m_tax = TaxStatus::taxed;
};

}
