#include "bench/file_cache.h"

#include <fcntl.h>
#include <unistd.h>

namespace bench {

void forgetFiles(const std::filesystem::path& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const int file = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
        ::fdatasync(file);
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
    }
}

}
