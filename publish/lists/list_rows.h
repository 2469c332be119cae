#pragma once

#include "publish/complaint.h"
#include "publish/lists/columns.h"
#include "publish/lists/list_numbers.h"
#include "tables/table.h"

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

namespace publish {

/// The rows that give products their group, from one product on: by level, the row that names it.
struct GroupRun {
    std::uint32_t firstProduct;
    std::vector<std::uint32_t> rows;
};

/// Which rows of a table are what.
struct ListRows {
    std::vector<std::uint32_t> products = {}; ///< rows of the table

    /// Groups that do not stand in the product's own row: rows with one text between products, or the cell
    /// above where a group is written only once.
    std::vector<GroupRun> groupRuns = {};
    bool areGroupRows = false; ///< the runs' rows hold one text each
    bool areFilledDown = false;

    DecimalMarkFinder decimalMark = {};
    std::size_t taxFractions = 0;                    ///< tax rates between 0 and 1, not marked as percent
    std::unordered_set<std::string> groupTexts = {}; ///< of a single group column, some thousand at most
};

/// Goes through the table once. Rows that are passed over are said in warnings, at `place`.
[[nodiscard]] ListRows findRows(const tables::Table& table, const ListColumns& columns, bool mayHaveGroupRows,
                                const Place& place, Complaints& complaints);

/// The one text of a row that names a group.
[[nodiscard]] std::string_view onlyText(const tables::TableRow& row);

}
