#include <plix/platform/foundation/file_bytes.h>

#include <cerrno>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plix {

namespace {

class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    ~FileDescriptor() { close(); }
    FileDescriptor(FileDescriptor const&) = delete;
    FileDescriptor& operator=(FileDescriptor const&) = delete;

    int get() const { return m_descriptor; }
    explicit operator bool() const { return m_descriptor >= 0; }
    bool close()
    {
        auto const descriptor = std::exchange(m_descriptor, -1);
        auto const before = errno;
        if (descriptor < 0 || ::close(descriptor) == 0) {
            errno = before;
            return true;
        }
        return false;
    }

private:
    int m_descriptor;
};

constexpr std::size_t chunkSize = 256 * 1024;

bool writeAll(int descriptor, std::span<std::uint8_t const> bytes)
{
    while (!bytes.empty()) {
        auto const written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        bytes = bytes.subspan(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return true;
}

ssize_t readSome(int descriptor, std::uint8_t* buffer, std::size_t size)
{
    for (;;) {
        auto const count = ::read(descriptor, buffer, size);
        if (count >= 0 || errno != EINTR)
            return count;
    }
}

bool giveUp(std::string const& path)
{
    auto const reason = errno;
    ::unlink(path.c_str());
    errno = reason;
    return false;
}

}

std::optional<std::vector<std::uint8_t>> readFileBytes(std::string const& path, std::size_t limit)
{
    FileDescriptor const file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status { };
    if (!file || ::fstat(file.get(), &status) != 0)
        return {};
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        return {};
    }
    // Files of the proc kind say 0 and give more, so the size is only where to begin.
    std::vector<std::uint8_t> bytes;
    std::size_t filled = 0;
    auto const expected = static_cast<std::size_t>(status.st_size);
    if (expected > limit) {
        errno = EFBIG;
        return {};
    }
    bytes.resize(expected + 1);
    for (;;) {
        if (filled == bytes.size())
            bytes.resize(bytes.size() + chunkSize);
        auto const count = readSome(file.get(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0)
            return {};
        filled += static_cast<std::size_t>(count);
        if (filled > limit) {
            errno = EFBIG;
            return {};
        }
        if (count == 0)
            break;
    }
    bytes.resize(filled);
    return bytes;
}

bool writeFileBytes(std::string const& path, std::span<std::uint8_t const> bytes, unsigned permissions)
{
    bool const wasThere = ::access(path.c_str(), F_OK) == 0;
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, permissions));
    if (!file)
        return false;
    if (writeAll(file.get(), bytes) && file.close())
        return true;
    return wasThere ? false : giveUp(path);
}

bool replaceFileBytes(std::string const& path, std::span<std::uint8_t const> bytes, unsigned permissions)
{
    auto beside = path + ".XXXXXX";
    FileDescriptor file(::mkostemp(beside.data(), O_CLOEXEC));
    if (!file)
        return false;
    bool const isWhole = writeAll(file.get(), bytes) && ::fchmod(file.get(), permissions) == 0 && ::fsync(file.get()) == 0
        && file.close() && ::rename(beside.c_str(), path.c_str()) == 0;
    return isWhole || giveUp(beside);
}

namespace {

bool keepDate(int from, int to)
{
    struct stat status { };
    if (::fstat(from, &status) != 0)
        return false;
    timespec const dates[] { { 0, UTIME_OMIT }, status.st_mtim };
    return ::futimens(to, dates) == 0;
}

}

bool copyFileBytes(std::string const& source, std::string const& destination, unsigned permissions,
    std::function<bool(std::uint64_t bytes)> const& didCopy)
{
    FileDescriptor const from(::open(source.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!from)
        return false;
    FileDescriptor to(::open(destination.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!to)
        return false;
    auto const buffer = std::make_unique<std::uint8_t[]>(chunkSize);
    for (;;) {
        auto const count = readSome(from.get(), buffer.get(), chunkSize);
        if (count < 0 || !writeAll(to.get(), { buffer.get(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)) }))
            return giveUp(destination);
        if (count == 0)
            break;
        if (!didCopy(static_cast<std::uint64_t>(count))) {
            errno = ECANCELED;
            return giveUp(destination);
        }
    }
    return (::fchmod(to.get(), permissions) == 0 && keepDate(from.get(), to.get()) && to.close()) || giveUp(destination);
}

}
