#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace plix {

/// Whole files as bytes. Where one fails, errno says why.

/// The bytes of a regular file; nullopt also for one of more than `limit` bytes (EFBIG) and for what is no regular file, which is
/// never waited for.
std::optional<std::vector<std::uint8_t>> readFileBytes(
    std::string const& path, std::size_t limit = std::numeric_limits<std::size_t>::max());
/// Writes over what was there; nothing is left of a file that was made and could not be filled.
bool writeFileBytes(std::string const& path, std::span<std::uint8_t const>, unsigned permissions);
/// Writes another file in the same folder, waits until it is on the disk, and renames it to `path`. Readers see the old bytes
/// or the new, nothing between.
bool replaceFileBytes(std::string const& path, std::span<std::uint8_t const>, unsigned permissions);
/// Copies a regular file to a new one with these permissions and the source's date; fails where the destination exists, and with
/// ECANCELED where `didCopy`, called after each part, answers false.
bool copyFileBytes(std::string const& source, std::string const& destination, unsigned permissions,
    std::function<bool(std::uint64_t bytes)> const& didCopy);

}
