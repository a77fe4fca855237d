#include <plix/platform/graphics/NSBezierPath.h>

#include <plix/platform/base/exceptions.h>
#include <plix/platform/graphics/NSAffineTransform.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/context_internals.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

NSBezierPath::Defaults s_defaults;

struct StrokeStyle {
    NSBezierPath::Defaults const& style;
    std::vector<float> const& dash;
    float dashPhase;
};

void setDash(cairo_t* cairo, std::vector<float> const& dash, float phase)
{
    constexpr std::size_t most = 16;
    double lengths[most];
    auto const count = std::min(dash.size(), most);
    bool const isUsable = std::all_of(dash.begin(), dash.end(), [](float length) { return length >= 0; })
        && std::any_of(dash.begin(), dash.end(), [](float length) { return length > 0; });
    if (!isUsable) {
        cairo_set_dash(cairo, nullptr, 0, 0);
        return;
    }
    std::copy_n(dash.begin(), count, lengths);
    cairo_set_dash(cairo, lengths, static_cast<int>(count), phase);
}

cairo_line_join_t cairoJoin(NSLineJoinStyle join)
{
    return join == NSRoundLineJoinStyle ? CAIRO_LINE_JOIN_ROUND
        : join == NSBevelLineJoinStyle  ? CAIRO_LINE_JOIN_BEVEL
                                        : CAIRO_LINE_JOIN_MITER;
}

cairo_line_cap_t cairoCap(NSLineCapStyle cap)
{
    return cap == NSRoundLineCapStyle ? CAIRO_LINE_CAP_ROUND
        : cap == NSSquareLineCapStyle ? CAIRO_LINE_CAP_SQUARE
                                      : CAIRO_LINE_CAP_BUTT;
}

double thinnestWidth(cairo_t* cairo)
{
    double x = 1;
    double y = 0;
    cairo_device_to_user_distance(cairo, &x, &y);
    return std::hypot(x, y);
}

void setStyle(cairo_t* cairo, StrokeStyle const& stroke)
{
    cairo_set_line_width(cairo, stroke.style.lineWidth > 0 ? stroke.style.lineWidth : thinnestWidth(cairo));
    cairo_set_line_join(cairo, cairoJoin(stroke.style.lineJoinStyle));
    cairo_set_line_cap(cairo, cairoCap(stroke.style.lineCapStyle));
    cairo_set_miter_limit(cairo, stroke.style.miterLimit);
    setDash(cairo, stroke.dash, stroke.dashPhase);
}

void strokeGeometry(PathGeometry const& geometry, StrokeStyle const& stroke)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context || geometry.isEmpty())
        return;
    auto& internals = context->internals();
    float const reach = (stroke.style.lineWidth / 2 + 1) * std::max(stroke.style.miterLimit, 2.0F);
    auto const source = [&](cairo_t* cairo) { setSource(cairo, internals, internals.state().stroke); };
    auto const shape = [&](cairo_t* cairo) {
        cairo_new_path(cairo);
        addPath(cairo, geometry);
        setStyle(cairo, stroke);
        cairo_stroke(cairo);
    };
    paintComposited(
        internals, context->compositingOperation(), { NSInsetRect(geometry.controlPointBounds(), -reach, -reach), source, shape });
}

void fillGeometry(PathGeometry const& geometry, NSWindingRule rule)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context || geometry.isEmpty())
        return;
    auto& internals = context->internals();
    auto const source = [&](cairo_t* cairo) { setSource(cairo, internals, internals.state().fill); };
    auto const shape = [&](cairo_t* cairo) {
        cairo_new_path(cairo);
        addPath(cairo, geometry);
        cairo_set_fill_rule(cairo, rule == NSEvenOddWindingRule ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
        cairo_fill(cairo);
    };
    paintComposited(internals, context->compositingOperation(), { geometry.controlPointBounds(), source, shape });
}

std::size_t checkedIndex(PathGeometry const& geometry, long index, char const* operation)
{
    auto const count = static_cast<long>(geometry.elements().size());
    if (index < 0 || index >= count)
        raiseRangeException(operation, index, count);
    return static_cast<std::size_t>(index);
}

Point sum(Point a, Point b)
{
    return { a.x + b.x, a.y + b.y };
}

}

PLIX_DESCRIBE(NSBezierPath)
{
}

bool NSBezierPath::init()
{
    m_style = s_defaults;
    return true;
}

bool NSBezierPath::init(PathGeometry geometry)
{
    m_geometry = std::move(geometry);
    return NSBezierPath::init();
}

Ref<NSBezierPath> NSBezierPath::bezierPath()
{
    return make<NSBezierPath>();
}

Ref<NSBezierPath> NSBezierPath::bezierPathWithRect(Rect rect)
{
    auto path = make<NSBezierPath>();
    path->appendBezierPathWithRect(rect);
    return path;
}

Ref<NSBezierPath> NSBezierPath::bezierPathWithOvalInRect(Rect rect)
{
    auto path = make<NSBezierPath>();
    path->appendBezierPathWithOvalInRect(rect);
    return path;
}

void NSBezierPath::fillRect(Rect rect)
{
    PathGeometry geometry;
    geometry.appendRect(rect);
    fillGeometry(geometry, s_defaults.windingRule);
}

void NSBezierPath::strokeRect(Rect rect)
{
    PathGeometry geometry;
    geometry.appendRect(rect);
    strokeGeometry(geometry, { s_defaults, {}, 0 });
}

