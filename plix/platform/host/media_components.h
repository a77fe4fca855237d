#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace plix {

/// Four characters as one number, the first one in the highest byte; what is missing is a blank.
PLIX_EXPORT std::uint32_t fourCharCode(std::string_view characters);

/// What a media component is, and what is looked for.
struct ComponentDescription {
    std::uint32_t type { 0 };
    std::uint32_t subtype { 0 };
    std::uint32_t manufacturer { 0 };
    std::uint32_t flags { 0 };
    /// Which flags count when one is looked for.
    std::uint32_t flagsMask { 0 };
};

/// Type, subtype and manufacturer are the same, or 0 in what is wanted; so are those of the flags that count.
PLIX_EXPORT bool matchesComponent(ComponentDescription const& wanted, ComponentDescription const& component);

/// The type of components that write files of media, and the flag that each of them has.
inline constexpr std::uint32_t movieExportType = 0x73706974; // 'spit'
inline constexpr std::uint32_t canMovieExportFiles = 1 << 4;

/// The four characters of a kind of file named by its media type ("video/quicktime" is 'MooV'): the customary ones of the kinds
/// that have some, else the first four letters and digits of the type's second part, without "x-" before it. 0 for what names none.
/// Of a type that several kinds share the variant tells which ("iso" of "video/quicktime").
PLIX_EXPORT std::uint32_t fileTypeForMediaType(std::string_view mediaType, std::string_view variant = {});

/// A number for a name, the same on every machine and never 0.
PLIX_EXPORT std::uint32_t componentReference(std::string_view name);

}
