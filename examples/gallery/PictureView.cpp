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
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

constexpr Size pageSize { 960, 620 };
// Two columns of sections; each section is a title and a row of pictures as wide as the column, with captions below.
constexpr float leftColumn = 24;
constexpr float rightColumn = 504;
constexpr float columnWidth = 432;
constexpr float titleRoom = 24;
constexpr float captionRoom = 15;

/// Places things from the top of the page downwards.
Rect fromTop(float x, float top, float width, float height)
{
    return { x, pageSize.height - top - height, width, height };
}

/// The rectangles of a section's row: equal ones, spread over the column.
class Cells {
public:
    Cells(float column, float sectionTop, std::size_t count, Size size)
        : m_column(column)
        , m_top(sectionTop + titleRoom)
        , m_step(count > 1 ? (columnWidth - size.width) / static_cast<float>(count - 1) : 0)
        , m_size(size)
    {
    }
    Rect operator[](std::size_t index) const
    {
        return fromTop(std::round(m_column + static_cast<float>(index) * m_step), m_top, m_size.width, m_size.height);
    }

private:
    float m_column;
    float m_top;
    float m_step;
    Size m_size;
};

void drawTitle(char const* text, float x, float top)
{
    Attributes const attributes { { NSFontAttributeName, Ref<NSObject>(NSFont::boldSystemFontOfSize(13)) },
        { NSForegroundColorAttributeName, Ref<NSObject>(NSColor::controlTextColor()) } };
    drawAtPoint(text, fromTop(x, top, 0, 17).origin(), attributes);
}

void drawCaption(std::string_view text, Rect below)
{
    Attributes const attributes { { NSFontAttributeName, Ref<NSObject>(NSFont::systemFontOfSize(9)) },
        { NSForegroundColorAttributeName, Ref<NSObject>(NSColor::controlTextColor()->colorWithAlphaComponent(0.7F)) } };
    auto const size = sizeWithAttributes(text, attributes);
    drawAtPoint(text, { std::round(below.midX() - size.width / 2), below.y - captionRoom }, attributes);
}

void drawWhole(NSImage const& image, Rect rect)
{
    image.drawInRect(rect, {}, NSCompositeSourceOver, 1);
}

/// In the middle of a cell, at its own size.
void drawCentered(NSImage const& image, Rect cell)
{
    auto const size = image.size();
    drawWhole(
        image, { std::round(cell.midX() - size.width / 2), std::round(cell.midY() - size.height / 2), size.width, size.height });
}

void drawRow(std::vector<Ref<NSImage>> const& images, Cells const& cells)
{
    for (std::size_t i = 0; i < images.size(); ++i)
        drawCentered(*images[i], cells[i]);
}

std::string sizeText(Size size)
{
    return std::to_string(static_cast<int>(size.width)) + " x " + std::to_string(static_cast<int>(size.height));
}

void drawStretched(PictureSamples const& samples)
{
    constexpr float top = 20;
    constexpr float gap = 12;
    constexpr float height = 44;
    drawTitle("Stretched", leftColumn, top);
    float x = leftColumn;
    for (auto const& image :
        { samples.button, samples.stretched[3], samples.stretched[0], samples.stretched[1], samples.stretched[2] }) {
        auto const size = image->size();
        Rect const cell = fromTop(x, top + titleRoom, size.width, height);
        drawCentered(*image, cell);
        drawCaption(sizeText(size), cell);
        x += size.width + gap;
    }
}

void drawComposed(PictureSamples const& samples)
{
    constexpr float top = 126;
    drawTitle("Composed", leftColumn, top);
    Cells const cells(leftColumn, top, 8, { 40, 40 });
    constexpr char const* captions[] { "back", "middle", "front" };
    for (std::size_t i = 0; i < samples.parts.size(); ++i) {
        drawCheckerboard(cells[i]);
        drawCentered(*samples.parts[i], cells[i]);
        drawCaption(captions[i], cells[i]);
    }
    drawCheckerboard(cells[4]);
    drawCentered(*samples.composed, cells[4]);
    drawCaption("together", cells[4]);
    Rect const over = fromTop(leftColumn + columnWidth - 76, top + titleRoom - 2, 76, 44);
    drawCentered(*samples.stretched[4], over);
    drawCaption("over a picture", NSOffsetRect(over, 0, 2));
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
    constexpr float top = 404;
    drawTitle("Shadings", leftColumn, top);
    Cells const cells(leftColumn, top, std::size(gradients) + 1, { 54, 54 });
    for (std::size_t i = 0; i < std::size(gradients); ++i) {
        drawCheckerboard(cells[i]);
        drawGradient(gradients[i], cells[i]);
        drawCaption(gradients[i].label, cells[i]);
    }
    Rect const rect = cells[std::size(gradients)];
    drawSpectrum(rect);
    drawCaption("host’s own", rect);
}

void drawOperations(PictureSamples const& samples)
{
    constexpr char const* names[] { "clear", "copy", "over", "in", "out", "atop", "dest over", "dest in", "dest out", "dest atop",
        "xor", "darker", "highlight", "lighter" };
    constexpr std::size_t columns = 7;
    constexpr float top = 20;
    constexpr float rowDistance = 76;
    drawTitle("Compositing operations", rightColumn, top);
    for (std::size_t i = 0; i < samples.operations.size(); ++i) {
        Cells const cells(rightColumn, top + static_cast<float>(i / columns) * rowDistance, columns, { 48, 48 });
        Rect const rect = cells[i % columns];
        drawCheckerboard(rect);
        drawWhole(*samples.operations[i], rect);
        drawCaption(names[i], rect);
    }
}

