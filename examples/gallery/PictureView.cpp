#include "PictureView.h"

#include <plix/drawing/PLIXShading.h>
#include <plix/drawing/bezier_path_additions.h>
#include <plix/platform/graphics/CGFunction.h>
#include <plix/platform/graphics/CGShading.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSShadow.h>
#include <plix/platform/graphics/string_drawing.h>

#include <cmath>

namespace gallery {

using namespace plix;

namespace {

constexpr Size pageSize { 960, 600 };
constexpr float leftColumn = 24;
constexpr float rightColumn = 504;
constexpr float labelHeight = 14;

/// Places things from the top of the page downwards.
Rect fromTop(float x, float top, float width, float height)
{
    return { x, pageSize.height - top - height, width, height };
}

void drawTitle(char const* text, float x, float top)
{
    Attributes const attributes { { NSFontAttributeName, Ref<NSObject>(NSFont::boldSystemFontOfSize(13)) },
        { NSForegroundColorAttributeName, Ref<NSObject>(NSColor::controlTextColor()) } };
    drawAtPoint(text, fromTop(x, top, 0, 17).origin(), attributes);
}

void drawLabel(std::string_view text, Rect below)
{
    Attributes const attributes { { NSFontAttributeName, Ref<NSObject>(NSFont::systemFontOfSize(9)) },
        { NSForegroundColorAttributeName, Ref<NSObject>(NSColor::controlTextColor()->colorWithAlphaComponent(0.7F)) } };
    auto const size = sizeWithAttributes(text, attributes);
    drawAtPoint(text, { std::round(below.midX() - size.width / 2), below.y - labelHeight }, attributes);
}

void drawWhole(NSImage const& image, Rect rect)
{
    image.drawInRect(rect, {}, NSCompositeSourceOver, 1);
}

void drawRow(std::vector<Ref<NSImage>> const& images, float x, float top, float height, float gap)
{
    for (auto const& image : images) {
        auto const size = image->size();
        drawWhole(*image, fromTop(x, top + std::round((height - size.height) / 2), size.width, size.height));
        x += size.width + gap;
    }
}

void drawStretched(PictureSamples const& samples)
{
    drawTitle("Stretched over a size, and over a picture", leftColumn, 20);
    drawRow({ samples.button }, leftColumn, 46, 44, 0);
    drawRow({ samples.stretched[3], samples.stretched[0], samples.stretched[1] }, leftColumn + 42, 46, 44, 12);
    drawRow({ samples.stretched[4] }, leftColumn + 342, 46, 44, 0);
    drawRow({ samples.stretched[2] }, leftColumn, 100, 44, 0);
}

void drawComposed(PictureSamples const& samples)
{
    drawTitle("Composed", leftColumn + 150, 100);
    float x = leftColumn + 276;
    for (auto const& part : samples.parts) {
        auto const size = part->size();
        drawWhole(*part, fromTop(x, 102 + (40 - size.height) / 2, size.width, size.height));
        x += size.width + 4;
    }
    drawWhole(*samples.composed, fromTop(x + 10, 102, 40, 40));
}

struct Gradient {
    char const* label;
    PLIXShading::Components start;
    PLIXShading::Components end;
    Point from; ///< of a unit square
    Point to;
    bool isGray;
};

void drawGradient(Gradient const& gradient, Rect rect)
{
    GraphicsState const saved;
    NSRectClip(rect);
    auto const shading = make<PLIXShading>();
    if (gradient.isGray)
        shading->setColorSpace(CGColorSpaceCreateDeviceGray());
    shading->setStartColorComponents(gradient.start);
    shading->setEndColorComponents(gradient.end);
    shading->setStartPoint({ rect.x + gradient.from.x * rect.width, rect.y + gradient.from.y * rect.height });
    shading->setEndPoint({ rect.x + gradient.to.x * rect.width, rect.y + gradient.to.y * rect.height });
    shading->drawShading();
}

void evaluateSpectrum(void*, float const* in, float* out)
{
    auto const color = colorFromHue({ *in * 0.85F, 0.75F, 0.95F, 1 });
    out[0] = color.red;
    out[1] = color.green;
    out[2] = color.blue;
    out[3] = 1;
}

void drawSpectrum(Rect rect)
{
    GraphicsState const saved;
    NSRectClip(rect);
    constexpr float domain[] { 0, 1 };
    constexpr float range[] { 0, 1, 0, 1, 0, 1, 0, 1 };
    constexpr CGFunctionCallbacks callbacks { 0, evaluateSpectrum, nullptr };
    auto const function = CGFunctionCreate(nullptr, 1, domain, 4, range, &callbacks);
    auto const shading
        = CGShadingCreateAxial(CGColorSpaceCreateDeviceRGB(), rect.origin(), { rect.maxX(), rect.y }, function, false, false);
    CGContextDrawShading(NSGraphicsContext::currentContext()->graphicsPort(), shading);
}

void drawShadings()
{
    constexpr Gradient gradients[] {
        { "grey", { 0.25F, 1 }, { 0.95F, 1 }, { 0, 0 }, { 0, 1 }, true },
        { "RGB", { 0.10F, 0.35F, 0.80F, 1 }, { 0.55F, 0.80F, 1, 1 }, { 0, 0 }, { 0, 1 }, false },
        { "across", { 0.90F, 0.25F, 0.20F, 1 }, { 1, 0.85F, 0.30F, 1 }, { 0, 0 }, { 1, 0 }, false },
        { "slanting", { 0.20F, 0.60F, 0.30F, 1 }, { 0.85F, 0.95F, 0.60F, 1 }, { 0.1F, 0.1F }, { 0.9F, 0.9F }, false },
        { "to clear", { 0.50F, 0.20F, 0.70F, 1 }, { 0.50F, 0.20F, 0.70F, 0 }, { 0, 0 }, { 0, 1 }, false },
        { "ends bare", { 0.10F, 0.35F, 0.80F, 1 }, { 0.55F, 0.80F, 1, 1 }, { 0, 0.25F }, { 0, 0.75F }, false },
    };
    drawTitle("Shadings", leftColumn, 344);
    float x = leftColumn;
    for (auto const& gradient : gradients) {
        Rect const rect = fromTop(x, 368, 56, 56);
        drawCheckerboard(rect);
        drawGradient(gradient, rect);
        drawLabel(gradient.label, rect);
        x += 64;
    }
    Rect const rect = fromTop(x, 368, 48, 56);
    drawSpectrum(rect);
    drawLabel("host's own", rect);
}

void drawOperations(PictureSamples const& samples)
{
    constexpr char const* names[] { "clear", "copy", "over", "in", "out", "atop", "dest over", "dest in", "dest out", "dest atop",
        "xor", "darker", "highlight", "lighter" };
    drawTitle("Compositing operations", rightColumn, 20);
    for (std::size_t i = 0; i < samples.operations.size(); ++i) {
        auto const column = static_cast<float>(i % 7);
        auto const row = static_cast<float>(i / 7);
        Rect const rect = fromTop(rightColumn + column * 62, 46 + row * 76, 48, 48);
        drawCheckerboard(rect);
        drawWhole(*samples.operations[i], rect);
        drawLabel(names[i], rect);
    }
}

void drawInterpolation(PictureSamples const& samples)
{
    constexpr struct {
        char const* name;
        NSImageInterpolation value;
    } qualities[] { { "none", NSImageInterpolationNone }, { "low", NSImageInterpolationLow },
        { "default", NSImageInterpolationDefault }, { "high", NSImageInterpolationHigh } };
    drawTitle("Interpolation", rightColumn, 204);
    float x = rightColumn;
    for (auto const& quality : qualities) {
        GraphicsState const saved;
        NSGraphicsContext::currentContext()->setImageInterpolation(quality.value);
        Rect const large = fromTop(x, 228, 48, 48);
        drawWhole(*samples.icon, large);
        drawWhole(*samples.lines, fromTop(x + 52, 228, 48, 48));
        drawLabel(quality.name, fromTop(x, 228, 100, 48));
        x += 110;
    }
}

void drawShadows()
{
    drawTitle("Shadows", rightColumn, 306);
    float x = rightColumn + 6;
    for (float const radius : { 0.0F, 2.0F, 5.0F, 10.0F }) {
        Rect const rect = fromTop(x, 334, 56, 36);
        {
            GraphicsState const saved;
            auto const shadow = make<NSShadow>();
            shadow->setShadowOffset({ 3, -3 });
            shadow->setShadowBlurRadius(radius);
            shadow->setShadowColor(NSColor::colorWithCalibratedWhite(0, 0.55F));
            shadow->set();
            NSColor::colorWithCalibratedRed(0.30F, 0.62F, 0.92F, 1)->set();
            bezierPathWithRoundedRect(rect, 8)->fill();
        }
        drawLabel("radius " + std::to_string(static_cast<int>(radius)), NSOffsetRect(rect, 0, -12));
        x += 110;
    }
}

void drawPaths(PictureSamples const& samples)
{
    drawTitle("Rounded sides and patterns", rightColumn, 412);
    constexpr unsigned styles[] { 30, 26, 28, 14, 22, 0 };
    float x = rightColumn;
    for (unsigned const style : styles) {
        Rect const rect = fromTop(x, 438, 58, 34);
        auto const path = bezierPathWithRoundedRect(NSInsetRect(rect, 1, 1), 12, style);
        NSColor::colorWithPatternImage(samples.tile)->setFill();
        path->fill();
        NSColor::colorWithCalibratedRed(0.20F, 0.35F, 0.60F, 1)->setStroke();
        path->setLineWidth(2);
        path->stroke();
        drawLabel(std::to_string(style), rect);
        x += 74;
    }
}

void drawLines()
{
    drawTitle("Lines", leftColumn, 466);
    struct Line {
        NSLineCapStyle cap;
        NSLineJoinStyle join;
        std::vector<float> dash;
    };
    Line const lines[] { { NSButtLineCapStyle, NSMiterLineJoinStyle, {} }, { NSRoundLineCapStyle, NSRoundLineJoinStyle, {} },
        { NSSquareLineCapStyle, NSBevelLineJoinStyle, {} }, { NSButtLineCapStyle, NSMiterLineJoinStyle, { 10, 5 } },
        { NSRoundLineCapStyle, NSRoundLineJoinStyle, { 0, 11 } } };
    float x = leftColumn + 6;
    for (auto const& line : lines) {
        Rect const rect = fromTop(x, 496, 60, 36);
        auto const path = NSBezierPath::bezierPath();
        path->moveToPoint({ rect.x, rect.y });
        path->lineToPoint({ rect.midX(), rect.maxY() });
        path->lineToPoint({ rect.maxX(), rect.y });
        path->setLineWidth(7);
        path->setLineCapStyle(line.cap);
        path->setLineJoinStyle(line.join);
        path->setLineDash(line.dash, 0);
        NSColor::colorWithCalibratedRed(0.25F, 0.55F, 0.45F, 1)->set();
        path->stroke();
        x += 90;
    }
}

void drawHairlines()
{
    drawTitle("Frames and hairlines", rightColumn, 508);
    float x = rightColumn;
    for (float const width : { 0.5F, 1.0F, 2.0F, 3.0F }) {
        Rect const rect = fromTop(x, 534, 80, 44);
        NSColor::textColor()->set();
        NSFrameRectWithWidth(rect, width);
        NSColor::gridColor()->set();
        for (float y = rect.y + 8; y < rect.maxY() - 4; y += 8)
            NSRectFill({ rect.x + 6, y, 68, 1 });
        x += 110;
    }
}

}

PLIX_DESCRIBE(PictureView)
{
}

bool PictureView::init()
{
    return Base::init(rectWith({}, pageSize));
}

PictureSamples const& PictureView::samples()
{
    float const scale = NSImage::backingScaleForDrawing();
    if (!m_samples || scale > m_samplesScale) {
        m_samples = PictureSamples::make();
        m_samplesScale = scale;
    }
    return *m_samples;
}

void PictureView::drawRect(Rect dirty)
{
    NSColor::windowBackgroundColor()->set();
    NSRectFill(dirty);
    auto const& shown = samples();
    drawStretched(shown);
    drawComposed(shown);
    drawTitle("Badged, at each alignment", leftColumn, 166);
    drawRow(shown.badged, leftColumn, 190, 40, 8);
    drawTitle("Recoloured", leftColumn, 256);
    drawRow(shown.recolored, leftColumn, 280, 40, 16);
    drawShadings();
    drawLines();
    drawOperations(shown);
    drawInterpolation(shown);
    drawShadows();
    drawPaths(shown);
    drawHairlines();
}

}
