#pragma once

#include "catalog/catalog.h"
#include "order/basket.h"
#include "order/wanted_line.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

using order::WantedLine;

/// A line that can be ordered.
struct TakenLine {
    std::int32_t product; ///< its record
    std::string quantity; ///< as the order takes it
    float ordered;        ///< how much of it is on the order already
};

/// A line that cannot, and why, in a few words: "No article has this code".
struct RefusedLine {
    WantedLine line;
    std::string reason;
};

/// An article that has another price now.
struct ChangedPrice {
    std::int32_t product;
    float before;
    float now;
};

/// What would come of lines if they were ordered from this catalogue today. Nothing is changed by it.
struct Intake {
    std::vector<TakenLine> lines; ///< an article once, its quantities added up exactly, by its first place
    std::vector<RefusedLine> refused; ///< in the order of the lines
    std::vector<ChangedPrice> prices; ///< in the order of `lines`
};

/// The record that has this code; 0 for none. Codes are found as links find them, in any letter case and cut
/// to 20 bytes; blanks around them do not count, and a longer one must be the record's whole code. Nothing is
/// guessed: a code that lost its zeros in a spreadsheet is not found.
[[nodiscard]] std::int32_t recordOfCode(const catalog::Catalog& catalog, std::string_view code);

/// Of several articles with one code, and of those without one, the line's record is the one, where it still
/// has that code. A file of the catalogue that is not whole any more throws base::DamagedFile.
[[nodiscard]] Intake planIntake(const catalog::Catalog& catalog, const order::Basket& basket,
                                std::span<const WantedLine> lines);

/// What becomes of an article that is on the order already.
enum class Overlap { add, replace, keep };

/// The quantity of an article once such a line has been taken, as it is typed; nothing when it stays as it
/// is.
[[nodiscard]] std::optional<std::string> quantityOnceTaken(float ordered, std::string_view wanted,
                                                           Overlap overlap);

}
