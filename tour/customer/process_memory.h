#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace tour {

/// What this process and all that it has started have asked for of the memory, in KB, by the kind of process;
/// what several share is counted in parts. Libraries' code, which the system drops when it needs room, does
/// not count (Linux).
[[nodiscard]] std::map<std::string, std::size_t> memoryByKind();

[[nodiscard]] std::size_t total(const std::map<std::string, std::size_t>& byKind);

}