void NSBezierPath::clipRect(Rect rect)
{
    if (auto const context = NSGraphicsContext::currentContext())
        context->clipToRect(rect);
}

void NSBezierPath::strokeLineFromPoint(Point from, Point to)
{
    PathGeometry geometry;
    geometry.moveTo(from);
    geometry.lineTo(to);
    strokeGeometry(geometry, { s_defaults, {}, 0 });
}

float NSBezierPath::defaultLineWidth()
{
    return s_defaults.lineWidth;
}

void NSBezierPath::setDefaultLineWidth(float width)
{
    s_defaults.lineWidth = width > 0 ? width : 0;
}

float NSBezierPath::defaultMiterLimit()
{
    return s_defaults.miterLimit;
}

void NSBezierPath::setDefaultMiterLimit(float limit)
{
    s_defaults.miterLimit = limit;
}

float NSBezierPath::defaultFlatness()
{
    return s_defaults.flatness;
}

void NSBezierPath::setDefaultFlatness(float flatness)
{
    s_defaults.flatness = flatness;
}

NSLineCapStyle NSBezierPath::defaultLineCapStyle()
{
    return s_defaults.lineCapStyle;
}

void NSBezierPath::setDefaultLineCapStyle(NSLineCapStyle style)
{
    s_defaults.lineCapStyle = style;
}

NSLineJoinStyle NSBezierPath::defaultLineJoinStyle()
{
    return s_defaults.lineJoinStyle;
}

void NSBezierPath::setDefaultLineJoinStyle(NSLineJoinStyle style)
{
    s_defaults.lineJoinStyle = style;
}

NSWindingRule NSBezierPath::defaultWindingRule()
{
    return s_defaults.windingRule;
}

void NSBezierPath::setDefaultWindingRule(NSWindingRule rule)
{
    s_defaults.windingRule = rule;
}

void NSBezierPath::relativeMoveToPoint(Point delta)
{
    moveToPoint(sum(currentPoint(), delta));
}

void NSBezierPath::relativeLineToPoint(Point delta)
{
    lineToPoint(sum(currentPoint(), delta));
}

void NSBezierPath::relativeCurveToPoint(Point end, Point controlPoint1, Point controlPoint2)
{
    auto const from = currentPoint();
    curveToPoint(sum(from, end), sum(from, controlPoint1), sum(from, controlPoint2));
}

void NSBezierPath::appendBezierPath(NSBezierPath const& other)
{
    m_geometry.append(other.m_geometry);
}

void NSBezierPath::appendBezierPathWithPoints(std::span<Point const> points)
{
    for (auto const& point : points)
        lineToPoint(point);
}

void NSBezierPath::appendBezierPathWithArcWithCenter(Point center, float radius, float startAngle, float endAngle)
{
    m_geometry.appendArc(center, radius, startAngle, endAngle, ArcDirection::counterClockwise);
}

void NSBezierPath::appendBezierPathWithArcWithCenter(Point center, float radius, float startAngle, float endAngle, bool clockwise)
{
    m_geometry.appendArc(
        center, radius, startAngle, endAngle, clockwise ? ArcDirection::clockwise : ArcDirection::counterClockwise);
}

void NSBezierPath::setLineDash(std::span<float const> pattern, float phase)
{
    m_dash.assign(pattern.begin(), pattern.end());
    m_dashPhase = phase;
}

void NSBezierPath::stroke() const
{
    strokeGeometry(m_geometry, { m_style, m_dash, m_dashPhase });
}

void NSBezierPath::fill() const
{
    fillGeometry(m_geometry, m_style.windingRule);
}

void NSBezierPath::addClip() const
{
    if (auto const context = NSGraphicsContext::currentContext())
        context->clipToPath(*this);
}

void NSBezierPath::setClip() const
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    context->resetClip();
    context->clipToPath(*this);
}

NSBezierPathElement NSBezierPath::elementAtIndex(long index) const
{
    return m_geometry.elements()[checkedIndex(m_geometry, index, "elementAtIndex")].kind;
}

NSBezierPathElement NSBezierPath::elementAtIndex(long index, std::array<Point, 3>& points) const
{
    auto const& element = m_geometry.elements()[checkedIndex(m_geometry, index, "elementAtIndex")];
    points = element.points;
    return element.kind;
}

void NSBezierPath::setAssociatedPoints(std::array<Point, 3> const& points, long index)
{
    m_geometry.setPoints(checkedIndex(m_geometry, index, "setAssociatedPoints"), points);
}

void NSBezierPath::transformUsingAffineTransform(NSAffineTransform const& transform)
{
    m_geometry.transform(transform.transformStruct());
}

Ref<NSBezierPath> NSBezierPath::bezierPathByFlatteningPath() const
{
    return withGeometry(m_geometry.flattened(m_style.flatness));
}

Ref<NSBezierPath> NSBezierPath::bezierPathByReversingPath() const
{
    return withGeometry(m_geometry.reversed());
}

Ref<NSBezierPath> NSBezierPath::withGeometry(PathGeometry geometry) const
{
    auto path = copy();
    path->m_geometry = std::move(geometry);
    return path;
}

void NSBezierPath::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& path = static_cast<NSBezierPath&>(fresh);
    path.m_geometry = m_geometry;
    path.m_style = m_style;
    path.m_dash = m_dash;
    path.m_dashPhase = m_dashPhase;
}

}
