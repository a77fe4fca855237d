#include <plix/platform/graphics/path_geometry.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace plix {

namespace {

constexpr int mostSegments = 500;

struct Vector {
    double x { 0 };
    double y { 0 };

    Vector() = default;
    Vector(double horizontal, double vertical)
        : x(horizontal)
        , y(vertical)
    {
    }
    Vector(Point point)
        : x(point.x)
        , y(point.y)
    {
    }
    Point point() const { return { static_cast<float>(x), static_cast<float>(y) }; }
    double length() const { return std::hypot(x, y); }
    friend Vector operator+(Vector a, Vector b) { return { a.x + b.x, a.y + b.y }; }
    friend Vector operator-(Vector a, Vector b) { return { a.x - b.x, a.y - b.y }; }
    friend Vector operator*(Vector a, double factor) { return { a.x * factor, a.y * factor }; }
};

struct Curve {
    Vector start;
    Vector control1;
    Vector control2;
    Vector end;

    Vector at(double t) const
    {
        double const u = 1 - t;
        return start * (u * u * u) + control1 * (3 * u * u * t) + control2 * (3 * u * t * t) + end * (t * t * t);
    }
    int segmentsFor(double flatness) const
    {
        double const bend = std::max((start - control1 * 2 + control2).length(), (control1 - control2 * 2 + end).length());
        // A chord of a curve whose second derivative is at most 6 bend deviates by at most 6 bend / 8 n^2.
        double const count = std::ceil(std::sqrt(0.75 * bend / std::max(flatness, 1e-4)));
        return count < mostSegments ? std::max(static_cast<int>(count), 1) : mostSegments;
    }
};

class BoundsBuilder {
public:
    void add(Vector point)
    {
        m_low = m_isEmpty ? point : Vector(std::min(m_low.x, point.x), std::min(m_low.y, point.y));
        m_high = m_isEmpty ? point : Vector(std::max(m_high.x, point.x), std::max(m_high.y, point.y));
        m_isEmpty = false;
    }
    void addExtremes(Curve const& curve)
    {
        addRoots(curve, curve.start.x, curve.control1.x, curve.control2.x, curve.end.x);
        addRoots(curve, curve.start.y, curve.control1.y, curve.control2.y, curve.end.y);
    }
    Rect rect() const
    {
        return { static_cast<float>(m_low.x), static_cast<float>(m_low.y), static_cast<float>(m_high.x - m_low.x),
            static_cast<float>(m_high.y - m_low.y) };
    }

private:
    void addRoots(Curve const& curve, double p0, double p1, double p2, double p3)
    {
        double const a = p3 - 3 * p2 + 3 * p1 - p0;
        double const b = 2 * (p2 - 2 * p1 + p0);
        double const c = p1 - p0;
        if (std::abs(a) < 1e-9) {
            if (std::abs(b) > 1e-9)
                addAt(curve, -c / b);
            return;
        }
        double const discriminant = b * b - 4 * a * c;
        if (discriminant < 0)
            return;
        addAt(curve, (-b + std::sqrt(discriminant)) / (2 * a));
        addAt(curve, (-b - std::sqrt(discriminant)) / (2 * a));
    }
    void addAt(Curve const& curve, double t)
    {
        if (t > 0 && t < 1)
            add(curve.at(t));
    }

    bool m_isEmpty { true };
    Vector m_low;
    Vector m_high;
};

double sweepOf(double start, double end, ArcDirection direction)
{
    double sweep = direction == ArcDirection::counterClockwise ? end - start : start - end;
    if (sweep < 0)
        sweep -= 360 * std::floor(sweep / 360);
    return std::min(sweep, 360.0) * (direction == ArcDirection::counterClockwise ? 1 : -1);
}

Vector onCircle(Point center, double radius, double radians)
{
    return Vector(center) + Vector(std::cos(radians), std::sin(radians)) * radius;
}

}

Point PathGeometry::currentPoint() const
{
    return m_elements.empty() ? Point {} : m_elements.back().endPoint();
}

