#include "ui/system/file_cache.h"

#ifdef __linux__
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ui::system {

bool forgetFiles([[maybe_unused]] const std::filesystem::path& folder) {
#ifdef __linux__
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const int file = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
        ::fdatasync(file);
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
    }
    return true;
#else
    return false;
#endif
}

}
