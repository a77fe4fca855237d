#include <plix/platform/graphics/NSBitmapImageRep.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/bitmap_drawing.h>
#include <plix/platform/graphics/bitmap_storage.h>
#include <plix/platform/graphics/context_internals.h>
#include <plix/platform/graphics/image_codecs.h>
#include <plix/platform/graphics/image_files.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace plix {

PLIX_DESCRIBE(NSBitmapImageRep)
{
}

NSBitmapImageRep::NSBitmapImageRep() = default;

NSBitmapImageRep::~NSBitmapImageRep() = default;

bool NSBitmapImageRep::init(int pixelsWide, int pixelsHigh)
{
    return init(BitmapStorage::make(pixelsWide, pixelsHigh),
        Size { static_cast<float>(pixelsWide), static_cast<float>(pixelsHigh) }, Size { 1, 1 });
}

bool NSBitmapImageRep::init(Rect focusedViewRect)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context || focusedViewRect.isEmpty())
        return false;
    auto const source = context->pixels();
    auto const area = snapped(deviceRect(context->internals().matrix(), focusedViewRect));
    auto storage = BitmapStorage::make(area.width, area.height);
    if (!storage)
        return false;
    auto const visible = intersection(area, { 0, 0, source.width, source.height });
    for (int y = visible.y; y < visible.y + visible.height; ++y) {
        auto const* from = source.pixels + static_cast<std::ptrdiff_t>(y) * source.stride + 4L * visible.x;
        auto* to = storage->row(y - area.y) + (visible.x - area.x);
        if (visible.width > 0)
            std::memcpy(to, from, static_cast<std::size_t>(visible.width) * 4);
        if (!source.hasAlpha)
            std::for_each(to, to + visible.width, [](std::uint32_t& pixel) { pixel |= 0xFF000000U; });
    }
    Size const perPoint { static_cast<float>(area.width) / focusedViewRect.width,
        static_cast<float>(area.height) / focusedViewRect.height };
    return init(std::move(storage), focusedViewRect.size(), perPoint);
}

bool NSBitmapImageRep::init(NSData const& fileContents)
{
    auto decoded = decodeImages(fileContents.bytes());
    if (decoded.empty())
        return false;
    auto& first = decoded.front();
    float const perPoint = first.pixelsPerPoint;
    Size const size { static_cast<float>(first.storage->width) / perPoint, static_cast<float>(first.storage->height) / perPoint };
    init(std::move(first.storage), size, Size { perPoint, perPoint });
    setAlpha(first.hasAlpha);
    return true;
}

bool NSBitmapImageRep::init(std::shared_ptr<BitmapStorage> storage, Size size, Size pixelsPerPoint)
{
    if (!storage)
        return false;
    m_storage = std::move(storage);
    m_pixelsPerPoint = pixelsPerPoint;
    Base::setSize(size);
    setPixelsWide(m_storage->width);
    setPixelsHigh(m_storage->height);
    return true;
}

Ref<NSBitmapImageRep> NSBitmapImageRep::imageRepWithData(NSData const& data)
{
    return make<NSBitmapImageRep>(data);
}

Ref<NSBitmapImageRep> NSBitmapImageRep::imageRepWithContentsOfFile(std::string_view path)
{
    auto const reps = imageRepsAtPath(std::string(path));
    return reps.empty() ? nullptr : as<NSBitmapImageRep>(reps.front());
}

Ref<NSColor> NSBitmapImageRep::colorAtX(int x, int y) const
{
    if (!m_storage || x < 0 || y < 0 || x >= m_storage->width || y >= m_storage->height)
        return nullptr;
    auto const pixel = pixelAtX(x, y);
    auto const alpha = static_cast<float>(pixel >> 24U);
    auto const channel = [&](unsigned shift) { return alpha > 0 ? static_cast<float>(pixel >> shift & 255U) / alpha : 0; };
    return NSColor::colorWithDeviceRed(channel(16), channel(8), channel(0), alpha / 255);
}

