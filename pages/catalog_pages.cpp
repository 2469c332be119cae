#include "pages/catalog_pages.h"

#include "catalog/template_names.h"
#include "pages/group_entries.h"
#include "pages/template/template_text.h"

#include <utility>

namespace pages {
namespace {

/// The entries of a group page, with the values of one record at a time.
class GroupRows : public Entries {
public:
    GroupRows(const catalog::ProductTable& products, std::vector<std::int32_t> numbers,
              const ProductFields& fields, std::string_view groupDescription, TaxStatus tax)
        : m_products(products),
          m_numbers(std::move(numbers)),
          m_fields(fields),
          m_groupDescription(groupDescription),
          m_tax(tax) {}

    [[nodiscard]] std::size_t count() const override { return m_numbers.size(); }

    [[nodiscard]] const Fields& entry(std::size_t index) override {
        m_fields.show(m_products.at(m_numbers[index]), m_groupDescription, m_tax);
        return m_fields;
    }

private:
    const catalog::ProductTable& m_products;
    std::vector<std::int32_t> m_numbers;
    ProductFields m_fields;
    std::string_view m_groupDescription; // of the page, the same for all entries
    TaxStatus m_tax;
};

}

CatalogPages::CatalogPages(const catalog::Catalog& catalog, const catalog::Folders& folders,
                           LayoutSizes sizes, bool programFileIsReadOnly)
    : m_catalog(catalog),
      m_dataFolder(folders.DataFolder),
      m_sizes(std::move(sizes)),
      m_parameters(catalog.parameters, folders, programFileIsReadOnly),
      m_fields(m_parameters, catalog.memos) {}

std::string_view CatalogPages::page(std::int32_t recordNumber, TaxStatus tax) {
    const auto record = m_catalog.products.at(recordNumber);
    const auto description = groupDescription(m_catalog, record);
    m_fields.show(record, description, tax);
    m_text.clear();
    if (record.isProduct()) {
        prepared(m_productPage, catalog::productTemplate, RowBlocks::dropped).render(m_fields, m_text);
    } else {
        GroupRows rows(m_catalog.products, groupEntries(m_catalog, recordNumber), m_fields, description, tax);
        groupTemplate().render(m_fields, rows, m_text);
    }
    return finished();
}

std::string_view CatalogPages::banner(std::int32_t recordNumber, TaxStatus tax) {
    const auto record = m_catalog.products.at(recordNumber);
    m_fields.show(record, groupDescription(m_catalog, record), tax);
    m_text.clear();
    prepared(m_banner, catalog::bannerTemplate, RowBlocks::none).render(m_fields, m_text);
    return finished();
}

PreparedTemplate& CatalogPages::groupTemplate() {
    const bool first = m_catalog.parameters.header().groupPageStyle() == catalog::firstGroupStyle;
    return prepared(m_groupPage, first ? catalog::firstGroupTemplate : catalog::secondGroupTemplate,
                    RowBlocks::repeated);
}

PreparedTemplate& CatalogPages::prepared(Prepared& kept, std::string_view name, RowBlocks rows) const {
    if (kept)
        return *kept;
    auto file = readTemplate(m_dataFolder, name);
    auto text = replaceLayoutSizes(file.text, m_sizes);
    const auto columns = rows == RowBlocks::repeated ? takeColumnCount(text) : 0;
    return kept.emplace(std::move(file.path), std::move(text), rows, columns);
}

std::string_view CatalogPages::finished() {
    return m_text.append("\r\n");
}

}
