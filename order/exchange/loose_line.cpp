#include "order/exchange/loose_line.h"

#include "base/text.h"
#include "order/exchange/list_quantity.h"

namespace order {
namespace {

/// A code and a number, in the order in which they were found to be that.
struct Pair {
    std::string code;
    std::string_view number; // empty for none
};

Pair parted(std::string_view number, std::string_view code) {
    if (numberKindOf({number}) == NumberKind::none)
        return {};
    return {listedCode(code), number};
}

Pair numberLast(std::string_view line) {
    const auto blank = line.rfind(' ');
    return blank == std::string_view::npos ? Pair() : parted(line.substr(blank + 1), line.substr(0, blank));
}

Pair numberFirst(std::string_view line) {
    const auto blank = line.find(' ');
    return blank == std::string_view::npos ? Pair() : parted(line.substr(0, blank), line.substr(blank + 1));
}

WantedLine pieces(const Pair& pair) {
    auto [quantity, unclear] = listedQuantity({pair.number});
    return {.code = pair.code, .quantity = std::move(quantity), .unclear = std::move(unclear)};
}

}

WantedLine readLooseLine(std::string_view utf8, const IsCode& isCode) {
    const auto tabless = base::replaceAll(utf8, "\t", " ");
    const auto line = base::trim(tabless);
    const auto whole = listedCode(line);
    const auto last = numberLast(line);
    const auto first = numberFirst(line);
    const bool isLast = !last.number.empty() && isCode(last.code);
    if (isCode(whole))
        return {.code = whole, .quantity = "1", .unclear = isLast ? "Code, or code and quantity?" : ""};
    if (!isLast && !first.number.empty() && isCode(first.code))
        return pieces(first);
    return last.number.empty() ? WantedLine{.code = whole, .quantity = "1"} : pieces(last);
}

}
