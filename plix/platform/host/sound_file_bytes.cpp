#include <plix/platform/host/sound_file_bytes.h>

#include <plix/platform/host/sound_kind.h>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plix {

std::unique_ptr<SoundFileBytes> SoundFileBytes::open(std::string const& path)
{
    // There before the file is, so that somebody closes it.
    auto bytes = std::unique_ptr<SoundFileBytes>(new SoundFileBytes(-1, 0));
    bytes->m_descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (bytes->m_descriptor < 0)
        return nullptr;
    struct stat status { };
    bool const isFile = ::fstat(bytes->m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
    if (!isFile)
        return nullptr;
    bytes->m_size = status.st_size;
    return bytes;
}

SoundFileBytes::SoundFileBytes(int descriptor, std::int64_t size)
    : m_size(size)
    , m_descriptor(descriptor)
{
}

SoundFileBytes::SoundFileBytes(std::vector<std::uint8_t> bytes)
    : m_bytes(std::move(bytes))
    , m_size(static_cast<std::int64_t>(m_bytes.size()))
{
}

SoundFileBytes::~SoundFileBytes()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

std::size_t SoundFileBytes::readAt(std::int64_t place, std::span<std::uint8_t> buffer) const
{
    if (place < 0 || place >= m_size)
        return 0;
    if (m_descriptor < 0) {
        auto const count = std::min(buffer.size(), m_bytes.size() - static_cast<std::size_t>(place));
        std::copy_n(m_bytes.begin() + place, count, buffer.begin());
        return count;
    }
    std::size_t filled = 0;
    while (filled < buffer.size()) {
        auto const count
            = ::pread(m_descriptor, buffer.data() + filled, buffer.size() - filled, place + static_cast<std::int64_t>(filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    return filled;
}

std::vector<std::uint8_t> SoundFileBytes::firstBytes() const
{
    std::vector<std::uint8_t> bytes(soundKindBytes);
    bytes.resize(readAt(0, bytes));
    return bytes;
}

}
