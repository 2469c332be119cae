#include "bench/kept_order.h"

#include <utility>

namespace bench {

order::KeptOrder keptOrder(int number) {
    order::KeptOrder order;
    order.supplier = "SUPPLIER" + std::to_string(number % 5);
    order.catalogName = "Catalogue " + std::to_string(number % 5);
    order.left = std::chrono::system_clock::time_point(std::chrono::hours(440'000 + number));
    order.contents.orderNumber = "PO-" + std::to_string(number);
    order.contents.totals = {327.06, 54.51};
    order.document.text = std::string(6000, 'x');
    return order;
}

order::DocumentRow keptLine(std::string code, std::string description) {
    return {"2", std::move(code), std::move(description), "box", "20", "4.54", "1.82", "10.90", 4.54F};
}

void keepOrders(const std::filesystem::path& file, int count,
                const std::function<order::KeptOrder(int)>& make) {
    const std::filesystem::path memory = "/dev/shm";
    const auto draft = std::filesystem::exists(memory) ? memory / "tavorine-bench.sqlite" : file;
    std::filesystem::remove(draft);
    {
        order::KeptOrders orders(draft);
        for (int i = 0; i < count; ++i)
            orders.add(make(i));
    }
    if (draft == file)
        return;
    std::filesystem::copy_file(draft, file);
    std::filesystem::remove(draft);
}

}
