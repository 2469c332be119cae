#include "order/basket_line.h"

#include "base/bytes.h"

namespace order {
namespace {

constexpr std::size_t unusedOffset = 0;
constexpr std::size_t quantityOffset = 1;
constexpr std::size_t taxOffset = 5;
constexpr std::size_t amountOffset = 9;
constexpr std::size_t productOffset = 13;

}

void writeLine(std::span<std::byte> record, const BasketLine& line) {
    record[unusedOffset] = std::byte{0};
    base::writeSingle(record, quantityOffset, line.quantity);
    base::writeSingle(record, taxOffset, line.tax);
    base::writeSingle(record, amountOffset, line.amount);
    base::writeNumber(record, productOffset, line.product);
}

}
