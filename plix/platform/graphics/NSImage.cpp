#include <plix/platform/graphics/NSImage.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/bitmap_storage.h>
#include <plix/platform/graphics/context_internals.h>
#include <plix/platform/graphics/image_files.h>

#include <algorithm>
#include <bit>
#include <cmath>

namespace plix {

namespace {

constexpr float oneTenThousandth = 1e-4F;

float s_defaultBackingScale = 1;

int pixelsFor(float points, float scale)
{
    float const pixels = std::ceil(points * scale - oneTenThousandth);
    return pixels > 0 && pixels < static_cast<float>(INT16_MAX) ? static_cast<int>(pixels) : 0;
}

std::uint64_t mixed(std::uint64_t seed, std::uint64_t value)
{
    // The finaliser of SplitMix64 (Steele, Lea, Flood 2014).
    std::uint64_t z = (seed ^ value) + 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
}

std::uint64_t mixed(std::uint64_t seed, Size size)
{
    return mixed(seed,
        static_cast<std::uint64_t>(std::bit_cast<std::uint32_t>(size.width)) << 32U | std::bit_cast<std::uint32_t>(size.height));
}

std::uint64_t mixed(std::uint64_t seed, NSImageRep const& rep)
{
    auto const* bitmap = dynamic_cast<NSBitmapImageRep const*>(&rep);
    return mixed(mixed(seed, bitmap ? bitmap->contentStamp() : ~rep.serialNumber()), rep.size());
}

}

struct NSImage::Focus {
    Ref<NSBitmapImageRep> rep;
    Ref<NSGraphicsContext> context;
    Ref<NSGraphicsContext> previous;
};

PLIX_DESCRIBE(NSImage)
{
}

NSImage::NSImage() = default;

NSImage::~NSImage() = default;

bool NSImage::init(Size size)
{
    setSize(size);
    return true;
}

bool NSImage::init(NSData const& fileContents)
{
    addRepresentations(NSImageRep::imageRepsWithData(fileContents));
    return !m_representations.empty();
}

bool NSImage::init(std::string_view path)
{
    addRepresentations(imageRepsAtPath(std::string(path)));
    return !m_representations.empty();
}

bool NSImage::init(NSCoder& coder)
{
    if (auto const data = coder.decodeForKey<NSData>("TIFF"))
        addRepresentations(NSImageRep::imageRepsWithData(*data));
    coder.read("size", [&](ObjectValue const& value) { setSize(NSSizeFromString(value.description())); });
    setFlipped(coder.decodeBoolForKey("flipped"));
    setScalesWhenResized(coder.decodeBoolForKey("scalesWhenResized"));
    setBackgroundColor(coder.decodeForKey<NSColor>("backgroundColor"));
    return true;
}

void NSImage::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(NSStringFromSize(size()), "size");
    coder.encodeBool(m_isFlipped, "flipped");
    coder.encodeBool(m_scalesWhenResized, "scalesWhenResized");
    coder.encodeObject(m_backgroundColor, "backgroundColor");
    coder.encodeObject(TIFFRepresentation(), "TIFF");
}

void NSImage::setDefaultBackingScale(float scale)
{
    s_defaultBackingScale = scale > 0 ? scale : 1;
}

float NSImage::defaultBackingScale()
{
    return s_defaultBackingScale;
}

float NSImage::backingScaleForDrawing()
{
    auto const context = NSGraphicsContext::currentContext();
    return std::max(s_defaultBackingScale, context ? context->backingScale() : 1);
}

Ref<NSImage> NSImage::imageDrawnInto(Ref<NSBitmapImageRep> const& rep)
{
    if (!rep)
        return nullptr;
    auto image = make<NSImage>(rep->size());
    image->m_representations.emplace_back(rep);
    image->m_cache = rep;
    return image;
}

Size NSImage::size() const
{
    if (m_hasSize || m_representations.empty())
        return m_size;
    return m_representations.front()->size();
}

void NSImage::setSize(Size size)
{
    m_size = { std::max(size.width, 0.0F), std::max(size.height, 0.0F) };
    m_hasSize = true;
}

bool NSImage::isValid() const
{
    return m_cache || !m_representations.empty();
}

void NSImage::setFlipped(bool isFlipped)
{
    m_isFlipped = isFlipped;
}

void NSImage::setScalesWhenResized(bool scales)
{
    m_scalesWhenResized = scales;
}

void NSImage::setBackgroundColor(Ref<NSColor> const& color)
{
    m_backgroundColor = color;
}

void NSImage::addRepresentation(Ref<NSImageRep> const& rep)
{
    if (rep)
        m_representations.push_back(rep);
}

void NSImage::addRepresentations(std::vector<Ref<NSImageRep>> const& reps)
{
    for (auto const& rep : reps)
        addRepresentation(rep);
}

