#include "icons.h"

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <initializer_list>

namespace browser {

using plix::NSBezierPath;
using plix::Point;
using plix::Rect;
using plix::Ref;
using plix::Theme;
using plix::ThemeRole;

namespace {

// Icons are designed on a square of 16 and scaled from there. Edges lie on halves, where a line of 1 covers whole pixels.
class Canvas {
public:
    explicit Canvas(Rect square)
        : m_square(square)
        , m_scale(square.width / 16)
    {
    }

    Rect rect(float x, float y, float width, float height) const
    {
        return { m_square.x + x * m_scale, m_square.y + y * m_scale, width * m_scale, height * m_scale };
    }
    Point point(float x, float y) const { return { m_square.x + x * m_scale, m_square.y + y * m_scale }; }
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
    Rect m_square;
    float m_scale;
};

void paint(NSBezierPath& path, ThemeRole fill, ThemeRole edge, float lineWidth)
{
    auto const& theme = Theme::current();
    theme.color(fill)->setFill();
    path.fill();
    theme.color(edge)->setStroke();
    path.setLineJoinStyle(plix::NSRoundLineJoinStyle);
    path.setLineWidth(lineWidth);
    path.stroke();
}

void drawFolder(Canvas const& canvas)
{
    auto const back = canvas.polygon({ { 1.5F, 13.5F }, { 1.5F, 3.5F }, { 2.5F, 2.5F }, { 6, 2.5F }, { 7.5F, 4.5F },
        { 13.5F, 4.5F }, { 14.5F, 5.5F }, { 14.5F, 13.5F } });
    paint(*back, ThemeRole::iconFolderEdge, ThemeRole::iconFolderEdge, canvas.length(1));
    auto const front = Theme::roundedRect(canvas.rect(1.5F, 6.5F, 13, 7), canvas.length(1));
    paint(*front, ThemeRole::iconFolder, ThemeRole::iconFolderEdge, canvas.length(1));
}

void drawPaper(Canvas const& canvas)
{
    auto const sheet = canvas.polygon({ { 3.5F, 1.5F }, { 9.5F, 1.5F }, { 12.5F, 4.5F }, { 12.5F, 14.5F }, { 3.5F, 14.5F } });
    paint(*sheet, ThemeRole::iconPaper, ThemeRole::iconPaperEdge, canvas.length(1));
    auto const corner = canvas.polygon({ { 9.5F, 1.5F }, { 9.5F, 4.5F }, { 12.5F, 4.5F } });
    paint(*corner, ThemeRole::iconPaper, ThemeRole::iconPaperEdge, canvas.length(1));
    for (float line : { 7.F, 9.F, 11.F })
        Theme::current().fill(
            canvas.rect(5, line, 6, 1), *Theme::current().color(ThemeRole::iconPaperEdge)->colorWithAlphaComponent(0.45F));
}

void drawCog(Canvas const& canvas)
{
    auto const box = Theme::roundedRect(canvas.rect(2.5F, 2.5F, 11, 11), canvas.length(2));
    paint(*box, ThemeRole::iconPaper, ThemeRole::iconPaperEdge, canvas.length(1));
    auto const hole = NSBezierPath::bezierPathWithOvalInRect(canvas.rect(5.5F, 5.5F, 5, 5));
    paint(*hole, ThemeRole::iconPaper, ThemeRole::iconPaperEdge, canvas.length(1));
}

// At the lower left: an arrow for a link, a cross for one that leads nowhere.
void drawBadge(Canvas const& canvas, bool isBroken)
{
    auto const& theme = Theme::current();
    auto const ground = NSBezierPath::bezierPathWithOvalInRect(canvas.rect(0, 8, 8, 8));
    auto const color = theme.color(isBroken ? ThemeRole::iconBadge : ThemeRole::iconFolderEdge);
    color->setFill();
    ground->fill();
    auto const sign = NSBezierPath::bezierPath();
    auto line = [&](std::initializer_list<Point> points) {
        bool isFirst = true;
        for (Point const point : points) {
            Point const there = canvas.point(point.x, point.y);
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
        drawFolder(canvas);
        break;
    case EntryKind::file:
    case EntryKind::brokenLink:
        drawPaper(canvas);
        break;
    case EntryKind::special:
        drawCog(canvas);
        break;
    }
    if (isLink || kind == EntryKind::brokenLink)
        drawBadge(canvas, kind == EntryKind::brokenLink);
}

}
