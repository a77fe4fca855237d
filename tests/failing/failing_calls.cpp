#include "failing_calls.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <new>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int callKinds = static_cast<int>(plix::Call::last) + 1;
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

bool failsElsewhere(plix::Call call)
{
    return !s_isAsking && failsNow(call);
}

bool isSocket(int file)
{
    struct stat status { };
    return ::fstat(file, &status) == 0 && S_ISSOCK(status.st_mode);
}

/// What a system call answers that fails.
int refusal(int error)
{
    errno = error;
    return -1;
}

template <typename Send> ssize_t sendOrFail(Send send)
{
    return failsElsewhere(plix::Call::send) ? refusal(ECONNRESET) : send();
}

template <typename Receive> ssize_t receiveOrFail(Receive receive)
{
    if (failsElsewhere(plix::Call::receive))
        return refusal(ECONNRESET);
    return failsElsewhere(plix::Call::hangUp) ? 0 : receive();
}

int openOrFail(char const* path, int flags, unsigned mode)
{
    if (failsNow(plix::Call::open))
        return refusal(EMFILE);
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

void* mapOrFail(void* place, std::size_t size, int protection, int flags, int file, off_t offset)
{
    if (failsElsewhere(plix::Call::map)) {
        errno = ENOMEM;
        return MAP_FAILED;
    }
    return reinterpret_cast<void*>(::syscall(SYS_mmap, place, size, protection, flags, file, offset));
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
    if (failsNow(s_isAsking ? plix::Call::allocate : plix::Call::allocateElsewhere))
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
    auto const readAll = [=](std::size_t wanted) { return ::syscall(SYS_read, file, buffer, wanted); };
    if (isSocket(file))
        return receiveOrFail([=] { return readAll(size); });
    return readOrFail(file, size, readAll);
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
    return openOrFail(path, flags, mode);
}

// As programs that know of large files are compiled to call these.
int open64(char const* path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    auto const mode = va_arg(arguments, unsigned);
    va_end(arguments);
    return openOrFail(path, flags, mode);
}

void* mmap64(void* place, std::size_t size, int protection, int flags, int file, off_t offset)
{
    return mapOrFail(place, size, protection, flags, file, offset);
}

int connect(int socket, sockaddr const* address, socklen_t length)
{
    if (failsNow(plix::Call::connect))
        return refusal(ECONNREFUSED);
    return static_cast<int>(::syscall(SYS_connect, socket, address, length));
}

int socket(int family, int type, int protocol)
{
    if (failsElsewhere(plix::Call::socket))
        return refusal(EMFILE);
    return static_cast<int>(::syscall(SYS_socket, family, type, protocol));
}

ssize_t send(int socket, void const* bytes, std::size_t size, int flags)
{
    return sendOrFail([=] { return ::syscall(SYS_sendto, socket, bytes, size, flags, nullptr, 0); });
}

ssize_t sendmsg(int socket, msghdr const* message, int flags)
{
    return sendOrFail([=] { return ::syscall(SYS_sendmsg, socket, message, flags); });
}

ssize_t recv(int socket, void* bytes, std::size_t size, int flags)
{
    return receiveOrFail([=] { return ::syscall(SYS_recvfrom, socket, bytes, size, flags, nullptr, nullptr); });
}

ssize_t recvmsg(int socket, msghdr* message, int flags)
{
    return receiveOrFail([=] { return ::syscall(SYS_recvmsg, socket, message, flags); });
}

int poll(pollfd* descriptors, nfds_t count, int milliseconds)
{
    if (failsElsewhere(plix::Call::wait))
        return refusal(ENOMEM);
    return static_cast<int>(::syscall(SYS_poll, descriptors, count, milliseconds));
}

int ppoll(pollfd* descriptors, nfds_t count, timespec const* time, sigset_t const* signals)
{
    if (failsElsewhere(plix::Call::wait))
        return refusal(ENOMEM);
    // The system call writes what is left of it.
    timespec rest = time ? *time : timespec {};
    constexpr int bytesOfSignals = 8;
    return static_cast<int>(::syscall(SYS_ppoll, descriptors, count, time ? &rest : nullptr, signals, bytesOfSignals));
}

int pipe2(int* ends, int flags)
{
    return failsElsewhere(plix::Call::pipe) ? refusal(EMFILE) : static_cast<int>(::syscall(SYS_pipe2, ends, flags));
}

int pipe(int* ends)
{
    return pipe2(ends, 0);
}

int memfd_create(char const* name, unsigned flags)
{
    return failsElsewhere(plix::Call::share) ? refusal(ENFILE) : static_cast<int>(::syscall(SYS_memfd_create, name, flags));
}

int shm_open(char const* name, int flags, mode_t mode)
{
    static auto const s_real = reinterpret_cast<decltype(&shm_open)>(::dlsym(RTLD_NEXT, "shm_open"));
    return failsElsewhere(plix::Call::share) ? refusal(ENFILE) : s_real(name, flags, mode);
}

void* mmap(void* place, std::size_t size, int protection, int flags, int file, off_t offset)
{
    return mapOrFail(place, size, protection, flags, file, offset);
}

/// Of a sanitizer, which wants to know of every thread.
[[gnu::weak]] int __interceptor_pthread_create(pthread_t*, pthread_attr_t const*, void* (*)(void*), void*);

int pthread_create(pthread_t* thread, pthread_attr_t const* attributes, void* (*function)(void*), void* argument)
{
    static auto const s_real = __interceptor_pthread_create
        ? &__interceptor_pthread_create
        : reinterpret_cast<decltype(&pthread_create)>(::dlsym(RTLD_NEXT, "pthread_create"));
    return failsNow(plix::Call::startThread) ? EAGAIN : s_real(thread, attributes, function, argument);
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

long threads()
{
    long count = -2; // itself and its parent are in the folder
    if (auto* const folder = ::opendir("/proc/self/task")) {
        while (::readdir(folder))
            ++count;
        ::closedir(folder);
    }
    return count;
}

}
