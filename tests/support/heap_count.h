#pragma once

#include <cstddef>

namespace support {

/// The bytes that the program has asked of the heap so far, given back or not.
[[nodiscard]] std::size_t heapBytes();

}
