#pragma once

#include <plix/platform/base/Badge.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/affine_transform.h>
#include <plix/platform/graphics/compositing.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/pixel_buffer.h>

#include <cstddef>
#include <memory>
#include <span>

namespace plix {

class GraphicsState;
struct ContextInternals;

/// Where drawing goes: pixels, a transform from user space to them, a clip, and the state that painting follows. User space is in
/// points with y upwards from the lower left pixel corner (its base space), until a transform is concatenated. One context is
/// current. State is changed inside a GraphicsState, which puts everything back: colours, transform, clip, operation and all the
/// rest.
class PLIX_EXPORT NSGraphicsContext : public NSObject {
    PLIX_CLASS(NSGraphicsContext, NSObject);

public:
    NSGraphicsContext();
    ~NSGraphicsContext() override;

    /// Draws straight into these pixels, which must outlive the context. False (nil) where they are no usable bitmap.
    bool init(PixelBuffer const&);
    /// Draws into a representation's pixels; keeps it.
    static Ref<NSGraphicsContext> graphicsContextWithBitmapImageRep(Ref<NSBitmapImageRep> const&);

    /// Null outside drawing.
    static Ref<NSGraphicsContext> currentContext();
    static void setCurrentContext(Ref<NSGraphicsContext>);

    /// Device pixels a point of base space.
    float backingScale() const;
    /// The pixels drawn into, all drawing so far done; anything written there by hand must be followed by pixelsChanged().
    PixelBuffer pixels();
    void pixelsChanged();
    void flushGraphics();

    // Transform. Concatenated transforms act on user space before what is there already.
    void concat(AffineTransform const&);
    void translateBy(double dx, double dy) { concat(AffineTransform::translation(dx, dy)); }
    void scaleBy(double sx, double sy) { concat(AffineTransform::scaling(sx, sy)); }
    /// From user space to base space.
    AffineTransform currentTransform() const;
    void setTransform(AffineTransform const&);
    /// Whether what draws here takes y as growing downwards: text and mirrored images ask. Says nothing about the transform; who
    /// sets it concatenates a mirroring one too. Part of the state.
    bool isFlipped() const;
    void setFlipped(bool);
    /// The nearest coordinates whose edges lie on device pixels, each edge rounded by itself; a side that is not empty keeps at
    /// least one pixel. As it is under a transform that turns.
    Rect rectSnappedToPixels(Rect) const;

    // Clip: each call narrows it.
    void clipToRect(Rect);
    /// To what any of the rectangles covers; of none nothing is left.
    void clipToRects(std::span<Rect const>);
    void clipToPath(NSBezierPath const&);
    /// All of the pixels again.
    void resetClip();
    /// The smallest rectangle in user space around the clip; empty where everything is clipped away.
    Rect clipBounds() const;

    // The state.
    void setFillColor(NSColor const&);
    void setStrokeColor(NSColor const&);
    NSCompositingOperation compositingOperation() const;
    void setCompositingOperation(NSCompositingOperation);
    NSImageInterpolation imageInterpolation() const;
    void setImageInterpolation(NSImageInterpolation);
    bool shouldAntialias() const;
    void setShouldAntialias(bool);
    /// Kept for those who ask: text is always antialiased in greys.
    bool shouldSmoothFonts() const;
    void setShouldSmoothFonts(bool);
    /// Multiplies the alpha of all that is painted.
    float alpha() const;
    void setAlpha(float);
    /// Null for none; the values of this moment are kept.
    void setShadow(NSShadow const*);
    /// Where the origin of pattern colours lies in base space.
    Point patternPhase() const;
    void setPatternPhase(Point);
    bool isDrawingToScreen() const { return true; }

    /// The context as the operations named CGContext... take it.
    NSGraphicsContext* graphicsPort() { return this; }

    /// How many states are saved.
    std::size_t stateDepth() const;
    void saveGraphicsState(Badge<GraphicsState> const&);
    void restoreGraphicsState(Badge<GraphicsState> const&, std::size_t expectedDepth);

    /// For the other sources of this folder.
    ContextInternals& internals() const { return *m_internals; }

private:
    std::unique_ptr<ContextInternals> m_internals;
    Ref<NSBitmapImageRep> m_imageRep;
};

/// Saves a context's state for the scope that it lives in, and puts it back. Without argument: the current context's; nothing where
/// there is none. Debug builds check that the depth is what it was.
class PLIX_EXPORT GraphicsState {
public:
    GraphicsState();
    explicit GraphicsState(NSGraphicsContext&);
    explicit GraphicsState(Ref<NSGraphicsContext> const&);
    ~GraphicsState();
    GraphicsState(GraphicsState const&) = delete;
    GraphicsState& operator=(GraphicsState const&) = delete;

private:
    Ref<NSGraphicsContext> m_context;
    std::size_t m_depth { 0 };
};

/// Makes a context the current one for the scope that it lives in, with its state saved, and puts the one before back.
class PLIX_EXPORT CurrentContext {
public:
    explicit CurrentContext(Ref<NSGraphicsContext> const&);
    ~CurrentContext();
    CurrentContext(CurrentContext const&) = delete;
    CurrentContext& operator=(CurrentContext const&) = delete;

private:
    Ref<NSGraphicsContext> m_previous;
    GraphicsState m_state;
};

}
