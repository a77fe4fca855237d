#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace plix {

/// The bytes of a sound file, read where they are wanted: on the disk, or in memory.
class SoundFileBytes {
public:
    /// Null for what can't be opened and for what is no regular file, which is never waited for.
    static std::unique_ptr<SoundFileBytes> open(std::string const& path);
    explicit SoundFileBytes(std::vector<std::uint8_t> bytes);
    ~SoundFileBytes();
    SoundFileBytes(SoundFileBytes const&) = delete;
    SoundFileBytes& operator=(SoundFileBytes const&) = delete;

    /// As it was when it was opened.
    std::int64_t size() const { return m_size; }
    /// How many bytes were read; fewer than wanted at the end, and of a file that has become shorter.
    std::size_t readAt(std::int64_t place, std::span<std::uint8_t>) const;
    std::vector<std::uint8_t> firstBytes() const;

private:
    SoundFileBytes(int descriptor, std::int64_t size);

    std::vector<std::uint8_t> m_bytes;
    std::int64_t m_size { 0 };
    int m_descriptor { -1 };
};

}
