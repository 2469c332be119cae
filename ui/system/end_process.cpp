#include "ui/system/end_process.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#endif

namespace ui::system {

void endProcess(std::int64_t id) {
    if (id <= 0)
        return;
#ifdef _WIN32
    if (auto* const process = OpenProcess(PROCESS_TERMINATE, FALSE, static_cast<DWORD>(id))) {
        TerminateProcess(process, 1);
        CloseHandle(process);
    }
#else
    ::kill(static_cast<pid_t>(id), SIGKILL);
#endif
}

}
