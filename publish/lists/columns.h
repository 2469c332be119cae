#pragma once

#include "publish/lists/column_stats.h"
#include "publish/lists/list_mapping.h"
#include "tables/table.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace publish {

inline constexpr std::size_t noColumn = static_cast<std::size_t>(-1);

/// Which column of a table is what. Columns count from 0.
class ListColumns {
public:
    ListColumns() { m_fields.fill(noColumn); }

    std::optional<std::size_t> headingRow; ///< of the table
    std::vector<std::string> headings;     ///< on one line each
    std::vector<std::size_t> groups;       ///< from the top level down

    [[nodiscard]] std::size_t of(ListField field) const { return m_fields[static_cast<std::size_t>(field)]; }

    void set(ListField field, std::size_t column) { m_fields[static_cast<std::size_t>(field)] = column; }

    [[nodiscard]] bool has(ListField field) const { return of(field) != noColumn; }

    [[nodiscard]] bool isUsed(std::size_t column) const;

    /// Its heading; "column 3" where it has none or is not the first with it.
    [[nodiscard]] std::string nameOf(std::size_t column) const;

    /// The column of that name; `noColumn` where there is none.
    [[nodiscard]] std::size_t named(const std::string& name) const;

    /// The first row of the table that can be a product's.
    [[nodiscard]] std::size_t firstRow() const { return headingRow ? *headingRow + 1 : 0; }

    /// Whether products can be read: code and price are known.
    [[nodiscard]] bool areComplete() const { return has(ListField::code) && has(ListField::price); }

private:
    std::array<std::size_t, listFieldCount> m_fields{};
};

/// Takes the columns that the mapping names and finds the others by their headings, then by what stands in
/// them. Columns of the mapping that the table has not are added to `missing`.
[[nodiscard]] ListColumns findColumns(const tables::Table& table, const ListMapping& mapping,
                                      std::vector<MappingValue>& missing);

}
