#pragma once

#include <plix/platform/graphics/affine_transform.h>
#include <plix/platform/graphics/geometry.h>

#include <array>
#include <cstddef>
#include <vector>

namespace plix {

enum NSBezierPathElement : int {
    NSMoveToBezierPathElement = 0,
    NSLineToBezierPathElement = 1,
    NSCurveToBezierPathElement = 2,
    NSClosePathBezierPathElement = 3,
};

enum NSWindingRule : int { NSNonZeroWindingRule = 0, NSEvenOddWindingRule = 1 };

enum class ArcDirection { counterClockwise, clockwise };

/// The elements of a path as plain values, and the arithmetic on them.
class PLIX_EXPORT PathGeometry {
public:
    struct Element {
        NSBezierPathElement kind { NSMoveToBezierPathElement };
        /// The end point; of a curve both control points first, then the end point. Of a closing element where it leads.
        std::array<Point, 3> points {};

        Point endPoint() const { return points[kind == NSCurveToBezierPathElement ? 2 : 0]; }
        friend bool operator==(Element const&, Element const&) = default;
    };

    std::vector<Element> const& elements() const { return m_elements; }
    bool isEmpty() const { return m_elements.empty(); }
    /// The last end point; where nothing is there the zero point.
    Point currentPoint() const;

    void moveTo(Point);
    /// Without a current point, lines and curves begin where they end or at their first control point.
    void lineTo(Point);
    void curveTo(Point end, Point control1, Point control2);
    void close();
    void clear() { m_elements.clear(); }
    void append(PathGeometry const&);
    void appendRect(Rect);
    void appendOval(Rect);
    /// Angles in degrees. A line joins the arc to the current point, where there is one; else the arc begins a subpath.
    /// Counter-clockwise the end angle is brought above the start by whole turns, clockwise below it.
    void appendArc(Point center, float radius, float startAngle, float endAngle, ArcDirection);
    /// A line to where the circle of that radius touches the line from the current point to `from`, then the arc to where it
    /// touches the line from `from` to `to`. A line to `from` where the three lie on a line.
    void appendTangentArc(Point from, Point to, float radius);
    void setPoints(std::size_t element, std::array<Point, 3> const& points);

    void transform(AffineTransform const&);
    /// Curves as lines that deviate by at most `flatness`.
    PathGeometry flattened(float flatness) const;
    /// The same outline run the other way.
    PathGeometry reversed() const;
    /// Around the outline itself; the zero rectangle of an empty path.
    Rect bounds() const;
    Rect controlPointBounds() const;
    /// Inside the filled path; open subpaths count as closed. Points exactly on an edge may fall on either side.
    bool contains(Point, NSWindingRule) const;

    friend bool operator==(PathGeometry const&, PathGeometry const&) = default;

private:
    Point subpathStart() const;
    bool hasCurrentPoint() const { return !m_elements.empty(); }

    std::vector<Element> m_elements;
};

}
