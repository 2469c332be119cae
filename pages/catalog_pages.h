#pragma once

#include "catalog/catalog.h"
#include "pages/parameter_fields.h"
#include "pages/product_fields.h"
#include "pages/tax_status.h"
#include "pages/template/layout_sizes.h"
#include "pages/template/prepared_template.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pages {

/// The pages of one catalogue: a record number in, the text for the scratch page out, its last line end
/// included. The view lives until the next call. Templates are read at their first use and kept.
/// A missing template throws base::MissingFile, a damaged one base::DamagedFile; a record number outside
/// the file shows an empty record. The catalogue must live as long.
class CatalogPages {
public:
    CatalogPages(const catalog::Catalog& catalog, const catalog::Folders& folders, LayoutSizes sizes,
                 bool programFileIsReadOnly);

    /// The page of a product, or of a group where the record is a group's own.
    [[nodiscard]] std::string_view page(std::int32_t recordNumber, TaxStatus tax);

    [[nodiscard]] std::string_view banner(std::int32_t recordNumber, TaxStatus tax);

private:
    using Prepared = std::optional<PreparedTemplate>;

    void show(const catalog::ProductRecord& record, TaxStatus tax);
    [[nodiscard]] PreparedTemplate& prepared(Prepared& kept, std::string_view name, RowBlocks rows) const;
    [[nodiscard]] PreparedTemplate& groupTemplate();
    [[nodiscard]] std::string_view finished();

    const catalog::Catalog& m_catalog;
    std::filesystem::path m_dataFolder;
    LayoutSizes m_sizes;
    ParameterFields m_parameters;
    ProductFields m_fields;
    Prepared m_productPage;
    Prepared m_groupPage; // of the catalogue's one style
    Prepared m_banner;
    std::string m_text;
};

}
