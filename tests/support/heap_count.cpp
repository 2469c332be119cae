#include "tests/support/heap_count.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t asked = 0;

}

void* operator new(std::size_t size) {
    asked += size;
    if (auto* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace support {

std::size_t heapBytes() {
    return asked;
}

}
