#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace tour {

/// What this process and all that it has started take of the memory, in KB, by the kind of process; pages
/// that several share are counted in parts (Linux).
[[nodiscard]] std::map<std::string, std::size_t> memoryByKind();

[[nodiscard]] std::size_t total(const std::map<std::string, std::size_t>& byKind);

}
