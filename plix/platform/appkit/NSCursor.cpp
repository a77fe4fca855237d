#include <plix/platform/appkit/NSCursor.h>

#include <plix/platform/base/Global.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/host/Host.h>

#include <array>
#include <cmath>
#include <cstring>
#include <vector>

namespace plix {

namespace {

constexpr int largestSide = 256;

constinit Global<NSCursor> s_current;
int s_hidden = 0;
bool s_isHiddenUntilMove = false;

std::vector<Ref<NSCursor>>& pushed()
{
    static auto& s_pushed = *new std::vector<Ref<NSCursor>>;
    return s_pushed;
}

CursorPixels pixelsOf(NSImage& image, Point hotSpot)
{
    CursorPixels cursor;
    cursor.width = std::clamp(static_cast<int>(std::ceil(image.size().width)), 1, largestSide);
    cursor.height = std::clamp(static_cast<int>(std::ceil(image.size().height)), 1, largestSide);
    cursor.hotSpotX = static_cast<int>(hotSpot.x);
    cursor.hotSpotY = static_cast<int>(hotSpot.y);
    auto const rep = make<NSBitmapImageRep>(cursor.width, cursor.height);
    {
        CurrentContext const current(NSGraphicsContext::graphicsContextWithBitmapImageRep(rep));
        image.drawInRect(
            { 0, 0, static_cast<float>(cursor.width), static_cast<float>(cursor.height) }, {}, NSCompositeSourceOver, 1);
    }
    auto const drawn = rep->pixels();
    for (int row = 0; row < cursor.height; ++row) {
        auto const* const line = drawn.pixels + std::ptrdiff_t { row } * drawn.stride;
        for (int column = 0; column < cursor.width; ++column) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, line + column * 4, sizeof pixel);
            cursor.pixels.push_back(pixel);
        }
    }
    return cursor;
}

}

PLIX_DESCRIBE(NSCursor)
{
}

NSCursor::NSCursor() = default;
NSCursor::~NSCursor() = default;

bool NSCursor::init(Ref<NSImage> const& image, Point hotSpot)
{
    m_image = image;
    m_hotSpot = hotSpot;
    return true;
}

NSCursor& NSCursor::standardCursor(CursorShape shape)
{
    static auto& s_cursors = *new std::array<Ref<NSCursor>, static_cast<std::size_t>(CursorShape::hidden) + 1>;
    auto& cursor = s_cursors[static_cast<std::size_t>(shape)];
    if (!cursor) {
        cursor = make<NSCursor>(nullptr, Point {});
        cursor->m_shape = shape;
    }
    return *cursor;
}

NSCursor& NSCursor::arrowCursor()
{
    return standardCursor(CursorShape::arrow);
}

NSCursor& NSCursor::IBeamCursor()
{
    return standardCursor(CursorShape::iBeam);
}

NSCursor& NSCursor::crosshairCursor()
{
    return standardCursor(CursorShape::crosshair);
}

NSCursor& NSCursor::pointingHandCursor()
{
    return standardCursor(CursorShape::pointingHand);
}

NSCursor& NSCursor::openHandCursor()
{
    return standardCursor(CursorShape::openHand);
}

NSCursor& NSCursor::closedHandCursor()
{
    return standardCursor(CursorShape::closedHand);
}

NSCursor& NSCursor::resizeLeftRightCursor()
{
    return standardCursor(CursorShape::resizeLeftRight);
}

NSCursor& NSCursor::resizeLeftCursor()
{
    return resizeLeftRightCursor();
}

NSCursor& NSCursor::resizeRightCursor()
{
    return resizeLeftRightCursor();
}

NSCursor& NSCursor::resizeUpDownCursor()
{
    return standardCursor(CursorShape::resizeUpDown);
}

NSCursor& NSCursor::resizeUpCursor()
{
    return resizeUpDownCursor();
}

NSCursor& NSCursor::resizeDownCursor()
{
    return resizeUpDownCursor();
}

NSCursor& NSCursor::disappearingItemCursor()
{
    return operationNotAllowedCursor();
}

NSCursor& NSCursor::operationNotAllowedCursor()
{
    return standardCursor(CursorShape::notAllowed);
}

NSCursor& NSCursor::currentCursor()
{
    return s_current ? *s_current : arrowCursor();
}

void NSCursor::apply()
{
    auto& display = host().display();
    auto& cursor = currentCursor();
    if (s_hidden > 0 || s_isHiddenUntilMove)
        display.setCursor(CursorShape::hidden);
    else if (cursor.m_image)
        display.setCursor(pixelsOf(*cursor.m_image, cursor.m_hotSpot));
    else
        display.setCursor(cursor.m_shape);
}

void NSCursor::set()
{
    if (&currentCursor() == this && s_current && !s_isHiddenUntilMove)
        return;
    s_current = Ref<NSCursor>(this);
    apply();
}

void NSCursor::push()
{
    pushed().emplace_back(currentCursor());
    set();
}

void NSCursor::pop()
{
    if (pushed().empty())
        return;
    auto const before = std::move(pushed().back());
    pushed().pop_back();
    before->set();
}

void NSCursor::hide()
{
    if (s_hidden++ == 0)
        apply();
}

void NSCursor::unhide()
{
    if (s_hidden > 0 && --s_hidden == 0)
        apply();
}

void NSCursor::setHiddenUntilMouseMoves(bool hidden)
{
    if (s_isHiddenUntilMove == hidden)
        return;
    s_isHiddenUntilMove = hidden;
    apply();
}

}
