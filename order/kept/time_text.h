#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace order {

/// "2026-11-23T20:03:11Z": to the second, universal time. Such texts sort like their times.
[[nodiscard]] std::string timeText(std::chrono::system_clock::time_point time);

/// Nothing for another text, and for a time that the clock cannot tell.
[[nodiscard]] std::optional<std::chrono::system_clock::time_point> timeOf(std::string_view text);

/// "20261123-200311-123456", with the millionth parts of the second: for names of files.
[[nodiscard]] std::string timeName(std::chrono::system_clock::time_point time);

}
