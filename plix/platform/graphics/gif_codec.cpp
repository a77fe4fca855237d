#include <plix/platform/graphics/image_codecs.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include <gif_lib.h>

namespace plix {

template <> struct HandleDeleter<GifFileType> {
    void operator()(GifFileType* file) const { DGifCloseFile(file, nullptr); }
};

namespace {

constexpr int noTransparency = -1;

int readSome(GifFileType* file, GifByteType* target, int length)
{
    auto& rest = *static_cast<FileBytes*>(file->UserData);
    auto const count = std::min(rest.size(), static_cast<std::size_t>(std::max(length, 0)));
    std::copy_n(rest.begin(), count, target);
    rest = rest.subspan(count);
    return static_cast<int>(count);
}

/// Reads one extension; the index of the transparent colour where it is named there, else what it was before.
bool readExtension(GifFileType* file, int& transparentIndex)
{
    int kind = 0;
    GifByteType* block = nullptr;
    if (DGifGetExtension(file, &kind, &block) == GIF_ERROR)
        return false;
    while (block) {
        bool const isControl = kind == GRAPHICS_EXT_FUNC_CODE && block[0] >= 4;
        if (isControl)
            transparentIndex = (block[1] & 1) != 0 ? block[4] : noTransparency;
        if (DGifGetExtensionNext(file, &block) == GIF_ERROR)
            return false;
    }
    return true;
}

std::uint32_t pixelFor(ColorMapObject const& colors, int index, int transparentIndex)
{
    if (index == transparentIndex || index >= colors.ColorCount)
        return 0;
    auto const& color = colors.Colors[index];
    return 0xFF000000U | static_cast<std::uint32_t>(color.Red) << 16U | static_cast<std::uint32_t>(color.Green) << 8U | color.Blue;
}

/// Where the rows of a frame lie that is stored in four passes.
std::vector<int> rowOrder(int height, bool isInterlaced)
{
    std::vector<int> rows;
    constexpr std::pair<int, int> passes[] { { 0, 8 }, { 4, 8 }, { 2, 4 }, { 1, 2 } };
    constexpr std::pair<int, int> straight[] { { 0, 1 } };
    auto const add = [&](auto const& list) {
        for (auto const& [first, step] : list) {
            for (int y = first; y < height; y += step)
                rows.push_back(y);
        }
    };
    if (isInterlaced)
        add(passes);
    else
        add(straight);
    return rows;
}

/// The first frame on the whole canvas.
std::shared_ptr<BitmapStorage> readFrame(GifFileType* file, int transparentIndex)
{
    if (DGifGetImageDesc(file) == GIF_ERROR)
        return nullptr;
    auto const& frame = file->Image;
    auto const* colors = frame.ColorMap ? frame.ColorMap : file->SColorMap;
    auto storage
        = colors && isAcceptableSize(frame.Width, frame.Height) ? BitmapStorage::make(file->SWidth, file->SHeight) : nullptr;
    if (!storage)
        return nullptr;
    std::vector<GifPixelType> line(static_cast<std::size_t>(frame.Width));
    for (int const y : rowOrder(frame.Height, frame.Interlace)) {
        if (DGifGetLine(file, line.data(), frame.Width) == GIF_ERROR)
            return nullptr;
        int const canvasRow = frame.Top + y;
        for (int x = 0; x < frame.Width && canvasRow < storage->height; ++x) {
            if (frame.Left + x < storage->width)
                storage->row(canvasRow)[frame.Left + x] = pixelFor(*colors, line[static_cast<std::size_t>(x)], transparentIndex);
        }
    }
    return storage;
}

std::shared_ptr<BitmapStorage> firstFrame(GifFileType* file)
{
    int transparentIndex = noTransparency;
    GifRecordType record = UNDEFINED_RECORD_TYPE;
    while (DGifGetRecordType(file, &record) != GIF_ERROR) {
        if (record == IMAGE_DESC_RECORD_TYPE)
            return readFrame(file, transparentIndex);
        if (record != EXTENSION_RECORD_TYPE || !readExtension(file, transparentIndex))
            return nullptr;
    }
    return nullptr;
}

bool isOpaque(BitmapStorage const& storage)
{
    return std::all_of(storage.pixels.get(), storage.row(storage.height), [](std::uint32_t pixel) { return pixel >> 24U == 255; });
}

}

bool isGIF(FileBytes bytes)
{
    return bytes.size() > 13 && (std::memcmp(bytes.data(), "GIF87a", 6) == 0 || std::memcmp(bytes.data(), "GIF89a", 6) == 0);
}

std::vector<DecodedImage> decodeGIF(FileBytes bytes)
{
    FileBytes rest = bytes;
    Handle<GifFileType> const file(DGifOpen(&rest, readSome, nullptr));
    if (!file || !isAcceptableSize(file->SWidth, file->SHeight))
        return {};
    auto storage = firstFrame(file.get());
    if (!storage)
        return {};
    bool const hasAlpha = !isOpaque(*storage);
    return { { std::move(storage), 1, hasAlpha } };
}

}
