#pragma once

#include <filesystem>
#include <string>

namespace bench {

/// A product list of so many rows with groups, rates and long descriptions of some 600 characters, as a text
/// with semicolons and decimal commas.
[[nodiscard]] std::string largeListText(int products);

/// The same as a file in the temp folder, ".csv" or ".xlsx"; made when it is not there yet.
[[nodiscard]] std::filesystem::path largeListFile(int products, const std::string& ending);

}