void NSImage::removeRepresentation(NSImageRep const& rep)
{
    std::erase_if(m_representations, [&](auto const& held) { return held.get() == &rep; });
    if (m_cache.get() == &rep)
        m_cache = nullptr;
}

NSImageRep* NSImage::bestRepresentationForScale(float pixelsPerPoint) const
{
    NSImageRep* best = nullptr;
    float bestScale = 0;
    for (auto const& rep : m_representations) {
        // What draws itself at any size has no pixels.
        float const scale = rep->pixelsWide() > 0 && rep->size().width > 0
            ? static_cast<float>(rep->pixelsWide()) / rep->size().width
            : pixelsPerPoint;
        bool const isEnough = scale >= pixelsPerPoint - oneTenThousandth;
        bool const bestIsEnough = bestScale >= pixelsPerPoint - oneTenThousandth;
        if (!best || (isEnough ? !bestIsEnough || scale < bestScale : !bestIsEnough && scale > bestScale)) {
            best = rep.get();
            bestScale = scale;
        }
    }
    return best;
}

NSImageRep* NSImage::representationToDraw(float pixelsPerPoint) const
{
    return m_cache ? m_cache.get() : bestRepresentationForScale(pixelsPerPoint);
}

void NSImage::recache()
{
    bool const isAllThereIs = m_representations.empty() || (m_representations.size() == 1 && m_cache == m_representations.front());
    if (!isAllThereIs && m_focus.empty())
        m_cache = nullptr;
}

void NSImage::drawInRect(Rect rect, Rect from, NSCompositingOperation operation, float fraction) const
{
    auto const context = NSGraphicsContext::currentContext();
    Size const whole = size();
    if (from.isEmpty())
        from = rectWith({}, whole);
    if (!context || rect.isEmpty() || whole.width <= 0 || whole.height <= 0)
        return;
    if (m_backgroundColor && m_backgroundColor->alphaComponent() > 0) {
        GraphicsState const saved(context);
        m_backgroundColor->setFill();
        NSRectFillUsingOperation(rect, NSCompositeSourceOver);
    }
    auto const matrix = context->internals().matrix();
    float const density = static_cast<float>(std::hypot(matrix.xx, matrix.yx)) * rect.width / from.width;
    auto const* rep = representationToDraw(density);
    if (!rep)
        return;
    Size const factor = m_scalesWhenResized && rep->size().width > 0 && rep->size().height > 0
        ? Size { rep->size().width / whole.width, rep->size().height / whole.height }
        : Size { 1, 1 };
    Rect const part { from.x * factor.width, from.y * factor.height, from.width * factor.width, from.height * factor.height };
    bool const isMirrored = m_isFlipped && rep != m_cache.get();
    rep->draw(ImageDrawing { rect, part, operation, fraction, isMirrored });
}

void NSImage::drawAtPoint(Point point, Rect from, NSCompositingOperation operation, float fraction) const
{
    drawInRect(rectWith(point, from.isEmpty() ? size() : from.size()), from, operation, fraction);
}

void NSImage::compositeToPoint(Point point, NSCompositingOperation operation, float fraction) const
{
    compositeToPoint(point, {}, operation, fraction);
}

void NSImage::compositeToPoint(Point point, Rect from, NSCompositingOperation operation, float fraction) const
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    auto& internals = context->internals();
    auto const matrix = internals.matrix();
    double x = point.x;
    double y = point.y;
    cairo_matrix_transform_point(&matrix, &x, &y);
    double const scale = context->backingScale();
    cairo_matrix_t const upright { scale, 0, 0, -scale, std::floor(x + 0.5), std::floor(y + 0.5) };
    cairo_set_matrix(internals.cairo.get(), &upright);
    drawAtPoint({}, from, operation, fraction);
    cairo_set_matrix(internals.cairo.get(), &matrix);
}

void NSImage::dissolveToPoint(Point point, float fraction) const
{
    compositeToPoint(point, NSCompositeSourceOver, fraction);
}

void NSImage::dissolveToPoint(Point point, Rect from, float fraction) const
{
    compositeToPoint(point, from, NSCompositeSourceOver, fraction);
}

