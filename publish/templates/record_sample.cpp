#include "publish/templates/record_sample.h"

#include "pages/group_entries.h"

#include <algorithm>

namespace publish {
namespace {

using Records = std::vector<std::int32_t>;

bool isSuspicious(std::string_view text) {
    return text.find('{') != std::string_view::npos || text.find("<R") != std::string_view::npos ||
           text.find("</R") != std::string_view::npos;
}

bool isSuspicious(const catalog::Catalog& catalog, const catalog::ProductRecord& record) {
    return isSuspicious(record.text()) || isSuspicious(record.pictureName()) ||
           isSuspicious(catalog.memos.text(record.memoPosition(), record.memoLength())) ||
           isSuspicious(pages::groupDescription(catalog, record));
}

void appendEveryNth(Records& sample, const Records& all, std::size_t most) {
    const auto step = (all.size() + most - 1) / most;
    for (std::size_t i = 0; i < all.size(); i += step)
        sample.push_back(all[i]);
}

}

Records recordSample(const catalog::Catalog& catalog, const SampleSize& most) {
    Records groups;
    Records products;
    Records suspiciousGroups;
    Records suspiciousProducts;
    for (std::int32_t number = 1; number <= catalog.products.count(); ++number) {
        const auto record = catalog.products.at(number);
        (record.isProduct() ? products : groups).push_back(number);
        if (isSuspicious(catalog, record))
            (record.isProduct() ? suspiciousProducts : suspiciousGroups).push_back(number);
    }
    Records sample{1};
    for (const auto* const groupRecords : {&groups, &suspiciousGroups})
        appendEveryNth(sample, *groupRecords, most.groups);
    for (const auto* const productRecords : {&products, &suspiciousProducts})
        appendEveryNth(sample, *productRecords, most.products);
    std::sort(sample.begin(), sample.end());
    sample.erase(std::unique(sample.begin(), sample.end()), sample.end());
    return sample;
}

}
