#include "tests/counted/pages_in_memory.h"

#include "base/mapped_file.h"

#include <algorithm>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace counted {

std::size_t pagesInMemory(const std::filesystem::path& file) {
    const base::MappedFile mapped(file); // which reads nothing
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    std::vector<unsigned char> held((mapped.bytes().size() + page - 1) / page);
    ::mincore(const_cast<std::byte*>(mapped.bytes().data()), mapped.bytes().size(), held.data());
    return static_cast<std::size_t>(
        std::count_if(held.begin(), held.end(), [](unsigned char flags) { return (flags & 1U) != 0; }));
}

std::size_t pagesInMemoryOf(const std::filesystem::path& folder) {
    std::size_t pages = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder))
        pages += pagesInMemory(file);
    return pages;
}

}
