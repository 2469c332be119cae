#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace publish {

/// What parts the names of paths like "Bolts / Hex" or "Bolts > Hex"; empty where the texts are names. A
/// slash inside words counts only where several texts begin alike.
[[nodiscard]] std::string groupSeparatorOf(const std::unordered_set<std::string>& texts);

/// Appends the names of a path, Windows-1252, without empty ones. Without separator the text is one name.
void appendPath(std::string_view utf8, std::string_view separator, std::vector<std::string>& path);

}
