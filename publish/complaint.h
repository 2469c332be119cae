#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace publish {

/// What is wrong with a supplier's files, in words for the supplier (UTF-8).
struct Complaint {
    /// An error stops the catalogue; a warning is reported and passes.
    enum class Weight { warning, error };

    Weight weight = Weight::error;
    std::string file = {};
    std::size_t line = 0; ///< 0 where there is none to name
    std::string text = {};
};

using Complaints = std::vector<Complaint>;

[[nodiscard]] bool holdsError(const Complaints& complaints);

/// "products.csv:12: warning: ..." on one line.
[[nodiscard]] std::string textOf(const Complaint& complaint);

}
