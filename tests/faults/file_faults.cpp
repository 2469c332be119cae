#include "tests/faults/file_faults.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

using faults::Fault;

enum class Needs : std::uint8_t { nothing, room };

// The calls below come from anywhere in the process, so what they ask belongs to all of it.
Fault fault = Fault::none;
bool isCounting = false;
bool struck = false;
int count = 0;
int strikesAt = 0;
faults::FolderCalls asked;

void noteFolderCall() {
    asked.all += isCounting ? 1 : 0;
}

/// Whether this call may go through; else errno is set.
bool mayPass(Needs needs) {
    if (!isCounting)
        return true;
    ++count;
    if (fault == Fault::none || count < strikesAt || (fault == Fault::once && count > strikesAt))
        return true;
    if (fault == Fault::diskFull && needs == Needs::nothing)
        return true;
    struck = true;
    if (fault == Fault::killed)
        std::raise(SIGKILL);
    errno = fault == Fault::diskFull ? ENOSPC : EIO;
    return false;
}

/// Whether a write at this point still does half of its bytes: the first that finds the disk full, and the
/// last before the end.
bool isCutHere() {
    return isCounting && !struck && count + 1 == strikesAt &&
           (fault == Fault::diskFull || fault == Fault::killed);
}

// Systems cut a write only where a block ends.
size_t cut(size_t size) {
    constexpr size_t block = 512;
    return size / 2 / block * block;
}

template <typename Call>
Call* next(const char* name) {
    return reinterpret_cast<Call*>(dlsym(RTLD_NEXT, name));
}

bool changes(int flags) {
    return (flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC)) != 0;
}

bool changes(const char* mode) {
    return std::strpbrk(mode, "wa+") != nullptr;
}

Needs needsOf(const char* path, bool creates) {
    return creates && access(path, F_OK) != 0 ? Needs::room : Needs::nothing;
}

using Open = int(const char*, int, ...);

int openNext(const char* name, const char* path, int flags, unsigned mode) {
    noteFolderCall();
    if (changes(flags) && !mayPass(needsOf(path, (flags & O_CREAT) != 0)))
        return -1;
    return next<Open>(name)(path, flags, mode);
}

std::FILE* openNext(const char* name, const char* path, const char* mode) {
    noteFolderCall();
    if (changes(mode) && !mayPass(needsOf(path, std::strpbrk(mode, "wa") != nullptr)))
        return nullptr;
    return next<std::FILE*(const char*, const char*)>(name)(path, mode);
}

}

namespace faults {

void begin(Fault which, int at) {
    fault = which;
    strikesAt = at;
    count = 0;
    struck = false;
    asked = {};
    isCounting = true;
}

int end() {
    isCounting = false;
    return count;
}

FolderCalls folderCalls() {
    return asked;
}

bool hasStruck() {
    return struck;
}

}

// The declarations are the C library's.
extern "C" {

int open(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const auto mode = va_arg(rest, unsigned);
    va_end(rest);
    return openNext("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const auto mode = va_arg(rest, unsigned);
    va_end(rest);
    return openNext("open64", path, flags, mode);
}

std::FILE* fopen(const char* path, const char* mode) {
    return openNext("fopen", path, mode);
}

std::FILE* fopen64(const char* path, const char* mode) {
    return openNext("fopen64", path, mode);
}

ssize_t write(int file, const void* bytes, size_t size) {
    const auto through = next<ssize_t(int, const void*, size_t)>("write");
    const auto part = isCutHere() && cut(size) > 0 ? through(file, bytes, cut(size)) : 0;
    if (part > 0 && fault == Fault::diskFull) {
        ++count;
        return part;
    }
    return mayPass(Needs::room) ? through(file, bytes, size) : -1;
}

// Two pieces are cut between them.
ssize_t writev(int file, const iovec* pieces, int number) {
    const auto through = next<ssize_t(int, const iovec*, int)>("writev");
    const auto part = isCutHere() && number > 1 ? through(file, pieces, number - 1) : 0;
    if (part > 0 && fault == Fault::diskFull) {
        ++count;
        return part;
    }
    return mayPass(Needs::room) ? through(file, pieces, number) : -1;
}

ssize_t pwrite(int file, const void* bytes, size_t size, off_t at) {
    const auto through = next<ssize_t(int, const void*, size_t, off_t)>("pwrite");
    const auto part = isCutHere() && cut(size) > 0 ? through(file, bytes, cut(size), at) : 0;
    if (part > 0 && fault == Fault::diskFull) {
        ++count;
        return part;
    }
    return mayPass(Needs::room) ? through(file, bytes, size, at) : -1;
}

ssize_t sendfile(int to, int from, off_t* at, size_t size) noexcept {
    return mayPass(Needs::room) ? next<ssize_t(int, int, off_t*, size_t)>("sendfile")(to, from, at, size)
                                : -1;
}

int fchmod(int file, mode_t mode) noexcept {
    return mayPass(Needs::nothing) ? next<int(int, mode_t)>("fchmod")(file, mode) : -1;
}

int rename(const char* from, const char* to) noexcept {
    noteFolderCall();
    asked.renames += isCounting ? 1 : 0;
    return mayPass(Needs::nothing) ? next<int(const char*, const char*)>("rename")(from, to) : -1;
}

int link(const char* from, const char* to) noexcept {
    noteFolderCall();
    return mayPass(Needs::room) ? next<int(const char*, const char*)>("link")(from, to) : -1;
}

int remove(const char* path) noexcept {
    noteFolderCall();
    return mayPass(Needs::nothing) ? next<int(const char*)>("remove")(path) : -1;
}

int unlink(const char* path) noexcept {
    noteFolderCall();
    return mayPass(Needs::nothing) ? next<int(const char*)>("unlink")(path) : -1;
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    noteFolderCall();
    return mayPass(Needs::nothing) ? next<int(int, const char*, int)>("unlinkat")(folder, path, flags) : -1;
}

int rmdir(const char* path) noexcept {
    noteFolderCall();
    return mayPass(Needs::nothing) ? next<int(const char*)>("rmdir")(path) : -1;
}

int mkdir(const char* path, mode_t mode) noexcept {
    noteFolderCall();
    return mayPass(Needs::room) ? next<int(const char*, mode_t)>("mkdir")(path, mode) : -1;
}

int stat(const char* path, struct stat* found) noexcept {
    noteFolderCall();
    return next<int(const char*, struct stat*)>("stat")(path, found);
}

int lstat(const char* path, struct stat* found) noexcept {
    noteFolderCall();
    return next<int(const char*, struct stat*)>("lstat")(path, found);
}

int truncate(const char* path, off_t size) noexcept {
    return mayPass(Needs::nothing) ? next<int(const char*, off_t)>("truncate")(path, size) : -1;
}

int ftruncate(int file, off_t size) noexcept {
    return mayPass(Needs::nothing) ? next<int(int, off_t)>("ftruncate")(file, size) : -1;
}

int fchmodat(int folder, const char* path, mode_t mode, int flags) noexcept {
    return mayPass(Needs::nothing)
               ? next<int(int, const char*, mode_t, int)>("fchmodat")(folder, path, mode, flags)
               : -1;
}

// What is flushed is not looked at here, and would take most of the time.
int msync(void* /*address*/, size_t /*length*/, int /*flags*/) {
    return mayPass(Needs::room) ? 0 : -1;
}
}
