#pragma once

#include "order/kept/order_journal.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace order {

/// A line of an unfinished order, with what the catalogue said then.
struct UnfinishedLine {
    std::string code;
    std::string description;
    float quantity = 0;
    float price = 0; ///< without tax
};

/// An order that nobody finished. Texts are in the code page.
struct UnfinishedOrder {
    std::filesystem::path file;
    JournalOwner owner;
    std::chrono::system_clock::time_point changed; ///< when it was typed last, by the clock of then
    std::vector<UnfinishedLine> lines;             ///< in the order in which they were typed first
    double total = 0;                              ///< tax included, to the cent
    bool keptForLater = false;                     ///< it is not offered by itself any more
};

/// Unfinished orders as they are found in a folder, the one that was typed last at first.
struct FoundOrders {
    std::vector<UnfinishedOrder> orders;
    std::vector<std::string>
        complaints; ///< a sentence for each file that cannot be read; it stays where it is
};

/// Those of this supplier, of the catalogue in this folder and of folders that are gone; the program of
/// another folder sees to its own. A damaged file gives what stands before the damage. A folder that is not
/// there has none.
[[nodiscard]] FoundOrders unfinishedOrders(const std::filesystem::path& folder, const JournalOwner& owner);

/// It stays, and is not offered by itself any more. False when that cannot be written.
bool keepForLater(const UnfinishedOrder& order);

/// False when the file is still there.
bool deleteUnfinished(const UnfinishedOrder& order);

}
