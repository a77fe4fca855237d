#pragma once

#include <plix/platform/graphics/bitmap_storage.h>
#include <plix/platform/graphics/geometry.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

// Private to plix/platform/graphics: picture files to pixels and back. Everything comes from outside: sizes are read and judged
// before any pixel is allocated, and what is damaged is refused.

namespace plix {

using FileBytes = std::span<std::uint8_t const>;

struct DecodedImage {
    std::shared_ptr<BitmapStorage> storage;
    /// Of a file made for denser screens 2 and so on, else 1.
    float pixelsPerPoint { 1 };
    bool hasAlpha { true };
};

/// Every picture in the file, whatever its format; empty for none.
std::vector<DecodedImage> decodeImages(FileBytes);
/// Whether so many pixels may be allocated.
bool isAcceptableSize(std::int64_t width, std::int64_t height);
/// A whole number of times 72 dots an inch, from dots a metre; 1 for any other resolution.
float pixelsPerPointFromResolution(double dotsPerMetre);

/// The same for several pictures together.
bool isAcceptablePixelCount(std::int64_t);

struct EncodedPicture {
    BitmapStorage const* storage;
    float pixelsPerPoint { 1 };
};

bool isPNG(FileBytes);
std::vector<DecodedImage> decodePNG(FileBytes);
std::vector<std::uint8_t> encodePNG(BitmapStorage const&, float pixelsPerPoint);
bool isJPEG(FileBytes);
std::vector<DecodedImage> decodeJPEG(FileBytes);
std::vector<std::uint8_t> encodeJPEG(BitmapStorage const&, float pixelsPerPoint);
/// Every picture of the file, up to a number.
bool isTIFF(FileBytes);
std::vector<DecodedImage> decodeTIFF(FileBytes);
std::vector<std::uint8_t> encodeTIFF(std::span<EncodedPicture const>);
/// The first frame.
bool isGIF(FileBytes);
std::vector<DecodedImage> decodeGIF(FileBytes);
bool isBMP(FileBytes);
std::vector<DecodedImage> decodeBMP(FileBytes);
std::vector<std::uint8_t> encodeBMP(BitmapStorage const&, float pixelsPerPoint);

}
