#pragma once

namespace plix {

/// What can be made to fail.
enum class Call {
    allocate, ///< operator new, on the thread that asked; throws std::bad_alloc
    allocateElsewhere, ///< the same on any other thread
    open, ///< of files, anywhere in the process; EMFILE
    read, ///< read() and pread(), anywhere; EIO
    shortRead, ///< gives one byte, and nothing from then on
    connect, ///< ECONNREFUSED
    startThread, ///< EAGAIN
    // On any thread but the one that asked:
    socket, ///< EMFILE
    send, ///< through a socket; ECONNRESET
    receive, ///< from a socket; ECONNRESET
    hangUp, ///< the same, as if the other end had closed it
    wait, ///< poll() and ppoll(); ENOMEM
    pipe, ///< EMFILE
    share, ///< shm_open() and memfd_create(); ENFILE
    map, ///< mmap(); ENOMEM
    last = map
};

/// Makes the n-th of these calls fail, once, as long as it lives. n counts from 1. Allocations by C libraries, which end the
/// program where there is no memory, are not among them: they do not go through operator new.
class Failing {
public:
    Failing(Call, long nth);
    ~Failing();
    Failing(Failing const&) = delete;
    Failing& operator=(Failing const&) = delete;

    /// Whether the call was made and failed.
    bool hasFailed() const;
    /// Of these calls, how many were made so far.
    long calls() const;
};

/// How many files the process has open.
long openFiles();
/// How many threads it has.
long threads();

}
