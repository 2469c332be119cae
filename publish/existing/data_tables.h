#pragma once

#include "catalog/code_index.h"
#include "catalog/memo_file.h"
#include "catalog/record_file.h"
#include "publish/existing/findings.h"

#include <cstdint>
#include <vector>

namespace publish {

/// The tables of a catalogue that are checked against each other.
struct DataTables {
    catalog::ProductTable products;
    catalog::GroupTable groups;
    catalog::Table<catalog::IndexRecord> index;
    catalog::CodeIndex codes; ///< the same, as the viewer searches it
    catalog::MemoFile memos;

    [[nodiscard]] bool holdsGroup(std::int32_t number) const {
        return number >= 1 && number <= groups.count();
    }

    [[nodiscard]] bool holdsProduct(std::int32_t number) const {
        return number >= 1 && number <= products.count();
    }
};

/// The group that a record names, as the viewer takes it: 0 means group 1.
[[nodiscard]] inline std::int32_t groupOf(const catalog::ProductRecord& record) {
    return record.group() == 0 ? 1 : record.group();
}

/// Each record by itself: texts, prices, group, long description.
void checkProducts(const DataTables& tables, Findings& findings);

/// The tree of groups, and whether the records stand as the viewer's lists expect.
void checkGroups(const DataTables& tables, Findings& findings);

/// Whether every code is found, and leads to its product.
void checkIndex(const DataTables& tables, Findings& findings);

}
