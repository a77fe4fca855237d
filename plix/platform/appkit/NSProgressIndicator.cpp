#include <plix/platform/appkit/NSProgressIndicator.h>

#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/progress_layout.h>
#include <plix/platform/appkit/view_timers.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr double barDelay = 1.0 / 30;
constexpr double wheelDelay = 1.0 / progressSpokes;

float thicknessOf(NSControlSize size)
{
    return size == NSRegularControlSize ? 14 : size == NSSmallControlSize ? 10 : 8;
}

float wheelSizeOf(NSControlSize size)
{
    return size == NSRegularControlSize ? 32 : size == NSSmallControlSize ? 16 : 10;
}

}

PLIX_DESCRIBE(NSProgressIndicator)
{
    description.action("startAnimation:", &NSProgressIndicator::startAnimation)
        .action("stopAnimation:", &NSProgressIndicator::stopAnimation)
        .action("animate:", &NSProgressIndicator::animate);
}

NSProgressIndicator::NSProgressIndicator() = default;

NSProgressIndicator::~NSProgressIndicator()
{
    endMoving();
}

bool NSProgressIndicator::init()
{
    return NSProgressIndicator::init(Rect {});
}

bool NSProgressIndicator::init(Rect frame)
{
    return Base::init(frame);
}

bool NSProgressIndicator::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    coder.read("minValue", [&](ObjectValue const& value) { m_minValue = value.floatValue(); });
    coder.read("maxValue", [&](ObjectValue const& value) { m_maxValue = value.floatValue(); });
    coder.read("doubleValue", [&](ObjectValue const& value) { m_value = value.floatValue(); });
    coder.read("style", [&](ObjectValue const& value) { m_style = static_cast<NSProgressIndicatorStyle>(value.intValue()); });
    coder.read("controlSize", [&](ObjectValue const& value) { m_controlSize = static_cast<NSControlSize>(value.intValue()); });
    coder.read("indeterminate", [&](ObjectValue const& value) { m_isIndeterminate = value.boolValue(); });
    coder.read("bezeled", [&](ObjectValue const& value) { m_isBezeled = value.boolValue(); });
    coder.read("displayedWhenStopped", [&](ObjectValue const& value) { m_isDisplayedWhenStopped = value.boolValue(); });
    return true;
}

void NSProgressIndicator::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeDouble(m_minValue, "minValue");
    coder.encodeDouble(m_maxValue, "maxValue");
    coder.encodeDouble(m_value, "doubleValue");
    coder.encodeInt(m_style, "style");
    coder.encodeInt(m_controlSize, "controlSize");
    coder.encodeBool(m_isIndeterminate, "indeterminate");
    coder.encodeBool(m_isBezeled, "bezeled");
    coder.encodeBool(m_isDisplayedWhenStopped, "displayedWhenStopped");
}

void NSProgressIndicator::setStyle(NSProgressIndicatorStyle style)
{
    if (m_style == style)
        return;
    m_style = style;
    endMoving();
    setNeedsDisplay(true);
}

void NSProgressIndicator::setIndeterminate(bool isIndeterminate)
{
    if (m_isIndeterminate == isIndeterminate)
        return;
    m_isIndeterminate = isIndeterminate;
    setNeedsDisplay(true);
}

void NSProgressIndicator::setControlSize(NSControlSize size)
{
    m_controlSize = size;
    setNeedsDisplay(true);
}

void NSProgressIndicator::setBezeled(bool isBezeled)
{
    m_isBezeled = isBezeled;
    setNeedsDisplay(true);
}

void NSProgressIndicator::setMinValue(double value)
{
    m_minValue = value;
    setNeedsDisplay(true);
}

void NSProgressIndicator::setMaxValue(double value)
{
    m_maxValue = value;
    setNeedsDisplay(true);
}

// Hosts tell each byte that has come; only what can be seen is drawn.
void NSProgressIndicator::setDoubleValue(double value)
{
    if (m_value == value)
        return;
    auto const doneBefore = progressDoneRect(bounds(), progressFraction(m_value, m_minValue, m_maxValue));
    m_value = value;
    auto const doneNow = progressDoneRect(bounds(), progressFraction(m_value, m_minValue, m_maxValue));
    if (m_style == NSProgressIndicatorBarStyle && !m_isIndeterminate && doneBefore != doneNow)
        setNeedsDisplay(true);
}

