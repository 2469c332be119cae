#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

namespace counted {

/// How often each call of the system was made, by its number (<sys/syscall.h>).
using Calls = std::map<std::uint64_t, int>;

/// Does the work in a copy of this process and counts what it asks of the system, memory of its own left
/// out. Whatever the work changes but files is lost. Nothing where no process may watch another.
[[nodiscard]] std::optional<Calls> callsOf(const std::function<void()>& work);

}
