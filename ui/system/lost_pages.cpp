#include "ui/system/lost_pages.h"

#ifndef _WIN32

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

namespace ui::system {
namespace {

// A signal handler is the process's and is given nothing but the address, so what it must know is too.
std::array<std::atomic<const LostPages::Range*>, 16> ranges;
struct sigaction previous;

const LostPages::Range* rangeWith(const std::byte* address) {
    for (const auto& slot : ranges)
        if (const auto* range = slot.load();
            range != nullptr && range->begin <= address && address < range->end)
            return range;
    return nullptr;
}

// Zeros from the page of this address to the end of the file: one signal a file, not one a page.
bool putZeros(const LostPages::Range& range, const std::byte* address) {
    const auto pageSize = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto inPage = reinterpret_cast<std::uintptr_t>(address) % pageSize;
    auto* const page = const_cast<std::byte*>(address - inPage);
    const auto length = static_cast<std::size_t>(range.end - page);
    return ::mmap(page, length, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) == page;
}

// An address that is nobody's goes to whoever was there before. Where that was the system itself, the
// access is tried again without a handler and ends the program.
void passOn(int signal, siginfo_t* info, void* context) {
    if ((previous.sa_flags & SA_SIGINFO) != 0)
        previous.sa_sigaction(signal, info, context);
    else if (previous.sa_handler != SIG_DFL && previous.sa_handler != SIG_IGN)
        previous.sa_handler(signal);
    else
        ::sigaction(signal, &previous, nullptr);
}

void onBusError(int signal, siginfo_t* info, void* context) {
    const int error = errno;
    const auto* address = static_cast<const std::byte*>(info->si_addr);
    const auto* range = info->si_code == BUS_ADRERR ? rangeWith(address) : nullptr;
    if (range != nullptr && putZeros(*range, address))
        *range->lost = true;
    else
        passOn(signal, info, context);
    errno = error;
}

bool install() {
    struct sigaction action {};

    action.sa_sigaction = onBusError;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    ::sigemptyset(&action.sa_mask);
    return ::sigaction(SIGBUS, &action, &previous) == 0;
}

}

LostPages::LostPages(std::span<const base::MappedFile* const> files) {
    [[maybe_unused]] static const bool installed = install();
    for (const auto* file : files)
        if (const auto bytes = file->bytes(); !bytes.empty())
            m_ranges.push_back({bytes.data(), bytes.data() + bytes.size(), &file->lost()});
    auto slot = ranges.begin();
    for (const auto& range : m_ranges) {
        slot = std::find(slot, ranges.end(), nullptr);
        if (slot == ranges.end())
            return;
        slot->store(&range);
    }
}

LostPages::~LostPages() {
    for (const auto& range : m_ranges)
        if (const auto slot = std::find(ranges.begin(), ranges.end(), &range); slot != ranges.end())
            slot->store(nullptr);
}

}

#else

namespace ui::system {

LostPages::LostPages(std::span<const base::MappedFile* const>) {}

LostPages::~LostPages() = default;

}

#endif
