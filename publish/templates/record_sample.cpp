#include "publish/templates/record_sample.h"

#include <algorithm>

namespace publish {
namespace {

using Records = std::vector<std::int32_t>;

constexpr std::size_t mostGroups = 400;
constexpr std::size_t mostProducts = 1'500;
constexpr std::size_t mostSuspicious = 400;

bool isSuspicious(std::string_view text) {
    return text.find('{') != std::string_view::npos || text.find("<R") != std::string_view::npos ||
           text.find("</R") != std::string_view::npos;
}

bool isSuspicious(const catalog::ProductRecord& record, const catalog::MemoFile& memos) {
    return isSuspicious(record.text()) || isSuspicious(record.pictureName()) ||
           isSuspicious(memos.text(record.memoPosition(), record.memoLength()));
}

void appendEveryNth(Records& sample, const Records& all, std::size_t most) {
    const auto step = (all.size() + most - 1) / most;
    for (std::size_t i = 0; i < all.size(); i += step)
        sample.push_back(all[i]);
}

}

Records recordSample(const catalog::Catalog& catalog) {
    Records groups;
    Records products;
    Records suspicious;
    for (std::int32_t number = 1; number <= catalog.products.count(); ++number) {
        const auto record = catalog.products.at(number);
        (record.isProduct() ? products : groups).push_back(number);
        if (isSuspicious(record, catalog.memos))
            suspicious.push_back(number);
    }
    Records sample{1};
    appendEveryNth(sample, groups, mostGroups);
    appendEveryNth(sample, products, mostProducts);
    appendEveryNth(sample, suspicious, mostSuspicious);
    std::sort(sample.begin(), sample.end());
    sample.erase(std::unique(sample.begin(), sample.end()), sample.end());
    return sample;
}

}
