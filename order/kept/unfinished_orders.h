#pragma once

#include "order/kept/order_journal.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace order {

/// A line of an unfinished order, with what the catalogue said then.
struct UnfinishedLine {
    std::string code;
    std::string description;
    float quantity = 0;
    float price = 0;         ///< without tax
    float taxRate = 0;       ///< percent
    std::int32_t record = 0; ///< in the catalogue of then: at the same record with the same code it is that
                             ///< article, of several with this code or of those without one
};

/// An order that nobody finished. Texts are in the code page.
struct UnfinishedOrder {
    std::filesystem::path file;
    JournalOwner owner;
    std::chrono::system_clock::time_point changed; ///< when it was typed last, by the clock of then
    std::vector<UnfinishedLine> lines; ///< in the order in which they were typed first; never none
    double total = 0;                  ///< tax included, to the cent
    bool keptForLater = false;         ///< it is not offered by itself any more
};

/// Unfinished orders as they are found in a folder, the one that was typed last at first.
struct FoundOrders {
    std::vector<UnfinishedOrder> orders;
    std::vector<std::string> complaints; ///< a sentence for each file that is damaged or cannot be read; it
                                         ///< stays where it is
};

/// Those of this supplier, of the catalogue in this folder and of folders that are gone; the program of
/// another folder sees to its own. The one that an OrderJournal is writing is among them. Orders that left
/// are passed over. A damaged file gives what stands before the damage. A folder that is not there has none.
[[nodiscard]] FoundOrders unfinishedOrders(const std::filesystem::path& folder, const JournalOwner& owner);

/// It stays, and is not offered by itself any more. False when that cannot be written.
bool keepForLater(const UnfinishedOrder& order);

/// False when the file is still there.
bool deleteUnfinished(const UnfinishedOrder& order);

}
