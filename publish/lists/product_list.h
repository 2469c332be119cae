#pragma once

#include "publish/lists/list_mapping.h"
#include "publish/product_rows.h"

#include <filesystem>
#include <memory>
#include <string>

namespace publish {

/// A supplier's product list as a file: delimited text, .xlsx or .ods. What the mapping leaves open is
/// found by headings and by what stands in the columns. One thread at a time may read it.
class ProductList final : public ProductRows {
public:
    /// `name` is the file's for complaints. What cannot be found is complained of, and the list then has no
    /// rows. A file that cannot be read throws base::FileError.
    ProductList(const std::filesystem::path& file, std::string name, const ListMapping& mapping,
                Complaints& complaints);
    ~ProductList() override;

    [[nodiscard]] std::size_t count() const override;
    void readGroup(std::size_t row, std::vector<std::string>& path) const override;
    void read(std::size_t row, Product& product, Complaints& complaints) const override;
    [[nodiscard]] Place placeOf(std::size_t row, std::string_view field) const override;

    /// What was taken for what, in one line (UTF-8): "read 1,204 rows of 'Preise 2026.xlsx', sheet 'Preise':
    /// code from 'Art.-Nr.', price from 'Preis netto', comma as decimal mark".
    [[nodiscard]] std::string summary() const;

    /// The given mapping with everything that was found, to be written by `textOf`.
    [[nodiscard]] const ListMapping& mapping() const;

private:
    struct Parts;
    std::unique_ptr<const Parts> m_parts;
};

}
