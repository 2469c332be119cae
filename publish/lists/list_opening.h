#pragma once

#include "publish/lists/columns.h"
#include "publish/lists/list_mapping.h"
#include "publish/lists/list_rows.h"
#include "tables/table.h"

#include <filesystem>
#include <string>

namespace publish {

/// A product list with everything that was found out about it.
struct OpenedList {
    std::string file; ///< its name, for complaints
    tables::TableFile tables;
    std::size_t sheet = 0; ///< the table that holds the products
    ListMapping mapping;   ///< with what was found
    ListColumns columns;
    ListRows rows;
    NumberStyle numbers = NumberStyle::asWritten;
    DecimalMark decimalMark = DecimalMark::unknown;
    std::string groupSeparator;
    std::string onlyGroup; ///< the name of the group that holds everything; Windows-1252

    /// The table; null where the file has none.
    [[nodiscard]] const tables::Table* table() const {
        return sheet < tables.tables.size() ? tables.tables[sheet].table.get() : nullptr;
    }

    [[nodiscard]] Place place(std::size_t tableRow) const;
};

/// What `ProductList` does when it is made.
[[nodiscard]] OpenedList openList(const std::filesystem::path& file, std::string name,
                                  const ListMapping& mapping, Complaints& complaints);

}
