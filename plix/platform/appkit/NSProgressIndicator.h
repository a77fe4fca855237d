#pragma once

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/graphics/control_size.h>

namespace plix {

class NSTimer;

/// A bar or a wheel.
enum NSProgressIndicatorStyle : int { NSProgressIndicatorBarStyle = 0, NSProgressIndicatorSpinningStyle = 1 };
/// Of bars, in points.
enum NSProgressIndicatorThickness : int {
    NSProgressIndicatorPreferredSmallThickness = 10,
    NSProgressIndicatorPreferredThickness = 14,
    NSProgressIndicatorPreferredLargeThickness = 18,
    NSProgressIndicatorPreferredAquaThickness = 12,
};

/// Shows how far something is, or that something goes on: a bar or a turning wheel. While it is not seen (hidden, scrolled away, in
/// a window that is not on screen) it does no work.
class PLIX_EXPORT NSProgressIndicator : public NSView {
    PLIX_CLASS(NSProgressIndicator, NSView);

public:
    NSProgressIndicator();
    ~NSProgressIndicator() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // Looks.
    NSProgressIndicatorStyle style() const { return m_style; }
    void setStyle(NSProgressIndicatorStyle);
    /// Whether how far it is is not known. True at first; a wheel never shows how far.
    bool isIndeterminate() const { return m_isIndeterminate; }
    virtual void setIndeterminate(bool);
    NSControlSize controlSize() const { return m_controlSize; }
    void setControlSize(NSControlSize);
    bool isBezeled() const { return m_isBezeled; }
    void setBezeled(bool);

    /// From 0 to 100 at first. A value outside shows as the end that is nearer.
    double minValue() const { return m_minValue; }
    void setMinValue(double);
    double maxValue() const { return m_maxValue; }
    void setMaxValue(double);
    double doubleValue() const { return m_value; }
    virtual void setDoubleValue(double);
    void incrementBy(double delta) { setDoubleValue(m_value + delta); }

    /// Moves as long as it is indeterminate and seen, until stopAnimation().
    virtual void startAnimation(NSObject* sender);
    virtual void stopAnimation(NSObject* sender);
    bool isAnimating() const { return m_isAnimating; }
    /// One step of the movement now.
    virtual void animate(NSObject* sender);
    /// Seconds between steps: 1/30 for a bar, 1/12 for a wheel unless set.
    double animationDelay() const;
    void setAnimationDelay(double seconds);
    /// Kept for hosts; the movement never holds up anything here.
    bool usesThreadedAnimation() const { return m_usesThreadedAnimation; }
    void setUsesThreadedAnimation(bool uses) { m_usesThreadedAnimation = uses; }
    /// Whether a wheel that does not turn is seen; a bar always is. True at first.
    bool isDisplayedWhenStopped() const { return m_isDisplayedWhenStopped; }
    void setDisplayedWhenStopped(bool);

    // NSView:
    /// As thick as the control size says; a wheel square, a bar as long as it is.
    void sizeToFit() override;
    bool isFlipped() const override { return true; }
    void drawRect(Rect) override;
    void viewWillMoveToWindow(NSWindow*) override;
    void viewDidHide() override;

private:
    void beginMoving();
    void endMoving();
    void step();
    bool isSeen() const;
    bool moves() const;

    Ref<NSTimer> m_timer;
    double m_minValue { 0 };
    double m_maxValue { 100 };
    double m_value { 0 };
    double m_animationDelay { 0 };
    double m_phase { 0 };
    NSProgressIndicatorStyle m_style { NSProgressIndicatorBarStyle };
    NSControlSize m_controlSize { NSRegularControlSize };
    bool m_isIndeterminate { true };
    bool m_isBezeled { true };
    bool m_isAnimating { false };
    bool m_usesThreadedAnimation { false };
    bool m_isDisplayedWhenStopped { true };
};

}