// MARK: movement

double NSProgressIndicator::animationDelay() const
{
    if (m_animationDelay > 0)
        return m_animationDelay;
    return m_style == NSProgressIndicatorBarStyle ? barDelay : wheelDelay;
}

void NSProgressIndicator::setAnimationDelay(double seconds)
{
    m_animationDelay = std::isfinite(seconds) ? std::max(0.0, seconds) : 0;
    if (m_timer) {
        endMoving();
        beginMoving();
    }
}

bool NSProgressIndicator::moves() const
{
    return m_isAnimating && (m_isIndeterminate || m_style == NSProgressIndicatorSpinningStyle);
}

bool NSProgressIndicator::isSeen() const
{
    return canDraw() && !visibleRect().isEmpty();
}

void NSProgressIndicator::startAnimation(NSObject*)
{
    if (m_isAnimating)
        return;
    m_isAnimating = true;
    setNeedsDisplay(true);
    beginMoving();
}

void NSProgressIndicator::stopAnimation(NSObject*)
{
    if (!m_isAnimating)
        return;
    m_isAnimating = false;
    endMoving();
    setNeedsDisplay(true);
}

void NSProgressIndicator::animate(NSObject*)
{
    m_phase += animationDelay();
    setNeedsDisplay(true);
}

void NSProgressIndicator::beginMoving()
{
    if (m_timer || !moves() || !isSeen())
        return;
    // Not held by its timer.
    m_timer = NSTimer::timerWithTimeInterval(
        animationDelay(), [this](NSTimer&) { step(); }, true);
    NSRunLoop::currentRunLoop().addTimer(*m_timer, NSRunLoopCommonModes);
    noteViewTimer(*this, *m_timer);
}

void NSProgressIndicator::endMoving()
{
    if (!m_timer)
        return;
    m_timer->invalidate();
    m_timer = nullptr;
}

void NSProgressIndicator::step()
{
    if (moves() && isSeen())
        animate(nullptr);
    else
        endMoving(); // begins again when it is drawn again
}

void NSProgressIndicator::viewWillMoveToWindow(NSWindow* window)
{
    endMoving();
    Base::viewWillMoveToWindow(window);
}

void NSProgressIndicator::viewDidHide()
{
    endMoving();
    Base::viewDidHide();
}

void NSProgressIndicator::setDisplayedWhenStopped(bool isDisplayed)
{
    m_isDisplayedWhenStopped = isDisplayed;
    setNeedsDisplay(true);
}

// MARK: looks

void NSProgressIndicator::sizeToFit()
{
    float const wheel = wheelSizeOf(m_controlSize);
    setFrameSize(
        m_style == NSProgressIndicatorSpinningStyle ? Size { wheel, wheel } : Size { frame().width, thicknessOf(m_controlSize) });
}

void NSProgressIndicator::drawRect(Rect)
{
    beginMoving();
    auto const& theme = Theme::current();
    auto const look = Theme::lookOfView(*this);
    if (m_style == NSProgressIndicatorSpinningStyle) {
        if (!m_isAnimating && !m_isDisplayedWhenStopped)
            return;
        float const side = std::min({ bounds().width, bounds().height, wheelSizeOf(m_controlSize) });
        Rect const wheel { std::floor((bounds().width - side) / 2), std::floor((bounds().height - side) / 2), side, side };
        theme.drawProgressWheel(wheel, m_phase, m_isAnimating, look);
        return;
    }
    float const thickness = std::min(bounds().height, thicknessOf(m_controlSize));
    Rect const bar { 0, std::floor((bounds().height - thickness) / 2), bounds().width, thickness };
    theme.drawProgressSlot(bar, m_isBezeled);
    auto const inside = m_isBezeled ? NSInsetRect(bar, 1, 1) : bar;
    if (!m_isIndeterminate)
        theme.drawProgressBar(progressDoneRect(inside, progressFraction(m_value, m_minValue, m_maxValue)), look);
    else if (m_isAnimating)
        theme.drawProgressBar(progressMovingRect(inside, m_phase), look);
}

}
