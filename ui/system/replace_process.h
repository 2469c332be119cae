#pragma once

#include <filesystem>
#include <string>

namespace ui::system {

/// Runs a program file, without arguments, in this process's place. So it returns only where that cannot be
/// done, with the system's reason. For systems that can: Linux and macOS.
[[nodiscard]] std::string replaceProcess(const std::filesystem::path& program);

}
