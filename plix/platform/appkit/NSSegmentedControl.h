#pragma once

#include <plix/platform/appkit/NSControl.h>

#include <string>

namespace plix {

class NSSegmentedCell;

/// Buttons side by side; see NSSegmentedCell. While it has the keyboard the arrow keys go from segment to segment and the space bar
/// presses.
class PLIX_EXPORT NSSegmentedControl : public NSControl {
    PLIX_CLASS(NSSegmentedControl, NSControl);

public:
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    static Class const* cellClass();
    Class const* ownCellClass() const override { return cellClass(); }

    // Those of the cell; without one there are no segments.
    long segmentCount() const;
    void setSegmentCount(long);
    long selectedSegment() const;
    void setSelectedSegment(long);
    float widthForSegment(long) const;
    void setWidth(float, long forSegment);
    NSImage* imageForSegment(long) const;
    void setImage(Ref<NSImage> const&, long forSegment);
    std::string labelForSegment(long) const;
    void setLabel(std::string_view, long forSegment);
    bool isSelectedForSegment(long) const;
    void setSelected(bool, long forSegment);
    bool isEnabledForSegment(long) const;
    void setEnabled(bool, long forSegment);
    NSMenu* menuForSegment(long) const;
    void setMenu(Ref<NSMenu> const&, long forSegment);

    // NSView, NSControl:
    using NSControl::setEnabled;
    using NSControl::setMenu;
    long selectedTag() const override;
    void keyDown(NSEvent&) override;
    void resetCursorRects() override;

protected:
    NSSegmentedCell* segmentedCell() const;

private:
    NSSegmentedCell& cellOrRaise(long index) const;
};

}
