#pragma once

#include <plix/platform/appkit/NSActionCell.h>

#include <memory>
#include <string>
#include <vector>

namespace plix {

/// What a click does to the selection of segments.
enum NSSegmentSwitchTracking : int {
    NSSegmentSwitchTrackingSelectOne = 0,
    NSSegmentSwitchTrackingSelectAny = 1,
    NSSegmentSwitchTrackingMomentary = 2,
};

/// Buttons side by side, of which one, any number or none stays selected. Indexes outside raise NSRangeException.
class PLIX_EXPORT NSSegmentedCell : public NSActionCell {
    PLIX_CLASS(NSSegmentedCell, NSActionCell);

public:
    NSSegmentedCell();
    ~NSSegmentedCell() override;
    bool init();
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    long segmentCount() const;
    /// From 0 to 2048.
    virtual void setSegmentCount(long);
    /// The one that was selected last, or -1.
    long selectedSegment() const { return m_selected; }
    /// -1 selects none.
    virtual void setSelectedSegment(long);
    /// False where none has the tag; the selection stays then.
    virtual bool selectSegmentWithTag(long tag);
    NSSegmentSwitchTracking trackingMode() const { return m_trackingMode; }
    void setTrackingMode(NSSegmentSwitchTracking mode) { m_trackingMode = mode; }

    // Of one segment.
    /// 0 for as wide as its content.
    float widthForSegment(long) const;
    void setWidth(float, long forSegment);
    NSImage* imageForSegment(long) const;
    void setImage(Ref<NSImage> const&, long forSegment);
    std::string const& labelForSegment(long) const;
    void setLabel(std::string_view, long forSegment);
    bool isSelectedForSegment(long) const;
    void setSelected(bool, long forSegment);
    bool isEnabledForSegment(long) const;
    void setEnabled(bool, long forSegment);
    /// Shown when the segment is held down, at once where selecting it means nothing.
    NSMenu* menuForSegment(long) const;
    void setMenu(Ref<NSMenu> const&, long forSegment);
    std::string const& toolTipForSegment(long) const;
    void setToolTip(std::string_view, long forSegment);
    long tagForSegment(long) const;
    void setTag(long tag, long forSegment);

    // Keys: the segment that the space bar presses.
    long keySegment() const { return m_keySegment; }
    void makeNextSegmentKey();
    void makePreviousSegmentKey();
    void pressKeySegment();

    /// In the control view's coordinates, when the cell has that frame.
    Rect rectForSegment(long, Rect frame) const;
    /// -1 outside.
    long segmentAtPoint(Point, Rect frame) const;
    virtual void drawSegment(int segment, Rect frame, NSView& controlView);

    // NSCell:
    using NSActionCell::setEnabled;
    using NSActionCell::setImage;
    using NSActionCell::setTag;
    Size cellSizeForBounds(Rect bounds) const override;
    void drawWithFrame(Rect frame, NSView& controlView) override;
    void drawInteriorWithFrame(Rect frame, NSView& controlView) override;
    bool trackMouse(NSEvent&, Rect frame, NSView& controlView, bool untilMouseUp) override;
    int intValue() const override { return static_cast<int>(m_selected); }
    void setIntValue(int value) override { setSelectedSegment(value); }
    static bool prefersTrackingUntilMouseUp() { return true; }
    bool ownPrefersTrackingUntilMouseUp() const override { return prefersTrackingUntilMouseUp(); }

protected:
    void copyStateTo(NSObject& fresh) const override;

private:
    struct Segment;

    Segment& segment(long index);
    Segment const& segment(long index) const;
    float contentWidth(Segment const&) const;
    std::vector<float> widthsIn(float length) const;
    void press(long index);
    void showMenu(long index, Rect frame, NSView& controlView, NSEvent&);
    void setPressed(long index);

    std::vector<Segment> m_segments;
    long m_selected { -1 };
    long m_keySegment { 0 };
    long m_pressed { -1 };
    NSSegmentSwitchTracking m_trackingMode { NSSegmentSwitchTrackingSelectOne };
};

}
