#include "failing_calls.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <new>

#include <dirent.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int callKinds = 5;
/// Of each kind: how many are still made before the one that fails. 0 for none.
std::atomic<long> s_left[callKinds];
std::atomic<long> s_made[callKinds];
std::atomic<bool> s_hasFailed { false };
thread_local bool s_isAsking = false;

bool failsNow(plix::Call call)
{
    auto const kind = static_cast<int>(call);
    if (s_left[kind].load(std::memory_order_relaxed) <= 0)
        return false;
    s_made[kind].fetch_add(1, std::memory_order_relaxed);
    if (s_left[kind].fetch_sub(1, std::memory_order_relaxed) != 1)
        return false;
    s_hasFailed = true;
    return true;
}

/// A file that gave one byte gives no more.
std::atomic<int> s_endedFile { -1 };

template <typename Read> ssize_t readOrFail(int file, std::size_t size, Read read)
{
    if (failsNow(plix::Call::read)) {
        errno = EIO;
        return -1;
    }
    if (failsNow(plix::Call::shortRead)) {
        s_endedFile = file;
        return read(size > 0 ? 1 : 0);
    }
    return s_endedFile.load(std::memory_order_relaxed) == file ? 0 : read(size);
}

}

void* operator new(std::size_t size)
{
    if (s_isAsking && failsNow(plix::Call::allocate))
        throw std::bad_alloc();
    if (void* const memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

extern "C" {

ssize_t read(int file, void* buffer, std::size_t size)
{
    return readOrFail(file, size, [=](std::size_t wanted) { return ::syscall(SYS_read, file, buffer, wanted); });
}

ssize_t pread(int file, void* buffer, std::size_t size, off_t place)
{
    return readOrFail(file, size, [=](std::size_t wanted) { return ::syscall(SYS_pread64, file, buffer, wanted, place); });
}

int open(char const* path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    auto const mode = va_arg(arguments, unsigned);
    va_end(arguments);
    if (failsNow(plix::Call::open)) {
        errno = EMFILE;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

int connect(int socket, sockaddr const* address, socklen_t length)
{
    if (failsNow(plix::Call::connect)) {
        errno = ECONNREFUSED;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_connect, socket, address, length));
}
}

namespace plix {

Failing::Failing(Call call, long nth)
{
    s_hasFailed = false;
    s_made[static_cast<int>(call)] = 0;
    s_left[static_cast<int>(call)] = nth;
    s_isAsking = true;
}

Failing::~Failing()
{
    s_isAsking = false;
    for (auto& left : s_left)
        left = 0;
    s_endedFile = -1;
}

bool Failing::hasFailed() const
{
    return s_hasFailed;
}

long Failing::calls() const
{
    long most = 0;
    for (auto const& made : s_made)
        most = made > most ? made.load() : most;
    return most;
}

long openFiles()
{
    long count = 0;
    if (auto* const folder = ::opendir("/proc/self/fd")) {
        while (::readdir(folder))
            ++count;
        ::closedir(folder);
    }
    return count;
}

}
