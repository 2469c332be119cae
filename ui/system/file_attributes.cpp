#include "ui/system/file_attributes.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace ui::system {

bool isOnlyReadOnly(const std::filesystem::path& path) {
#ifdef _WIN32
    return GetFileAttributesW(path.c_str()) == FILE_ATTRIBUTE_READONLY;
#else
    return ::access(path.c_str(), F_OK) == 0 && ::access(path.c_str(), W_OK) != 0;
#endif
}

}
