#include "base/errors.h"
#include "base/numbers.h"
#include "base/text.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "fuzz/written_list.h"
#include "order/exchange/order_list.h"
#include "order/exchange/order_text.h"

#include <algorithm>
#include <set>

namespace {

constexpr double smallest = 1e-6; // quantities that lists are expected to hold
constexpr double largest = 1e6;

// As good as any catalogue.
bool isCode(std::string_view code) {
    return !code.empty() && code.size() < 6 && code[0] != ' ';
}

order::OrderList listIn(std::string_view kind, std::string_view bytes) {
    static const fuzz::ScratchFolder scratch;
    if (kind == "text")
        return order::readOrderText(bytes, isCode);
    const auto file = scratch.path() / "list";
    fuzz::writeList(file, kind, bytes);
    return order::readOrderList(file, isCode);
}

bool canBeSaved(const order::WantedLine& line) {
    const auto quantity = base::wholeNumber(line.quantity);
    const bool isPlain = std::all_of(line.code.begin(), line.code.end(), [](char character) {
        return static_cast<unsigned char>(character) >= ' ' && character != '\x7F';
    });
    return isPlain && !line.code.empty() && line.unclear.empty() && quantity && *quantity >= smallest &&
           *quantity < largest;
}

order::OrderTable tableOf(const std::vector<order::WantedLine>& lines) {
    order::OrderTable table{{{"Code", order::CellKind::text}, {"Quantity", order::CellKind::quantity}}, {}};
    for (const auto& line : lines)
        if (canBeSaved(line))
            table.rows.push_back({line.code, base::textOf(base::parseNumber(line.quantity))});
    return table;
}

using Codes = std::set<std::string, std::less<>>;

// Whether what parts lists stands in this code beside another code, so that a list can be read in two ways.
bool holdsAnother(std::string_view code, const Codes& codes) {
    constexpr std::string_view delimiters = ";,|";
    for (const char delimiter : delimiters)
        for (std::size_t from = 0, to = 0; to < code.size(); from = to + 1) {
            to = std::min(code.find(delimiter, from), code.size());
            if (to - from < code.size() && codes.count(base::trim(code.substr(from, to - from))) > 0)
                return true;
        }
    return false;
}

// No catalogue has such: an article that is named as a heading is, or one in the name of another.
bool areMisleading(const Codes& codes) {
    return codes.count("Code") + codes.count("Quantity") > 0 ||
           std::any_of(codes.begin(), codes.end(),
                       [&](const std::string& code) { return holdsAnother(code, codes); });
}

// What was read and is saved reads as the same.
void checkSaved(const std::vector<order::WantedLine>& lines) {
    const auto table = tableOf(lines);
    Codes codes;
    for (const auto& row : table.rows)
        codes.insert(row[0]);
    if (areMisleading(codes))
        return;
    const auto again = order::readOrderText(order::orderAsTableText(table),
                                            [&](std::string_view code) { return codes.count(code) > 0; });
    fuzz::require(again.lines.size() == table.rows.size(), "other lines were saved");
    for (std::size_t i = 0; i < again.lines.size(); ++i) {
        fuzz::require(again.lines[i].code == table.rows[i][0], "another code was saved");
        fuzz::require(base::parseNumber(again.lines[i].quantity) == base::parseNumber(table.rows[i][1]) &&
                          again.lines[i].unclear.empty(),
                      "another quantity was saved");
    }
}

}

// Any text or file as a list of codes and quantities: refused, or lines that can be saved and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto input = fuzz::textOf(data, size);
    const auto kind = fuzz::takeSection(input);
    try {
        const auto list = listIn(kind, input);
        fuzz::require(list.summary.size() < 4096, "a summary is long");
        for (const auto& line : list.lines)
            fuzz::require(line.place > 0 && line.code.size() + line.quantity.size() < 4096, "a line is none");
        checkSaved(list.lines);
    } catch (const base::FileError&) {
        return 0; // refused in words
    }
    return 0;
}
