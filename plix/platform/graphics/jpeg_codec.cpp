#include <plix/platform/graphics/image_codecs.h>

#include <plix/platform/graphics/pixel_operations.h>

#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <jpeglib.h>

#include <jerror.h>

namespace plix {

namespace {

constexpr int bestQualityWorthIts = 90;
/// Progressive files may ask for as many passes over all pixels as they like.
constexpr int mostScans = 200;

struct ErrorHandler {
    jpeg_error_mgr manager;
    std::jmp_buf escape;
};

[[noreturn]] void escape(j_common_ptr info)
{
    // The manager is the handler's first member.
    std::longjmp(reinterpret_cast<ErrorHandler*>(info->err)->escape, 1);
}

void judgeMessage(j_common_ptr info, int level)
{
    bool const isTruncation = info->err->msg_code == JWRN_JPEG_EOF || info->err->msg_code == JWRN_HIT_MARKER;
    if (level < 0 && isTruncation)
        escape(info);
}

void judgeProgress(j_common_ptr info)
{
    if (info->is_decompressor && reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > mostScans)
        escape(info);
}

struct Decompressor {
    jpeg_decompress_struct info {};
    ErrorHandler errors {};
    jpeg_progress_mgr progress {};
    std::vector<std::uint8_t> line;
    std::shared_ptr<BitmapStorage> storage;

    Decompressor()
    {
        info.err = jpeg_std_error(&errors.manager);
        errors.manager.error_exit = escape;
        errors.manager.emit_message = judgeMessage;
        progress.progress_monitor = judgeProgress;
    }
    ~Decompressor() { jpeg_destroy_decompress(&info); }
    Decompressor(Decompressor const&) = delete;
    Decompressor& operator=(Decompressor const&) = delete;
};

std::uint32_t opaquePixel(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return 0xFF000000U | red << 16U | green << 8U | blue;
}

void storeLine(Decompressor const& decompressor, std::uint32_t* row)
{
    auto const* at = decompressor.line.data();
    int const width = decompressor.storage->width;
    if (decompressor.info.out_color_space == JCS_RGB) {
        for (int x = 0; x < width; ++x, at += 3)
            row[x] = opaquePixel(at[0], at[1], at[2]);
        return;
    }
    // Adobe's files hold inks inverted: 255 is none.
    bool const isInverted = decompressor.info.saw_Adobe_marker;
    for (int x = 0; x < width; ++x, at += 4) {
        auto const light = [&](int ink) { return isInverted ? at[ink] : 255U - at[ink]; };
        auto const channel = [&](int ink) { return dividedBy255(light(ink) * light(3)); };
        row[x] = opaquePixel(channel(0), channel(1), channel(2));
    }
}

/// Everything that needs undoing is the decompressor's, since errors jump back into this function.
bool decode(Decompressor& decompressor, FileBytes bytes)
{
    auto& info = decompressor.info;
    if (setjmp(decompressor.errors.escape))
        return false;
    jpeg_create_decompress(&info);
    info.progress = &decompressor.progress;
    jpeg_mem_src(&info, bytes.data(), bytes.size());
    jpeg_read_header(&info, TRUE);
    if (!isAcceptableSize(info.image_width, info.image_height))
        return false;
    bool const isInk = info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
    info.out_color_space = isInk ? JCS_CMYK : JCS_RGB;
    jpeg_start_decompress(&info);
    decompressor.storage = BitmapStorage::make(static_cast<int>(info.output_width), static_cast<int>(info.output_height));
    if (!decompressor.storage)
        return false;
    decompressor.line.resize(static_cast<std::size_t>(info.output_width) * static_cast<std::size_t>(info.output_components));
    while (info.output_scanline < info.output_height) {
        auto* row = decompressor.storage->row(static_cast<int>(info.output_scanline));
        JSAMPROW line = decompressor.line.data();
        jpeg_read_scanlines(&info, &line, 1);
        storeLine(decompressor, row);
    }
    jpeg_finish_decompress(&info);
    return true;
}

float scaleOf(jpeg_decompress_struct const& info)
{
    constexpr double metre = 39.3701; // inches
    if (!info.saw_JFIF_marker || info.density_unit == 0)
        return 1;
    return pixelsPerPointFromResolution(info.X_density * (info.density_unit == 1 ? metre : 100));
}

struct Compressor {
    jpeg_compress_struct info {};
    ErrorHandler errors {};
    std::vector<std::uint8_t> line;
    unsigned char* output { nullptr };
    unsigned long length { 0 };

    Compressor()
    {
        info.err = jpeg_std_error(&errors.manager);
        errors.manager.error_exit = escape;
    }
    ~Compressor()
    {
        jpeg_destroy_compress(&info);
        std::free(output);
    }
    Compressor(Compressor const&) = delete;
    Compressor& operator=(Compressor const&) = delete;
};

/// On white, since these files have no alpha.
void loadLine(std::uint32_t const* row, int width, std::uint8_t* at)
{
    for (int x = 0; x < width; ++x) {
        std::uint32_t const paper = 255 - (row[x] >> 24U);
        for (unsigned const shift : { 16U, 8U, 0U })
            *at++ = static_cast<std::uint8_t>((row[x] >> shift & 255U) + paper);
    }
}

bool encode(Compressor& compressor, BitmapStorage const& storage, float pixelsPerPoint)
{
    auto& info = compressor.info;
    if (setjmp(compressor.errors.escape))
        return false;
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &compressor.output, &compressor.length);
    info.image_width = static_cast<JDIMENSION>(storage.width);
    info.image_height = static_cast<JDIMENSION>(storage.height);
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, bestQualityWorthIts, TRUE);
    info.density_unit = 1;
    info.X_density = static_cast<UINT16>(72 * pixelsPerPoint);
    info.Y_density = info.X_density;
    jpeg_start_compress(&info, TRUE);
    compressor.line.resize(static_cast<std::size_t>(storage.width) * 3);
    while (info.next_scanline < info.image_height) {
        loadLine(storage.row(static_cast<int>(info.next_scanline)), storage.width, compressor.line.data());
        JSAMPROW line = compressor.line.data();
        jpeg_write_scanlines(&info, &line, 1);
    }
    jpeg_finish_compress(&info);
    return true;
}

}

bool isJPEG(FileBytes bytes)
{
    return bytes.size() > 4 && bytes[0] == 0xFF && bytes[1] == 0xD8 && bytes[2] == 0xFF;
}

std::vector<DecodedImage> decodeJPEG(FileBytes bytes)
{
    Decompressor decompressor;
    if (!decode(decompressor, bytes))
        return {};
    return { { std::move(decompressor.storage), scaleOf(decompressor.info), false } };
}

std::vector<std::uint8_t> encodeJPEG(BitmapStorage const& storage, float pixelsPerPoint)
{
    Compressor compressor;
    if (!encode(compressor, storage, pixelsPerPoint))
        return {};
    return { compressor.output, compressor.output + compressor.length };
}

}
