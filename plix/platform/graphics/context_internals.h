#pragma once

#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/handles.h>

#include <vector>

// Private to plix/platform/graphics: what a graphics context is made of, and the one way everything is painted.

namespace plix {

/// A colour of the state. Pattern colours are kept as they are; of the others only the components count.
struct Paint {
    ColorComponents components { 0, 0, 0, 1 };
    Ref<NSColor> pattern;
};

struct ShadowValues {
    Size offset;
    float radius { 0 };
    ColorComponents color { 0, 0, 0, 0 };
};

/// The part of the state that Cairo does not keep.
struct DrawingState {
    Paint fill;
    Paint stroke;
    NSCompositingOperation operation { NSCompositeSourceOver };
    NSImageInterpolation interpolation { NSImageInterpolationDefault };
    float alpha { 1 };
    bool antialiases { true };
    bool smoothsFonts { true };
    bool isFlipped { false };
    ShadowValues shadow;
    Point patternPhase;
    /// Device pixels. The clip is this rectangle, or, where it is not rectangular, lies in it.
    PixelRect clip;
    bool clipIsRectangle { true };

    bool hasShadow() const { return shadow.color.alpha > 0; }
};

struct ContextInternals {
    PixelBuffer pixels;
    Handle<cairo_surface_t> surface;
    Handle<cairo_t> cairo;
    std::vector<DrawingState> states;

    DrawingState& state() { return states.back(); }
    DrawingState const& state() const { return states.back(); }
    /// From base space to device pixels.
    cairo_matrix_t baseMatrix() const;
    cairo_matrix_t matrix() const;
};

/// One thing to paint. All functions get a context whose transform is the user's; `setSource` makes what it paints with the source,
/// `paintShape` paints the shape with the source and operator that are set.
struct Painting {
    /// User space, around all that is painted without its shadow.
    Rect bounds;
    FunctionRef<void(cairo_t*)> setSource;
    FunctionRef<void(cairo_t*)> paintShape;
};

/// Paints with the operation bounded by the shape, with the state's shadow below it. The state's alpha and colours are the source's
/// business.
void paintComposited(ContextInternals&, NSCompositingOperation, Painting const&);

/// Makes a colour of the state the source, its alpha multiplied with the state's.
void setSource(cairo_t*, ContextInternals const&, Paint const&);
/// Of NSCompositeClear with setClearingSource() in place of the true source.
cairo_operator_t cairoOperator(NSCompositingOperation);
void setClearingSource(cairo_t*);
/// Whether the operation changes pixels that the source leaves transparent, so that Cairo paints beyond the shape.
bool reachesBeyondSource(NSCompositingOperation);

inline PixelRect intersection(PixelRect a, PixelRect b)
{
    int const x = a.x > b.x ? a.x : b.x;
    int const y = a.y > b.y ? a.y : b.y;
    int const right = a.x + a.width < b.x + b.width ? a.x + a.width : b.x + b.width;
    int const bottom = a.y + a.height < b.y + b.height ? a.y + a.height : b.y + b.height;
    return { x, y, right > x ? right - x : 0, bottom > y ? bottom - y : 0 };
}
inline bool isEmpty(PixelRect rect)
{
    return rect.width <= 0 || rect.height <= 0;
}

/// A rectangle of user space in device coordinates, within bounds that Cairo's numbers can hold.
struct DeviceRect {
    double left { 0 };
    double top { 0 };
    double right { 0 };
    double bottom { 0 };
};
/// Around the transformed rectangle.
DeviceRect deviceRect(cairo_matrix_t const&, Rect);
/// Its edges rounded each by itself, at least one pixel wide and high.
PixelRect snapped(DeviceRect const&);
/// All pixels that it touches.
PixelRect pixelsAround(DeviceRect const&);
inline bool keepsAxes(cairo_matrix_t const& matrix)
{
    return matrix.xy == 0 && matrix.yx == 0;
}
/// A pixel as Cairo keeps it: premultiplied, alpha highest.
std::uint32_t premultipliedPixel(ColorComponents const&);
/// Replaces the pixels of the area by the repeated image, as setSource() places it; false, and nothing done, where its pixels do
/// not fall on the device's.
bool fillWithTiles(ContextInternals&, PixelRect area, NSImage const& pattern);
/// Adds the outline to the context's current path.
void addPath(cairo_t*, class PathGeometry const&);

}
