#pragma once

#include "order/kept/unfinished_orders.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace order {

/// What the whole batches of a journal say.
struct JournalContents {
    enum class End : std::uint8_t {
        whole,
        torn,    ///< a batch was begun and not ended
        damaged, ///< something stands there that nobody has written
        newer,   ///< another form, which this program does not know; nothing was read
        foreign  ///< not a journal at all
    };

    JournalOwner owner;
    std::string takenOver;             ///< the name of the file whose order this one goes on with
    std::vector<UnfinishedLine> lines; ///< those of quantity 0 too
    std::size_t lineCount = 0;         ///< of a quantity
    double total = 0;
    std::chrono::system_clock::time_point changed;
    bool hasLeft = false;
    bool isForLater = false;
    std::size_t wholeBytes = 0; ///< up to the end of the last whole batch
    std::uint32_t check = 0;    ///< of these
    End end = End::whole;
};

[[nodiscard]] JournalContents readJournal(std::string_view bytes);

}