Point PathGeometry::subpathStart() const
{
    for (auto at = m_elements.rbegin(); at != m_elements.rend(); ++at) {
        if (at->kind == NSMoveToBezierPathElement || at->kind == NSClosePathBezierPathElement)
            return at->points[0];
    }
    return {};
}

void PathGeometry::moveTo(Point point)
{
    m_elements.push_back({ NSMoveToBezierPathElement, { point } });
}

void PathGeometry::lineTo(Point point)
{
    m_elements.push_back({ hasCurrentPoint() ? NSLineToBezierPathElement : NSMoveToBezierPathElement, { point } });
}

void PathGeometry::curveTo(Point end, Point control1, Point control2)
{
    if (!hasCurrentPoint())
        moveTo(control1);
    m_elements.push_back({ NSCurveToBezierPathElement, { control1, control2, end } });
}

void PathGeometry::close()
{
    if (hasCurrentPoint())
        m_elements.push_back({ NSClosePathBezierPathElement, { subpathStart() } });
}

void PathGeometry::append(PathGeometry const& other)
{
    auto const copy = other.m_elements; // the other may be this one
    m_elements.insert(m_elements.end(), copy.begin(), copy.end());
}

void PathGeometry::appendRect(Rect rect)
{
    moveTo(rect.origin());
    lineTo({ rect.maxX(), rect.y });
    lineTo({ rect.maxX(), rect.maxY() });
    lineTo({ rect.x, rect.maxY() });
    close();
}

void PathGeometry::appendOval(Rect rect)
{
    PathGeometry circle;
    circle.appendArc({}, 1, 0, 360, ArcDirection::counterClockwise);
    circle.close();
    circle.transform({ rect.width * 0.5, 0, 0, rect.height * 0.5, rect.x + rect.width * 0.5, rect.y + rect.height * 0.5 });
    append(circle);
}

void PathGeometry::appendArc(Point center, float radius, float startAngle, float endAngle, ArcDirection direction)
{
    if (!std::isfinite(startAngle) || !std::isfinite(endAngle))
        return;
    double const sweep = sweepOf(startAngle, endAngle, direction);
    int const segments = std::max(static_cast<int>(std::ceil(std::abs(sweep) / 90 - 1e-6)), 1);
    double const step = sweep / segments * std::numbers::pi / 180;
    // The control points that let a cubic meet the circle in the middle of the arc too.
    double const handle = 4.0 / 3.0 * std::tan(step / 4) * radius;
    double angle = startAngle * std::numbers::pi / 180;
    lineTo(onCircle(center, radius, angle).point());
    for (int segment = 0; segment < segments; ++segment) {
        double const next = angle + step;
        Vector const from = onCircle(center, radius, angle);
        Vector const to = onCircle(center, radius, next);
        curveTo(to.point(), (from + Vector(-std::sin(angle), std::cos(angle)) * handle).point(),
            (to - Vector(-std::sin(next), std::cos(next)) * handle).point());
        angle = next;
    }
}

void PathGeometry::appendTangentArc(Point from, Point to, float radius)
{
    Vector const corner(from);
    Vector const incoming = Vector(currentPoint()) - corner;
    Vector const outgoing = Vector(to) - corner;
    double const lengths = incoming.length() * outgoing.length();
    double const cosine = lengths > 0 ? (incoming.x * outgoing.x + incoming.y * outgoing.y) / lengths : 1;
    if (!hasCurrentPoint() || !(radius > 0) || !(std::abs(cosine) < 1 - 1e-9)) {
        lineTo(from);
        return;
    }
    double const half = std::acos(cosine) / 2;
    double const reach = radius / std::tan(half);
    Vector const first = corner + incoming * (reach / incoming.length());
    Vector const last = corner + outgoing * (reach / outgoing.length());
    Vector const middle = incoming * (1 / incoming.length()) + outgoing * (1 / outgoing.length());
    Vector const center = corner + middle * (radius / std::sin(half) / middle.length());
    auto const degrees = [&](Vector point) {
        return static_cast<float>(std::atan2(point.y - center.y, point.x - center.x) * 180 / std::numbers::pi);
    };
    bool const turnsLeft = incoming.x * outgoing.y - incoming.y * outgoing.x < 0;
    appendArc(center.point(), radius, degrees(first), degrees(last),
        turnsLeft ? ArcDirection::counterClockwise : ArcDirection::clockwise);
}

