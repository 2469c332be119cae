#include "ui/system/replace_process.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace ui::system {

std::string replaceProcess(const std::filesystem::path& program) {
    auto path = program.string();
    char* const arguments[] = {path.data(), nullptr};
    ::execv(path.c_str(), arguments);
    return std::strerror(errno);
}

}
