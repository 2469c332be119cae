#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <vector>

namespace publish {

/// Where something stands, as the supplier sees it. Texts are UTF-8; what does not apply is empty or 0.
struct Place {
    std::string file = {};   ///< by its name in the source folder or zip; "/" between folders
    std::string sheet = {};  ///< of a spreadsheet
    std::size_t row = 0;     ///< of the spreadsheet, or the line of a text file; from 1
    std::string column = {}; ///< heading of the column
};

/// What is wrong with a supplier's files, in words for the supplier (UTF-8).
struct Complaint {
    /// An error stops the catalogue; a warning is reported and passes.
    enum class Weight { warning, error };

    Weight weight = Weight::error;
    Place place = {};
    std::string text = {}; ///< what is wrong and what to do
    std::string rule = {}; ///< which check it is, for programs: "code-twice"
};

using Complaints = std::vector<Complaint>;

/// A file that cannot be used, as the error says it, which is in the code page and may have several lines.
[[nodiscard]] Complaint unusableFile(const std::string& file, const std::exception& error);

[[nodiscard]] bool holdsError(const Complaints& complaints);

/// "products.csv:12: warning: ..." or "prices.xlsx, Sheet1, row 12, Net price: error: ..." on one line.
[[nodiscard]] std::string textOf(const Complaint& complaint);
[[nodiscard]] std::string textOf(const Place& place);

}
