#include "publish/existing/own_records.h"

namespace publish {

std::vector<std::int32_t> ownRecordsOf(const catalog::Catalog& catalog, const GroupPaths& tree) {
    std::vector<std::int32_t> own(static_cast<std::size_t>(tree.count()) + 1);
    const auto& products = catalog.products;
    for (auto number = products.count(); number > 0; --number)
        if (const auto record = products.at(number); !record.isProduct() && tree.holds(record.group()))
            own[static_cast<std::size_t>(record.group())] = number;
    for (auto group = GroupPaths::root; group <= tree.count(); ++group) {
        const auto named = catalog.groups.at(group).headerRecord();
        if (named >= 1 && named <= products.count() && !products.at(named).isProduct())
            own[static_cast<std::size_t>(group)] = named;
    }
    return own;
}

}
