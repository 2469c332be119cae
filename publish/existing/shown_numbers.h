#pragma once

#include <string>

namespace publish {

/// A price with all its decimals, two at least: "4.50", "0.125".
[[nodiscard]] std::string priceText(float price);

/// "+8.3 %".
[[nodiscard]] std::string percentText(double percent);

/// A file's name, which may be any bytes, as UTF-8.
[[nodiscard]] std::string shownName(const std::string& name);

}
