#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/path_geometry.h>

#include <span>
#include <vector>

namespace plix {

/// How lines end.
enum NSLineCapStyle : int { NSButtLineCapStyle = 0, NSRoundLineCapStyle = 1, NSSquareLineCapStyle = 2 };
/// How lines meet.
enum NSLineJoinStyle : int { NSMiterLineJoinStyle = 0, NSRoundLineJoinStyle = 1, NSBevelLineJoinStyle = 2 };

/// Lines and curves in user space, with how they are stroked and filled. Drawing goes into the current context with its colours;
/// nothing without one.
class PLIX_EXPORT NSBezierPath : public NSObject {
    PLIX_CLASS(NSBezierPath, NSObject);

public:
    /// What a new path holds.
    struct Defaults {
        float lineWidth { 1 };
        float miterLimit { 10 };
        float flatness { 0.6F };
        NSLineCapStyle lineCapStyle { NSButtLineCapStyle };
        NSLineJoinStyle lineJoinStyle { NSMiterLineJoinStyle };
        NSWindingRule windingRule { NSNonZeroWindingRule };
        friend bool operator==(Defaults const&, Defaults const&) = default;
    };

    // New paths: empty, or of a shape.
    static Ref<NSBezierPath> bezierPath();
    static Ref<NSBezierPath> bezierPathWithRect(Rect);
    static Ref<NSBezierPath> bezierPathWithOvalInRect(Rect);
    bool init();
    bool init(PathGeometry);

    // Drawing at once, with the defaults.
    static void fillRect(Rect);
    static void strokeRect(Rect);
    static void clipRect(Rect);
    static void strokeLineFromPoint(Point from, Point to);

    // Of the process, for paths made later and for drawing at once.
    static float defaultLineWidth();
    static void setDefaultLineWidth(float);
    static float defaultMiterLimit();
    static void setDefaultMiterLimit(float);
    static float defaultFlatness();
    static void setDefaultFlatness(float);
    static NSLineCapStyle defaultLineCapStyle();
    static void setDefaultLineCapStyle(NSLineCapStyle);
    static NSLineJoinStyle defaultLineJoinStyle();
    static void setDefaultLineJoinStyle(NSLineJoinStyle);
    static NSWindingRule defaultWindingRule();
    static void setDefaultWindingRule(NSWindingRule);

    // Adding to the path; a line or a curve needs a current point.
    void moveToPoint(Point point) { m_geometry.moveTo(point); }
    void lineToPoint(Point point) { m_geometry.lineTo(point); }
    void curveToPoint(Point end, Point controlPoint1, Point controlPoint2)
    {
        m_geometry.curveTo(end, controlPoint1, controlPoint2);
    }
    // Ending a part, and beginning anew.
    void closePath() { m_geometry.close(); }
    void removeAllPoints() { m_geometry.clear(); }
    // From the current point.
    void relativeMoveToPoint(Point);
    void relativeLineToPoint(Point);
    void relativeCurveToPoint(Point end, Point controlPoint1, Point controlPoint2);

    // Adding whole shapes.
    void appendBezierPath(NSBezierPath const&);
    void appendBezierPathWithRect(Rect rect) { m_geometry.appendRect(rect); }
    void appendBezierPathWithOvalInRect(Rect rect) { m_geometry.appendOval(rect); }
    void appendBezierPathWithPoints(std::span<Point const>);
    /// Degrees, counter-clockwise. Joined to the current point by a line.
    void appendBezierPathWithArcWithCenter(Point center, float radius, float startAngle, float endAngle);
    void appendBezierPathWithArcWithCenter(Point center, float radius, float startAngle, float endAngle, bool clockwise);
    void appendBezierPathWithArcFromPoint(Point from, Point to, float radius) { m_geometry.appendTangentArc(from, to, radius); }

    float lineWidth() const { return m_style.lineWidth; }
    /// 0: the thinnest line that can be drawn. Below 0 counts as 0.
    void setLineWidth(float width) { m_style.lineWidth = width > 0 ? width : 0; }
    NSLineCapStyle lineCapStyle() const { return m_style.lineCapStyle; }
    void setLineCapStyle(NSLineCapStyle style) { m_style.lineCapStyle = style; }
    NSLineJoinStyle lineJoinStyle() const { return m_style.lineJoinStyle; }
    void setLineJoinStyle(NSLineJoinStyle style) { m_style.lineJoinStyle = style; }
    NSWindingRule windingRule() const { return m_style.windingRule; }
    void setWindingRule(NSWindingRule rule) { m_style.windingRule = rule; }
    float miterLimit() const { return m_style.miterLimit; }
    void setMiterLimit(float limit) { m_style.miterLimit = limit; }
    float flatness() const { return m_style.flatness; }
    void setFlatness(float flatness) { m_style.flatness = flatness; }
    /// Lengths of dashes and gaps in turn, beginning `phase` into them; none for a solid line. A pattern with a length below 0 or
    /// that is all 0 counts as solid.
    void setLineDash(std::span<float const> pattern, float phase);
    std::vector<float> const& lineDash() const { return m_dash; }
    float lineDashPhase() const { return m_dashPhase; }

    // Drawing, with the current context's colours.
    void stroke() const;
    void fill() const;
    /// Narrows the current context's clip. Use inside a GraphicsState.
    void addClip() const;
    /// Replaces the clip.
    void setClip() const;

    // What it is made of, and where it is.
    bool isEmpty() const { return m_geometry.isEmpty(); }
    Point currentPoint() const { return m_geometry.currentPoint(); }
    Rect bounds() const { return m_geometry.bounds(); }
    Rect controlPointBounds() const { return m_geometry.controlPointBounds(); }
    bool containsPoint(Point point) const { return m_geometry.contains(point, m_style.windingRule); }
    long elementCount() const { return static_cast<long>(m_geometry.elements().size()); }
    /// Raises NSRangeException outside 0 ..< elementCount().
    NSBezierPathElement elementAtIndex(long index) const;
    NSBezierPathElement elementAtIndex(long index, std::array<Point, 3>& points) const;
    void setAssociatedPoints(std::array<Point, 3> const& points, long index);
    PathGeometry const& geometry() const { return m_geometry; }

    // Changing it, and new paths made of it.
    void transformUsingAffineTransform(NSAffineTransform const&);
    Ref<NSBezierPath> bezierPathByFlatteningPath() const;
    Ref<NSBezierPath> bezierPathByReversingPath() const;

private:
    Ref<NSBezierPath> withGeometry(PathGeometry) const;
    void copyStateTo(NSObject& fresh) const override;

    PathGeometry m_geometry;
    Defaults m_style;
    std::vector<float> m_dash;
    float m_dashPhase { 0 };
};

}
