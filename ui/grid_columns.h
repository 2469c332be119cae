#pragma once

#include "catalog/parameters.h"

#include <string>
#include <vector>

namespace ui {

/// What a column of the product or order grid holds.
enum class Field { quantity, mark, code, description, other, taxRate, price, tax, amount };

/// The grids' own alignment numbers (docs/file-formats.md, "Parameter header").
enum class Alignment { left = 0, right = 1, centred = 2, rightHeader = 3 };

struct Column {
    Field field;
    std::string caption;
    int widthInUnits; ///< one unit is an average character of the grid's font; 0 takes what is left over
    int narrowest;    ///< where there is not room for all; in units, in a column of numbers in digits
    Alignment header = Alignment::left;
    Alignment text = Alignment::left;
    int decimals = -1; ///< shown behind the point; -1 for columns that hold no number
    bool shown = true; ///< a column without a caption keeps its number and has no visible width
};

/// The columns of `ctGrid1`, from the left; a column's number is its index.
[[nodiscard]] std::vector<Column> productColumns(const catalog::Parameters& parameters);

/// The columns of `ctGrid2`: the same, without the Other column where the catalogue's switch says so.
[[nodiscard]] std::vector<Column> orderColumns(const catalog::Parameters& parameters);

/// A column's width as it should be and as it may become at worst, in pixels. The one that takes what is left
/// over should be 0 wide; a hidden one has 0 for both.
struct ColumnRoom {
    int wanted;
    int narrowest;
};

/// The widths of columns that share so many pixels: all as they should be while the one that takes what is
/// left over keeps its narrowest; below that the others become narrower alike. Where not even the narrowest
/// have room, the widths add up to more.
[[nodiscard]] std::vector<int> fittedWidths(const std::vector<ColumnRoom>& columns, int room);

}
