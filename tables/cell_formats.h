#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tables {

/// How a spreadsheet shows a number.
struct CellFormat {
    enum class Kind { plain, percent, date };

    Kind kind = Kind::plain;
    std::size_t digits = 0; ///< filled up with zeros in front: 5 of "00000"
};

/// What a format code of .xlsx says: "0.00%", "dd/mm/yyyy", "00000".
[[nodiscard]] CellFormat cellFormatOf(std::string_view code);

/// The formats that .xlsx knows by number alone.
[[nodiscard]] CellFormat builtInFormat(std::size_t id);

/// A number's text as it stands in a spreadsheet's file, as shortest decimal text: rounded to 15 digits,
/// which is what spreadsheets show at most. Rates come in percent ("25%"), dates as "2026-01-31". What is no
/// number stays as it is.
[[nodiscard]] std::string shownNumber(std::string_view stored, const CellFormat& format,
                                      bool from1904 = false);

}
