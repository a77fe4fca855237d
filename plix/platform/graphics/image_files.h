#pragma once

#include <plix/platform/graphics/NSImageRep.h>
#include <plix/platform/graphics/image_codecs.h>

#include <optional>
#include <string>
#include <vector>

// Private to plix/platform/graphics.

namespace plix {

/// Nothing for what is no plain file, can't be read or is larger than any picture should be.
std::optional<std::vector<std::uint8_t>> readImageFile(std::string const& path);
std::vector<Ref<NSImageRep>> imageRepsWithBytes(FileBytes);
/// The file's representations and those of its "@2x" sibling, which have two pixels a point.
std::vector<Ref<NSImageRep>> imageRepsAtPath(std::string const& path);

}
