#include <plix/platform/graphics/image_codecs.h>

#include <plix/platform/graphics/LoadedLibrary.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include <tiffio.h>

namespace plix {

namespace {

/// Loaded with the first picture of the kind.
struct TIFFLibrary {
    decltype(&::TIFFClose) close { nullptr };
    decltype(&::TIFFOpenOptionsFree) openOptionsFree { nullptr };
    decltype(&::TIFFOpenOptionsAlloc) openOptionsAlloc { nullptr };
    decltype(&::TIFFOpenOptionsSetMaxSingleMemAlloc) openOptionsSetMaxSingleMemAlloc { nullptr };
    decltype(&::TIFFOpenOptionsSetErrorHandlerExtR) openOptionsSetErrorHandlerExtR { nullptr };
    decltype(&::TIFFOpenOptionsSetWarningHandlerExtR) openOptionsSetWarningHandlerExtR { nullptr };
    decltype(&::TIFFClientOpenExt) clientOpenExt { nullptr };
    decltype(&::TIFFGetField) getField { nullptr };
    decltype(&::TIFFGetFieldDefaulted) getFieldDefaulted { nullptr };
    decltype(&::TIFFRGBAImageOK) canReadRGBAImage { nullptr };
    decltype(&::TIFFReadRGBAImageOriented) readRGBAImageOriented { nullptr };
    decltype(&::TIFFSetField) setField { nullptr };
    decltype(&::TIFFDefaultStripSize) defaultStripSize { nullptr };
    decltype(&::TIFFWriteScanline) writeScanline { nullptr };
    decltype(&::TIFFWriteDirectory) writeDirectory { nullptr };
    decltype(&::TIFFReadDirectory) readDirectory { nullptr };
    bool isLoaded { false };

    TIFFLibrary()
    {
        LoadedLibrary library("libtiff.so.6");
        library.find(close, "TIFFClose");
        library.find(openOptionsFree, "TIFFOpenOptionsFree");
        library.find(openOptionsAlloc, "TIFFOpenOptionsAlloc");
        library.find(openOptionsSetMaxSingleMemAlloc, "TIFFOpenOptionsSetMaxSingleMemAlloc");
        library.find(openOptionsSetErrorHandlerExtR, "TIFFOpenOptionsSetErrorHandlerExtR");
        library.find(openOptionsSetWarningHandlerExtR, "TIFFOpenOptionsSetWarningHandlerExtR");
        library.find(clientOpenExt, "TIFFClientOpenExt");
        library.find(getField, "TIFFGetField");
        library.find(getFieldDefaulted, "TIFFGetFieldDefaulted");
        library.find(canReadRGBAImage, "TIFFRGBAImageOK");
        library.find(readRGBAImageOriented, "TIFFReadRGBAImageOriented");
        library.find(setField, "TIFFSetField");
        library.find(defaultStripSize, "TIFFDefaultStripSize");
        library.find(writeScanline, "TIFFWriteScanline");
        library.find(writeDirectory, "TIFFWriteDirectory");
        library.find(readDirectory, "TIFFReadDirectory");
        isLoaded = library.isComplete();
    }
};

TIFFLibrary const& tiff()
{
    static TIFFLibrary const s_library;
    return s_library;
}

}

template <> struct HandleDeleter<TIFF> {
    void operator()(TIFF* file) const { tiff().close(file); }
};
template <> struct HandleDeleter<TIFFOpenOptions> {
    void operator()(TIFFOpenOptions* options) const { tiff().openOptionsFree(options); }
};

namespace {

constexpr int mostPictures = 64;
constexpr tmsize_t largestAllocation = 256L * 1024 * 1024;
constexpr double centimetresAnInch = 2.54;

/// A file in memory that grows where it is written to.
struct MemoryFile {
    FileBytes source;
    std::vector<std::uint8_t>* target { nullptr };
    std::size_t position { 0 };

