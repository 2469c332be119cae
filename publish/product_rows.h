#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// The products of a supplier's list in the order of the catalogue, read one at a time, so that a million of
/// them need no more memory than one. Rows are numbered from 0 and hold products only: headings, empty rows
/// and rows that name a group are passed over.
class ProductRows {
public:
    virtual ~ProductRows() = default;

    [[nodiscard]] virtual std::size_t count() const = 0;

    /// The names of the row's group, from the top down, Windows-1252; empty where the row names none.
    virtual void readGroup(std::size_t row, std::vector<std::string>& path) const = 0;

    /// Sets every field of the product. What cannot be read is complained of, by place, and left empty or 0.
    virtual void read(std::size_t row, Product& product, Complaints& complaints) const = 0;

    /// Where a field of the row stands, by the field's name ("code", "price") under the heading that it has
    /// in the list; without a name, where the row stands.
    [[nodiscard]] virtual Place placeOf(std::size_t row, std::string_view field) const = 0;
};

}