void NSBitmapImageRep::setColor(NSColor const& color, int x, int y)
{
    if (!m_storage || x < 0 || y < 0 || x >= m_storage->width || y >= m_storage->height)
        return;
    mutablePixels();
    m_storage->row(y)[x] = premultipliedPixel(color.components());
}

std::uint32_t NSBitmapImageRep::pixelAtX(int x, int y) const
{
    bool const isInside = m_storage && x >= 0 && y >= 0 && x < m_storage->width && y < m_storage->height;
    return isInside ? m_storage->row(y)[x] : 0;
}

PixelBuffer NSBitmapImageRep::pixels() const
{
    PixelBuffer buffer;
    if (!m_storage)
        return buffer;
    buffer.pixels = reinterpret_cast<std::uint8_t*>(m_storage->pixels.get());
    buffer.stride = m_storage->width * 4;
    buffer.width = m_storage->width;
    buffer.height = m_storage->height;
    buffer.scale = m_pixelsPerPoint.width;
    buffer.hasAlpha = true;
    return buffer;
}

PixelBuffer NSBitmapImageRep::mutablePixels()
{
    if (!m_storage)
        return {};
    if (m_storage.use_count() > 1)
        m_storage = m_storage->duplicate();
    if (m_storage)
        m_storage->stamp = nextContentStamp();
    return pixels();
}

std::uint64_t NSBitmapImageRep::contentStamp() const
{
    return m_storage ? m_storage->stamp : 0;
}

void NSBitmapImageRep::contentChanged()
{
    if (m_storage)
        m_storage->stamp = nextContentStamp();
}

void NSBitmapImageRep::setSize(Size size)
{
    Base::setSize(size);
    if (m_storage && size.width > 0 && size.height > 0)
        m_pixelsPerPoint
            = { static_cast<float>(m_storage->width) / size.width, static_cast<float>(m_storage->height) / size.height };
}

void NSBitmapImageRep::setPixelsPerPoint(Size pixelsPerPoint)
{
    m_pixelsPerPoint = pixelsPerPoint;
    if (m_storage)
        Base::setSize({ static_cast<float>(m_storage->width) / pixelsPerPoint.width,
            static_cast<float>(m_storage->height) / pixelsPerPoint.height });
}

Ref<NSData> NSBitmapImageRep::representationUsingType(NSBitmapImageFileType type) const
{
    if (!m_storage)
        return nullptr;
    float const perPoint = m_pixelsPerPoint.width;
    EncodedPicture const picture { m_storage.get(), perPoint };
    switch (type) {
    case NSPNGFileType:
        return make<NSData>(encodePNG(*m_storage, perPoint));
    case NSTIFFFileType:
        return make<NSData>(encodeTIFF({ &picture, 1 }));
    case NSJPEGFileType:
        return make<NSData>(encodeJPEG(*m_storage, perPoint));
    case NSBMPFileType:
        return make<NSData>(encodeBMP(*m_storage, perPoint));
    case NSGIFFileType:
        break;
    }
    return nullptr;
}

Ref<NSData> NSBitmapImageRep::TIFFRepresentation() const
{
    return representationUsingType(NSTIFFFileType);
}

Ref<NSData> NSBitmapImageRep::TIFFRepresentationOfImageRepsInArray(std::vector<Ref<NSBitmapImageRep>> const& reps)
{
    std::vector<EncodedPicture> pictures;
    for (auto const& rep : reps) {
        if (rep && rep->m_storage)
            pictures.push_back({ rep->m_storage.get(), rep->m_pixelsPerPoint.width });
    }
    return pictures.empty() ? nullptr : make<NSData>(encodeTIFF(pictures));
}

bool NSBitmapImageRep::draw(ImageDrawing const& drawing) const
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context || !m_storage)
        return false;
    drawBitmap(context->internals(), *this, drawing);
    return true;
}

void NSBitmapImageRep::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& rep = static_cast<NSBitmapImageRep&>(fresh);
    rep.m_storage = m_storage && m_isExposed ? m_storage->duplicate() : m_storage;
    rep.m_pixelsPerPoint = m_pixelsPerPoint;
}

}