Ref<NSBitmapImageRep> NSImage::bitmapAtScale(float pixelsPerPoint) const
{
    auto const whole = size();
    auto* rep = dynamic_cast<NSBitmapImageRep*>(representationToDraw(pixelsPerPoint));
    Size const perPoint { pixelsPerPoint, pixelsPerPoint };
    bool const isAsItIs = rep && rep->pixelsPerPoint() == perPoint && rep->pixelsWide() == pixelsFor(whole.width, pixelsPerPoint)
        && rep->pixelsHigh() == pixelsFor(whole.height, pixelsPerPoint) && (!m_isFlipped || rep == m_cache.get())
        && !m_backgroundColor;
    if (isAsItIs)
        return rep;
    auto const stamp = contentStamp();
    if (m_rendition && m_renditionStamp == stamp && m_rendition->pixelsPerPoint() == perPoint)
        return m_rendition;
    auto rendition = make<NSBitmapImageRep>(
        BitmapStorage::make(pixelsFor(whole.width, pixelsPerPoint), pixelsFor(whole.height, pixelsPerPoint)), whole, perPoint);
    auto const context = rendition ? NSGraphicsContext::graphicsContextWithBitmapImageRep(rendition) : nullptr;
    if (!context)
        return nullptr;
    {
        CurrentContext const current(context);
        drawInRect(rectWith({}, whole), {}, NSCompositeCopy, 1);
    }
    context->flushGraphics();
    m_rendition = rendition;
    m_renditionStamp = stamp;
    return rendition;
}

Ref<NSData> NSImage::TIFFRepresentation() const
{
    std::vector<Ref<NSBitmapImageRep>> bitmaps;
    if (m_cache) {
        bitmaps.push_back(m_cache);
    } else {
        for (auto const& rep : m_representations) {
            if (auto bitmap = as<NSBitmapImageRep>(rep))
                bitmaps.push_back(std::move(bitmap));
        }
    }
    if (bitmaps.empty() && isValid())
        bitmaps.push_back(bitmapAtScale(backingScaleForDrawing()));
    return NSBitmapImageRep::TIFFRepresentationOfImageRepsInArray(bitmaps);
}

std::uint64_t NSImage::contentStamp() const
{
    std::uint64_t stamp = mixed((m_isFlipped ? 1U : 0U) | (m_scalesWhenResized ? 2U : 0U), size());
    if (m_backgroundColor)
        stamp = mixed(stamp, m_backgroundColor->hash() + 1);
    if (m_cache)
        return mixed(stamp + 1, *m_cache);
    for (auto const& rep : m_representations)
        stamp = mixed(stamp, *rep);
    return stamp;
}

NSBitmapImageRep* NSImage::makeFocusable(float scale)
{
    auto const whole = size();
    if (m_cache && m_cache->size() == whole)
        return m_cache.get();
    auto fresh = make<NSBitmapImageRep>(
        BitmapStorage::make(pixelsFor(whole.width, scale), pixelsFor(whole.height, scale)), whole, Size { scale, scale });
    if (!fresh)
        return nullptr;
    if (isValid()) {
        CurrentContext const current(NSGraphicsContext::graphicsContextWithBitmapImageRep(fresh));
        drawInRect(rectWith({}, whole), {}, NSCompositeCopy, 1);
    }
    if (m_cache || m_representations.empty()) {
        std::erase_if(m_representations, [&](auto const& held) { return held == m_cache; });
        m_representations.emplace_back(fresh);
    }
    m_cache = fresh;
    return fresh.get();
}

void NSImage::lockFocus(Badge<FocusLock> const&)
{
    auto focus = std::make_unique<Focus>();
    focus->previous = NSGraphicsContext::currentContext();
    focus->rep = Ref<NSBitmapImageRep>(makeFocusable(backingScaleForDrawing()));
    bool const hasPixels = focus->rep != nullptr;
    // An image without size takes drawing too, and keeps nothing of it.
    if (!hasPixels)
        focus->rep = make<NSBitmapImageRep>(1, 1);
    focus->rep->setExposed(true);
    focus->context = NSGraphicsContext::graphicsContextWithBitmapImageRep(focus->rep);
    if (!hasPixels)
        focus->context->clipToRects({});
    if (m_isFlipped) {
        focus->context->concat(AffineTransform::mirror(rectWith({}, size())));
        focus->context->setFlipped(true);
    }
    NSGraphicsContext::setCurrentContext(focus->context);
    m_focus.push_back(std::move(focus));
}

void NSImage::unlockFocus(Badge<FocusLock> const&)
{
    if (m_focus.empty())
        return;
    auto const focus = std::move(m_focus.back());
    m_focus.pop_back();
    focus->context->flushGraphics();
    NSGraphicsContext::setCurrentContext(focus->previous);
    bool const isStillDrawnInto
        = std::any_of(m_focus.begin(), m_focus.end(), [&](auto const& other) { return other->rep == focus->rep; });
    focus->rep->setExposed(isStillDrawnInto);
    focus->rep->contentChanged();
}

void NSImage::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& image = static_cast<NSImage&>(fresh);
    image.m_size = m_size;
    image.m_hasSize = m_hasSize;
    image.m_isFlipped = m_isFlipped;
    image.m_scalesWhenResized = m_scalesWhenResized;
    image.m_backgroundColor = m_backgroundColor;
    image.m_cache = m_cache ? m_cache->copy() : nullptr;
    for (auto const& rep : m_representations)
        image.m_representations.emplace_back(rep == m_cache ? Ref<NSImageRep>(image.m_cache) : copyOf(*rep));
}

}
