#pragma once

#include <QString>

#include <cstddef>

namespace ui::qt {

/// A script that finds out whether the sheets of a loaded order page, so many of which begin with a break
/// mark, look alike with others before and behind them or without. It answers with the tags that all of
/// them stand in, or with an empty text where one sheet may touch another, or where that cannot be told.
/// Sheets that answer alike may be printed apart.
[[nodiscard]] QString pieceCheck(std::size_t breaks);

}
