#pragma once

#include "catalog/parameters.h"

#include <string>
#include <vector>

namespace ui {

/// What a column of the product or order grid holds.
enum class Field { quantity, mark, code, description, other, taxRate, price, tax, total };

/// The grids' own alignment numbers (docs/file-formats.md, "Parameter header").
enum class Alignment { left = 0, right = 1, centred = 2, rightHeader = 3 };

struct Column {
    Field field;
    std::string caption;
    int widthInUnits; ///< one unit is an average character of the grid's font; 0 takes what is left over
    Alignment header;
    Alignment text;
    int decimals; ///< shown behind the point; -1 for columns that hold no number
    bool shown;   ///< a column without a caption keeps its number and has no visible width
};

/// The columns of `ctGrid1`, from the left; a column's number is its index.
[[nodiscard]] std::vector<Column> productColumns(const catalog::Parameters& parameters);

/// The columns of `ctGrid2`: the same, without the extra column where the catalogue's switch says so.
[[nodiscard]] std::vector<Column> orderColumns(const catalog::Parameters& parameters);

}
