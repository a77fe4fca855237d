#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/compositing.h>
#include <plix/platform/graphics/geometry.h>

#include <span>

namespace plix {

// Rectangles drawn into the current context, in user space; nothing without a context or for an empty rectangle. Edges are brought
// to device pixels, each by itself, so that they are crisp at every scale and neighbours meet; what is not empty shows at least one
// pixel.

/// With the fill colour, replacing what is there (operation copy, also of a colour with alpha).
PLIX_EXPORT void NSRectFill(Rect);
PLIX_EXPORT void NSRectFillUsingOperation(Rect, NSCompositingOperation);
PLIX_EXPORT void NSRectFillList(std::span<Rect const>);
PLIX_EXPORT void NSRectFillListUsingOperation(std::span<Rect const>, NSCompositingOperation);
/// Each rectangle with the colour at its place, which leaves the state's colours alone. The shorter list counts.
PLIX_EXPORT void NSRectFillListWithColors(std::span<Rect const>, std::span<Ref<NSColor> const>);
PLIX_EXPORT void NSRectFillListWithColorsUsingOperation(
    std::span<Rect const>, std::span<Ref<NSColor> const>, NSCompositingOperation);

/// A frame inside the rectangle, 1 point wide.
PLIX_EXPORT void NSFrameRect(Rect);
PLIX_EXPORT void NSFrameRectWithWidth(Rect, float width);
PLIX_EXPORT void NSFrameRectWithWidthUsingOperation(Rect, float width, NSCompositingOperation);
/// White.
PLIX_EXPORT void NSEraseRect(Rect);
/// A grey bezel, button and well as wide as the rectangle; what of it lies in the clip rectangle.
PLIX_EXPORT void NSDrawWhiteBezel(Rect rect, Rect clip);

/// For each side in turn cuts a slice of 1 point off the rectangle and fills it with the grey at the same place; answers what is
/// left inside. Only what meets the clip rectangle is drawn.
PLIX_EXPORT Rect NSDrawTiledRects(Rect bounds, Rect clip, std::span<NSRectEdge const> sides, std::span<float const> grays);
/// Likewise with colours.
PLIX_EXPORT Rect NSDrawColorTiledRects(
    Rect bounds, Rect clip, std::span<NSRectEdge const> sides, std::span<Ref<NSColor> const> colors);

/// Narrow the current context's clip. Use inside a GraphicsState.
PLIX_EXPORT void NSRectClip(Rect);
PLIX_EXPORT void NSRectClipList(std::span<Rect const>);

/// The colour of the pixel at a point of the current context's user space; null outside the pixels or without a context.
PLIX_EXPORT Ref<NSColor> NSReadPixel(Point);

}