    std::size_t size() const { return target ? target->size() : source.size(); }
};

MemoryFile& memory(thandle_t handle)
{
    return *static_cast<MemoryFile*>(handle);
}

tmsize_t readSome(thandle_t handle, void* buffer, tmsize_t length)
{
    auto& file = memory(handle);
    auto const* bytes = file.target ? file.target->data() : file.source.data();
    auto const rest = file.position < file.size() ? file.size() - file.position : 0;
    auto const count = std::min(rest, static_cast<std::size_t>(std::max<tmsize_t>(length, 0)));
    if (count > 0)
        std::memcpy(buffer, bytes + file.position, count);
    file.position += count;
    return static_cast<tmsize_t>(count);
}

tmsize_t writeSome(thandle_t handle, void* buffer, tmsize_t length)
{
    auto& file = memory(handle);
    if (!file.target)
        return 0;
    auto const end = file.position + static_cast<std::size_t>(length);
    if (end > file.target->size())
        file.target->resize(end);
    std::memcpy(file.target->data() + file.position, buffer, static_cast<std::size_t>(length));
    file.position = end;
    return length;
}

toff_t seek(thandle_t handle, toff_t offset, int from)
{
    auto& file = memory(handle);
    std::size_t const base = from == SEEK_CUR ? file.position : from == SEEK_END ? file.size() : 0;
    file.position = base + static_cast<std::size_t>(offset);
    return file.position;
}

int closeNothing(thandle_t)
{
    return 0;
}

toff_t sizeOf(thandle_t handle)
{
    return memory(handle).size();
}

int dropMessage(TIFF*, void*, char const*, char const*, va_list)
{
    return 1;
}

Handle<TIFF> open(MemoryFile& file, char const* mode)
{
    if (!tiff().isLoaded)
        return {};
    Handle<TIFFOpenOptions> const options(tiff().openOptionsAlloc());
    tiff().openOptionsSetMaxSingleMemAlloc(options.get(), largestAllocation);
    tiff().openOptionsSetErrorHandlerExtR(options.get(), dropMessage, nullptr);
    tiff().openOptionsSetWarningHandlerExtR(options.get(), dropMessage, nullptr);
    return Handle<TIFF>(tiff().clientOpenExt(
        "memory", mode, &file, readSome, writeSome, seek, closeNothing, sizeOf, nullptr, nullptr, options.get()));
}

float scaleOf(TIFF* file)
{
    float resolution = 0;
    std::uint16_t unit = RESUNIT_INCH;
    if (!tiff().getField(file, TIFFTAG_XRESOLUTION, &resolution))
        return 1;
    tiff().getFieldDefaulted(file, TIFFTAG_RESOLUTIONUNIT, &unit);
    if (unit == RESUNIT_NONE)
        return 1;
    double const perInch = unit == RESUNIT_CENTIMETER ? resolution * centimetresAnInch : resolution;
    return pixelsPerPointFromResolution(perInch / centimetresAnInch * 100);
}

bool mayHaveAlpha(TIFF* file)
{
    std::uint16_t count = 0;
    std::uint16_t* kinds = nullptr;
    tiff().getFieldDefaulted(file, TIFFTAG_EXTRASAMPLES, &count, &kinds);
    return count > 0;
}

std::optional<DecodedImage> decodePicture(TIFF* file)
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    char message[1024] {};
    tiff().getField(file, TIFFTAG_IMAGEWIDTH, &width);
    tiff().getField(file, TIFFTAG_IMAGELENGTH, &height);
    if (!isAcceptableSize(width, height) || !tiff().canReadRGBAImage(file, message))
        return std::nullopt;
    auto storage = BitmapStorage::make(static_cast<int>(width), static_cast<int>(height));
    if (!storage || !tiff().readRGBAImageOriented(file, width, height, storage->pixels.get(), ORIENTATION_TOPLEFT, 1))
        return std::nullopt;
    // Premultiplied already; red and blue the other way round.
    std::for_each(storage->pixels.get(), storage->row(storage->height),
        [](std::uint32_t& pixel) { pixel = (pixel & 0xFF00FF00U) | (pixel & 0xFFU) << 16U | (pixel >> 16U & 0xFFU); });
    bool const hasAlpha = mayHaveAlpha(file);
    return DecodedImage { std::move(storage), scaleOf(file), hasAlpha };
}

bool writePicture(TIFF* file, EncodedPicture const& picture)
{
    auto const& storage = *picture.storage;
    std::uint16_t extra[] { EXTRASAMPLE_ASSOCALPHA };
    tiff().setField(file, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(storage.width));
    tiff().setField(file, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(storage.height));
    tiff().setField(file, TIFFTAG_BITSPERSAMPLE, 8);
    tiff().setField(file, TIFFTAG_SAMPLESPERPIXEL, 4);
    tiff().setField(file, TIFFTAG_EXTRASAMPLES, 1, extra);
    tiff().setField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    tiff().setField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    tiff().setField(file, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    tiff().setField(file, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    tiff().setField(file, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    tiff().setField(file, TIFFTAG_XRESOLUTION, 72.0 * static_cast<double>(picture.pixelsPerPoint));
    tiff().setField(file, TIFFTAG_YRESOLUTION, 72.0 * static_cast<double>(picture.pixelsPerPoint));
    tiff().setField(file, TIFFTAG_ROWSPERSTRIP, tiff().defaultStripSize(file, 0));
    std::vector<std::uint8_t> line(static_cast<std::size_t>(storage.width) * 4);
    for (int y = 0; y < storage.height; ++y) {
        auto* at = line.data();
        for (int x = 0; x < storage.width; ++x) {
            for (unsigned const shift : { 16U, 8U, 0U, 24U })
                *at++ = static_cast<std::uint8_t>(storage.row(y)[x] >> shift);
        }
        if (tiff().writeScanline(file, line.data(), static_cast<std::uint32_t>(y), 0) < 0)
            return false;
    }
    return tiff().writeDirectory(file) != 0;
}

}

bool isTIFF(FileBytes bytes)
{
    constexpr std::uint8_t marks[][4] { { 'I', 'I', 42, 0 }, { 'M', 'M', 0, 42 }, { 'I', 'I', 43, 0 }, { 'M', 'M', 0, 43 } };
    return bytes.size() >= 8 && std::any_of(std::begin(marks), std::end(marks), [&](auto const& mark) {
        return std::equal(std::begin(mark), std::end(mark), bytes.begin());
    });
}

std::vector<DecodedImage> decodeTIFF(FileBytes bytes)
{
    MemoryFile memoryFile { bytes, nullptr, 0 };
    auto const file = open(memoryFile, "rm");
    std::vector<DecodedImage> pictures;
    std::int64_t pixels = 0;
    for (int i = 0; file && i < mostPictures; ++i) {
        auto picture = decodePicture(file.get());
        if (!picture)
            break;
        pixels += static_cast<std::int64_t>(picture->storage->width) * picture->storage->height;
        pictures.push_back(std::move(*picture));
        if (!isAcceptablePixelCount(pixels) || !tiff().readDirectory(file.get()))
            break;
    }
    return pictures;
}

std::vector<std::uint8_t> encodeTIFF(std::span<EncodedPicture const> pictures)
{
    std::vector<std::uint8_t> bytes;
    MemoryFile memoryFile { {}, &bytes, 0 };
    auto file = open(memoryFile, "wm");
    bool const isWritten = file
        && std::all_of(pictures.begin(), pictures.end(), [&](auto const& picture) { return writePicture(file.get(), picture); });
    file.reset();
    return isWritten ? bytes : std::vector<std::uint8_t> {};
}

}