void drawInterpolation(PictureSamples const& samples)
{
    constexpr struct {
        char const* name;
        NSImageInterpolation value;
    } qualities[] { { "none", NSImageInterpolationNone }, { "low", NSImageInterpolationLow },
        { "default", NSImageInterpolationDefault }, { "high", NSImageInterpolationHigh } };
    constexpr float top = 206;
    constexpr float side = 48;
    drawTitle("Interpolation", rightColumn, top);
    Cells const cells(rightColumn, top, std::size(qualities), { 99, side });
    for (std::size_t i = 0; i < std::size(qualities); ++i) {
        GraphicsState const saved;
        NSGraphicsContext::currentContext()->setImageInterpolation(qualities[i].value);
        Rect const cell = cells[i];
        drawWhole(*samples.icon, { cell.x, cell.y, side, side });
        drawWhole(*samples.lines, { cell.maxX() - side, cell.y, side, side });
        drawCaption(qualities[i].name, cell);
    }
}

void drawShadows()
{
    constexpr float top = 304;
    constexpr float radii[] { 0, 2, 5, 10 };
    drawTitle("Shadows", rightColumn, top);
    Cells const cells(rightColumn, top, std::size(radii), { 72, 34 });
    for (std::size_t i = 0; i < std::size(radii); ++i) {
        {
            GraphicsState const saved;
            auto const shadow = make<NSShadow>();
            shadow->setShadowOffset({ 3, -3 });
            shadow->setShadowBlurRadius(radii[i]);
            shadow->setShadowColor(NSColor::colorWithCalibratedWhite(0, 0.55F));
            shadow->set();
            NSColor::colorWithCalibratedRed(0.30F, 0.62F, 0.92F, 1)->set();
            bezierPathWithRoundedRect(cells[i], 8)->fill();
        }
        drawCaption("radius " + std::to_string(static_cast<int>(radii[i])), NSOffsetRect(cells[i], 0, -6));
    }
}

void drawPaths(PictureSamples const& samples)
{
    constexpr float top = 404;
    constexpr unsigned styles[] { 30, 26, 28, 14, 22, 0 };
    drawTitle("Rounded sides and patterns", rightColumn, top);
    Cells const cells(rightColumn, top, std::size(styles), { 57, 54 });
    for (std::size_t i = 0; i < std::size(styles); ++i) {
        auto const path = bezierPathWithRoundedRect(NSInsetRect(cells[i], 1, 1), 14, styles[i]);
        NSColor::colorWithPatternImage(samples.tile)->setFill();
        path->fill();
        NSColor::colorWithCalibratedRed(0.20F, 0.35F, 0.60F, 1)->setStroke();
        path->setLineWidth(2);
        path->stroke();
        drawCaption("sides " + std::to_string(styles[i]), cells[i]);
    }
}

void drawLines()
{
    constexpr float top = 520;
    drawTitle("Lines", leftColumn, top);
    struct Line {
        NSLineCapStyle cap;
        NSLineJoinStyle join;
        std::vector<float> dash;
    };
    Line const lines[] { { NSButtLineCapStyle, NSMiterLineJoinStyle, {} }, { NSRoundLineCapStyle, NSRoundLineJoinStyle, {} },
        { NSSquareLineCapStyle, NSBevelLineJoinStyle, {} }, { NSButtLineCapStyle, NSMiterLineJoinStyle, { 10, 5 } },
        { NSRoundLineCapStyle, NSRoundLineJoinStyle, { 0, 11 } } };
    Cells const cells(leftColumn, top, std::size(lines), { 72, 44 });
    constexpr char const* captions[] { "butt, miter", "round", "square, bevel", "dashed", "dotted" };
    for (std::size_t i = 0; i < std::size(lines); ++i) {
        auto const& line = lines[i];
        Rect const rect = NSInsetRect(cells[i], 6, 6);
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
        drawCaption(captions[i], cells[i]);
    }
}

void drawHairlines()
{
    constexpr float top = 520;
    constexpr float widths[] { 0.5F, 1, 2, 3 };
    constexpr char const* captions[] { "half a point", "1 point", "2 points", "3 points" };
    drawTitle("Frames and hairlines", rightColumn, top);
    Cells const cells(rightColumn, top, std::size(widths), { 84, 44 });
    for (std::size_t i = 0; i < std::size(widths); ++i) {
        Rect const rect = cells[i];
        NSColor::textColor()->set();
        NSFrameRectWithWidth(rect, widths[i]);
        NSColor::gridColor()->set();
        for (float y = rect.y + 8; y < rect.maxY() - 4; y += 8)
            NSRectFill({ rect.x + 6, y, rect.width - 12, 1 });
        drawCaption(captions[i], rect);
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
    drawTitle("Badged, at each alignment", leftColumn, 228);
    drawRow(shown.badged, Cells(leftColumn, 228, shown.badged.size(), { 40, 40 }));
    drawTitle("Recoloured", leftColumn, 316);
    drawRow(shown.recolored, Cells(leftColumn, 316, shown.recolored.size(), { 40, 40 }));
    drawShadings();
    drawLines();
    drawOperations(shown);
    drawInterpolation(shown);
    drawShadows();
    drawPaths(shown);
    drawHairlines();
}

Ref<NSView> makePicturesPage()
{
    return make<PictureView>();
}

}
