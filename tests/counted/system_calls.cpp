#include "tests/counted/system_calls.h"

#include <csignal>
#include <set>
#include <stdexcept>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace counted {
namespace {

using CallInfo = __ptrace_syscall_info;

constexpr int stoppedAtCall = SIGTRAP | 0x80; // as PTRACE_O_TRACESYSGOOD marks it
constexpr int refused = 3;

[[noreturn]] void beWatched(const std::function<void()>& work) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
        ::_exit(refused);
    ::kill(::getpid(), SIGSTOP); // until the parent is ready to count
    work();
    ::_exit(0);
}

// The allocator's, and what ends the process, in a sanitizer's way too: they say nothing about the work.
bool isLeftOut(const CallInfo& call) {
    static const std::set<std::uint64_t> calls{SYS_brk,      SYS_munmap,     SYS_mremap,     SYS_madvise,
                                               SYS_mprotect, SYS_exit_group, SYS_sigaltstack};
    constexpr std::size_t file = 4; // the argument of mmap; -1 means none
    return calls.contains(call.entry.nr) ||
           (call.entry.nr == SYS_mmap && static_cast<int>(call.entry.args[file]) == -1);
}

void count(pid_t child, Calls& calls) {
    CallInfo call{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof call, &call);
    if (call.op == PTRACE_SYSCALL_INFO_ENTRY && !isLeftOut(call))
        ++calls[call.entry.nr];
}

// From stop to stop until the child has ended.
Calls countAll(pid_t child) {
    Calls calls;
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (int status = 0, signal = 0;;) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, signal);
        ::waitpid(child, &status, 0);
        if (WIFEXITED(status))
            return calls;
        if (!WIFSTOPPED(status))
            throw std::runtime_error("what was counted has crashed");
        const bool isCall = WSTOPSIG(status) == stoppedAtCall;
        signal = isCall ? 0 : WSTOPSIG(status);
        if (isCall)
            count(child, calls);
    }
}

}

std::optional<Calls> callsOf(const std::function<void()>& work) {
    const auto child = ::fork();
    if (child == 0)
        beWatched(work);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFSTOPPED(status))
        return {};
    return countAll(child);
}

}
