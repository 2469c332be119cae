#pragma once

#include <cstdint>

namespace ui::system {

/// Lets another process of this user have no more than so many bytes that it writes to and shares with none;
/// what it asks for beyond that is refused. An id of 0 names none, and one whose process is gone already does
/// nothing. Does nothing where the system has no such limit.
void limitMemory(std::int64_t process, std::uint64_t bytes);

/// The bytes that another process holds at this moment in the machine's memory, what it shares included; 0
/// where that cannot be told.
[[nodiscard]] std::uint64_t memoryOf(std::int64_t process);

}
