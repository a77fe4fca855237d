#include <plix/platform/graphics/image_codecs.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace plix {

namespace {

constexpr std::uint8_t signature[] { 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' };
constexpr std::size_t chunkOverhead = 12; // length, type, checksum
constexpr std::size_t headerLength = 13;

std::uint32_t bigEndian(FileBytes bytes, std::size_t at)
{
    return static_cast<std::uint32_t>(bytes[at]) << 24U | static_cast<std::uint32_t>(bytes[at + 1]) << 16U
        | static_cast<std::uint32_t>(bytes[at + 2]) << 8U | bytes[at + 3];
}

/// The content of the first chunk of that type before the pixels.
std::optional<FileBytes> chunk(FileBytes bytes, char const* type)
{
    for (std::size_t at = sizeof signature; at + chunkOverhead <= bytes.size();) {
        std::size_t const length = bigEndian(bytes, at);
        if (length > bytes.size() - at - chunkOverhead || std::memcmp(&bytes[at + 4], "IDAT", 4) == 0)
            return std::nullopt;
        if (std::memcmp(&bytes[at + 4], type, 4) == 0)
            return bytes.subspan(at + 8, length);
        at += length + chunkOverhead;
    }
    return std::nullopt;
}

// libpng allocates what a chunk says that it holds before it reads it.
bool hasEveryChunkWhole(FileBytes bytes)
{
    for (std::size_t at = sizeof signature; at + chunkOverhead <= bytes.size();) {
        std::size_t const length = bigEndian(bytes, at);
        if (length > bytes.size() - at - chunkOverhead)
            return false;
        if (std::memcmp(&bytes[at + 4], "IEND", 4) == 0)
            return true;
        at += length + chunkOverhead;
    }
    return false;
}

cairo_status_t readBytes(void* closure, unsigned char* target, unsigned length)
{
    auto& rest = *static_cast<FileBytes*>(closure);
    if (length > rest.size())
        return CAIRO_STATUS_READ_ERROR;
    std::copy_n(rest.begin(), length, target);
    rest = rest.subspan(length);
    return CAIRO_STATUS_SUCCESS;
}

cairo_status_t appendBytes(void* closure, unsigned char const* source, unsigned length)
{
    auto& bytes = *static_cast<std::vector<std::uint8_t>*>(closure);
    bytes.insert(bytes.end(), source, source + length);
    return CAIRO_STATUS_SUCCESS;
}

void appendBigEndian(std::vector<std::uint8_t>& bytes, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

/// PNG specification, annex D.
std::uint32_t checksum(FileBytes bytes)
{
    std::uint32_t sum = 0xFFFFFFFFU;
    for (auto const byte : bytes) {
        sum ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~sum;
}

std::vector<std::uint8_t> densityChunk(float pixelsPerPoint)
{
    auto const dotsPerMetre = static_cast<std::uint32_t>(72 / 0.0254 * static_cast<double>(pixelsPerPoint) + 0.5);
    std::vector<std::uint8_t> chunk;
    appendBigEndian(chunk, 9);
    for (char const letter : { 'p', 'H', 'Y', 's' })
        chunk.push_back(static_cast<std::uint8_t>(letter));
    appendBigEndian(chunk, dotsPerMetre);
    appendBigEndian(chunk, dotsPerMetre);
    chunk.push_back(1); // per metre
    appendBigEndian(chunk, checksum(FileBytes(chunk).subspan(4)));
    return chunk;
}

float scaleOf(FileBytes bytes)
{
    auto const density = chunk(bytes, "pHYs");
    bool const isPerMetre = density && density->size() == 9 && (*density)[8] == 1;
    return isPerMetre ? pixelsPerPointFromResolution(bigEndian(*density, 0)) : 1;
}

}

bool isPNG(FileBytes bytes)
{
    return bytes.size() > sizeof signature && std::equal(std::begin(signature), std::end(signature), bytes.begin());
}

std::vector<DecodedImage> decodePNG(FileBytes bytes)
{
    auto const header = chunk(bytes, "IHDR");
    if (!header || header->size() < headerLength || !isAcceptableSize(bigEndian(*header, 0), bigEndian(*header, 4)))
        return {};
    if (!hasEveryChunkWhole(bytes))
        return {};
    FileBytes rest = bytes;
    Handle<cairo_surface_t> const surface(cairo_image_surface_create_from_png_stream(readBytes, &rest));
    auto const format = cairo_image_surface_get_format(surface.get());
    bool const isRead = cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS
        && (format == CAIRO_FORMAT_ARGB32 || format == CAIRO_FORMAT_RGB24);
    auto storage = isRead
        ? BitmapStorage::make(cairo_image_surface_get_width(surface.get()), cairo_image_surface_get_height(surface.get()))
        : nullptr;
    if (!storage)
        return {};
    bool const hasAlpha = format == CAIRO_FORMAT_ARGB32;
    auto const* pixels = cairo_image_surface_get_data(surface.get());
    auto const stride = cairo_image_surface_get_stride(surface.get());
    for (int y = 0; y < storage->height; ++y) {
        auto* row = storage->row(y);
        std::memcpy(row, pixels + static_cast<std::ptrdiff_t>(y) * stride, static_cast<std::size_t>(storage->width) * 4);
        if (!hasAlpha)
            std::for_each(row, row + storage->width, [](std::uint32_t& pixel) { pixel |= 0xFF000000U; });
    }
    return { { std::move(storage), scaleOf(bytes), hasAlpha } };
}

std::vector<std::uint8_t> encodePNG(BitmapStorage const& storage, float pixelsPerPoint)
{
    Handle<cairo_surface_t> const surface(
        cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(storage.pixels.get()), CAIRO_FORMAT_ARGB32,
            storage.width, storage.height, storage.width * 4));
    std::vector<std::uint8_t> bytes;
    if (cairo_surface_write_to_png_stream(surface.get(), appendBytes, &bytes) != CAIRO_STATUS_SUCCESS)
        return {};
    if (pixelsPerPoint != 1) {
        auto const density = densityChunk(pixelsPerPoint);
        bytes.insert(bytes.begin() + sizeof signature + chunkOverhead + headerLength, density.begin(), density.end());
    }
    return bytes;
}

}
