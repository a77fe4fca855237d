#include "icons.h"

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <cmath>
#include <initializer_list>

namespace browser {

using plix::NSBezierPath;
using plix::Point;
using plix::Rect;
using plix::Ref;
using plix::Theme;
using plix::ThemeRole;

namespace {

// Icons are designed on a square of 16 and scaled from there. Coordinates on halves are the middle of an outline one point wide,
// whose outer side is on the whole number next to it towards the nearer edge of the square: so it covers whole pixels at every
// size.
class Canvas {
public:
    explicit Canvas(Rect square)
        : m_square(square)
        , m_scale(square.width / 16)
    {
    }

    Point point(float x, float y) const { return { m_square.x + scaled(x), m_square.y + scaled(y) }; }
    /// Without regard to pixels.
    Point place(float x, float y) const { return { m_square.x + x * m_scale, m_square.y + y * m_scale }; }
    Rect rect(float x, float y, float maxX, float maxY) const
    {
        Point const first = point(x, y);
        Point const last = point(maxX, maxY);
        return { first.x, first.y, last.x - first.x, last.y - first.y };
    }
    float length(float value) const { return value * m_scale; }

    Ref<NSBezierPath> polygon(std::initializer_list<Point> corners) const
    {
        auto path = NSBezierPath::bezierPath();
        for (Point const corner : corners) {
            Point const there = point(corner.x, corner.y);
            path->isEmpty() ? path->moveToPoint(there) : path->lineToPoint(there);
        }
        path->closePath();
        return path;
    }

private:
    float scaled(float value) const
    {
        if (value == std::floor(value))
            return value * m_scale;
        return value < 8 ? std::floor(value) * m_scale + 0.5F : std::ceil(value) * m_scale - 0.5F;
    }

    Rect m_square;
    float m_scale;
};

struct Ink {
    ThemeRole fill;
    ThemeRole edge;
};

void paint(NSBezierPath& path, Ink ink)
{
    auto const& theme = Theme::current();
    theme.color(ink.fill)->setFill();
    path.fill();
    theme.color(ink.edge)->setStroke();
    path.setLineJoinStyle(plix::NSRoundLineJoinStyle);
    path.setLineWidth(1);
    path.stroke();
}

constexpr Ink paperInk { ThemeRole::iconPaper, ThemeRole::iconPaperEdge };

void drawFolder(Canvas const& canvas, IconTone tone)
{
    Ink const ink = tone == IconTone::onSelection ? Ink { ThemeRole::iconFolderOnSelection, ThemeRole::iconFolderEdgeOnSelection }
                                                  : Ink { ThemeRole::iconFolder, ThemeRole::iconFolderEdge };
    auto const back = canvas.polygon({ { 1.5F, 13.5F }, { 1.5F, 3.5F }, { 2.5F, 2.5F }, { 5.5F, 2.5F }, { 7.5F, 4.5F },
        { 13.5F, 4.5F }, { 14.5F, 5.5F }, { 14.5F, 13.5F } });
    paint(*back, { ink.edge, ink.edge });
    paint(*Theme::roundedRect(canvas.rect(1.5F, 6.5F, 14.5F, 13.5F), canvas.length(1)), ink);
}

void drawPaper(Canvas const& canvas)
{
    auto const sheet = canvas.polygon({ { 3.5F, 1.5F }, { 9.5F, 1.5F }, { 12.5F, 4.5F }, { 12.5F, 14.5F }, { 3.5F, 14.5F } });
    paint(*sheet, paperInk);
    paint(*canvas.polygon({ { 9.5F, 1.5F }, { 9.5F, 4.5F }, { 12.5F, 4.5F } }), paperInk);
    auto const& theme = Theme::current();
    auto const ruling = theme.color(ThemeRole::iconPaperEdge)->colorWithAlphaComponent(0.45F);
    for (float line : { 7.F, 9.F, 11.F })
        theme.fill(canvas.rect(5, line, 11, line + 1), *ruling);
}

void drawDevice(Canvas const& canvas)
{
    paint(*Theme::roundedRect(canvas.rect(2.5F, 2.5F, 13.5F, 13.5F), canvas.length(2)), paperInk);
    paint(*NSBezierPath::bezierPathWithOvalInRect(canvas.rect(5.5F, 5.5F, 10.5F, 10.5F)), paperInk);
}

// At the lower left: an arrow for a link, a cross for one that leads nowhere.
void drawBadge(Canvas const& canvas, bool isBroken)
{
    auto const& theme = Theme::current();
    auto const ground = NSBezierPath::bezierPathWithOvalInRect(canvas.rect(0, 8, 8, 16));
    auto const color = theme.color(isBroken ? ThemeRole::iconBadge : ThemeRole::iconFolderEdge);
    color->setFill();
    ground->fill();
    auto const sign = NSBezierPath::bezierPath();
    auto line = [&](std::initializer_list<Point> points) {
        bool isFirst = true;
        for (Point const point : points) {
            Point const there = canvas.place(point.x, point.y);
            isFirst ? sign->moveToPoint(there) : sign->lineToPoint(there);
            isFirst = false;
        }
    };
    if (isBroken) {
        line({ { 2.5F, 10.5F }, { 5.5F, 13.5F } });
        line({ { 5.5F, 10.5F }, { 2.5F, 13.5F } });
    } else {
        line({ { 2.6F, 13.4F }, { 5.4F, 10.6F } });
        line({ { 3, 10.6F }, { 5.4F, 10.6F }, { 5.4F, 13 } });
    }
    plix::NSColor::whiteColor()->setStroke();
    sign->setLineWidth(canvas.length(1.2F));
    sign->setLineCapStyle(plix::NSRoundLineCapStyle);
    sign->stroke();
}

}

void drawIcon(EntryKind kind, bool isLink, Rect square, IconTone tone)
{
    auto const context = plix::NSGraphicsContext::currentContext();
    if (!context)
        return;
    plix::GraphicsState const saved(context);
    if (tone == IconTone::dimmed)
        context->setAlpha(context->alpha() * 0.55F);
    Canvas const canvas(square);
    switch (kind) {
    case EntryKind::folder:
        drawFolder(canvas, tone);
        break;
    case EntryKind::file:
    case EntryKind::brokenLink:
        drawPaper(canvas);
        break;
    case EntryKind::special:
        drawDevice(canvas);
        break;
    }
    if (isLink || kind == EntryKind::brokenLink)
        drawBadge(canvas, kind == EntryKind::brokenLink);
}

}
