#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace plix {

/// The kinds of sound files that are played.
enum class SoundKind { WAV, AIFF, AU, CAF, FLAC, Ogg, MP3 };

/// How many of a file's first bytes tell its kind.
inline constexpr std::size_t soundKindBytes = 16;

/// The kind that a file's first bytes claim; nil for anything that is not played. Nothing but these goes to a decoder.
std::optional<SoundKind> soundKind(std::span<std::uint8_t const> firstBytes);

/// The extensions of such files, in lower case.
std::vector<std::string> const& soundFileTypes();

}
