#include "base/errors.h"
#include "order/exchange/order_xlsx.h"

namespace order {

bool canWriteXlsx() {
    return false;
}

void writeOrderXlsx(const std::filesystem::path& /*file*/, const OrderTable& /*table*/,
                    const Totals& /*totals*/) {
    throw base::FileError(
        "This program was built without the library for .xlsx\nPlease save the order as .csv");
}

}