void PathGeometry::setPoints(std::size_t element, std::array<Point, 3> const& points)
{
    auto& changed = m_elements.at(element);
    changed.points = changed.kind == NSCurveToBezierPathElement ? points : std::array<Point, 3> { points[0] };
}

void PathGeometry::transform(AffineTransform const& transform)
{
    for (auto& element : m_elements) {
        std::size_t const count = element.kind == NSCurveToBezierPathElement ? 3 : 1;
        for (std::size_t i = 0; i < count; ++i)
            element.points[i] = transform.apply(element.points[i]);
    }
}

PathGeometry PathGeometry::flattened(float flatness) const
{
    PathGeometry result;
    for (auto const& element : m_elements) {
        if (element.kind != NSCurveToBezierPathElement) {
            result.m_elements.push_back(element);
            continue;
        }
        Curve const curve { result.currentPoint(), element.points[0], element.points[1], element.points[2] };
        int const segments = curve.segmentsFor(flatness);
        for (int i = 1; i < segments; ++i)
            result.lineTo(curve.at(static_cast<double>(i) / segments).point());
        result.lineTo(element.points[2]);
    }
    return result;
}

PathGeometry PathGeometry::reversed() const
{
    PathGeometry result;
    auto const appendBackwards = [&](std::size_t first, std::size_t end, bool isClosed) {
        result.moveTo(m_elements[end - 1].endPoint());
        for (std::size_t i = end - 1; i > first; --i) {
            auto const target = m_elements[i - 1].endPoint();
            auto const& points = m_elements[i].points;
            if (m_elements[i].kind == NSCurveToBezierPathElement)
                result.curveTo(target, points[1], points[0]);
            else
                result.lineTo(target);
        }
        if (isClosed)
            result.close();
    };
    for (std::size_t first = 0; first < m_elements.size();) {
        std::size_t end = first + 1;
        while (end < m_elements.size() && m_elements[end].kind != NSMoveToBezierPathElement
            && m_elements[end].kind != NSClosePathBezierPathElement)
            ++end;
        bool const isClosed = end < m_elements.size() && m_elements[end].kind == NSClosePathBezierPathElement;
        appendBackwards(first, end, isClosed);
        first = end + (isClosed ? 1 : 0);
    }
    return result;
}

Rect PathGeometry::bounds() const
{
    BoundsBuilder builder;
    Point current;
    for (auto const& element : m_elements) {
        if (element.kind == NSCurveToBezierPathElement)
            builder.addExtremes({ current, element.points[0], element.points[1], element.points[2] });
        current = element.endPoint();
        builder.add(current);
    }
    return builder.rect();
}

Rect PathGeometry::controlPointBounds() const
{
    BoundsBuilder builder;
    for (auto const& element : m_elements) {
        if (element.kind == NSCurveToBezierPathElement) {
            builder.add(element.points[0]);
            builder.add(element.points[1]);
        }
        builder.add(element.endPoint());
    }
    return builder.rect();
}

bool PathGeometry::contains(Point point, NSWindingRule rule) const
{
    int winding = 0;
    auto const cross = [&](Vector from, Vector to) {
        if ((from.y <= point.y) == (to.y <= point.y))
            return;
        double const side = (to.x - from.x) * (point.y - from.y) - (point.x - from.x) * (to.y - from.y);
        if (to.y > from.y && side > 0)
            ++winding;
        else if (to.y < from.y && side < 0)
            --winding;
    };
    Point start;
    Point current;
    auto const outline = flattened(0.02F);
    for (auto const& element : outline.m_elements) {
        if (element.kind == NSMoveToBezierPathElement) {
            cross(current, start);
            start = element.points[0];
        } else {
            cross(current, element.points[0]);
        }
        current = element.points[0];
    }
    cross(current, start);
    return rule == NSEvenOddWindingRule ? winding % 2 != 0 : winding != 0;
}

}
