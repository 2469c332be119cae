#include "ui/system/process_memory.h"

#if defined(_WIN32)
// clang-format off
#include <windows.h> // which the next needs and does not include
#include <psapi.h>
// clang-format on
#elif defined(__linux__)
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace ui::system {

#if defined(_WIN32)

// The limit stays as long as the process, the handles do not.
void limitMemory(std::int64_t process, std::uint64_t bytes) {
    auto* const handle =
        process <= 0 ? nullptr
                     : OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, static_cast<DWORD>(process));
    auto* const job = handle ? CreateJobObjectW(nullptr, nullptr) : nullptr;
    if (job) {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_PROCESS_MEMORY;
        limits.ProcessMemoryLimit = static_cast<SIZE_T>(bytes);
        SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        AssignProcessToJobObject(job, handle);
        CloseHandle(job);
    }
    if (handle)
        CloseHandle(handle);
}

std::uint64_t memoryOf(std::int64_t process) {
    auto* const handle =
        process <= 0 ? nullptr
                     : OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process));
    if (!handle)
        return 0;
    PROCESS_MEMORY_COUNTERS counters{};
    const bool told = GetProcessMemoryInfo(handle, &counters, sizeof counters) != 0;
    CloseHandle(handle);
    return told ? counters.WorkingSetSize : 0;
}

#elif defined(__linux__)

// Address space is no measure: the browser's processes reserve far more of it than they ever use.
void limitMemory(std::int64_t process, std::uint64_t bytes) {
    if (process <= 0)
        return;
    const rlimit limit{bytes, bytes};
    ::prlimit(static_cast<pid_t>(process), RLIMIT_DATA, &limit, nullptr);
}

std::uint64_t memoryOf(std::int64_t process) {
    if (process <= 0)
        return 0;
    std::ifstream pages("/proc/" + std::to_string(process) + "/statm");
    std::uint64_t reserved = 0;
    std::uint64_t resident = 0;
    pages >> reserved >> resident;
    return pages ? resident * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)) : 0;
}

#else

void limitMemory(std::int64_t, std::uint64_t) {}

std::uint64_t memoryOf(std::int64_t) {
    return 0;
}

#endif

}
