#pragma once

#include <plix/platform/appkit/NSSegmentedCell.h>
#include <plix/platform/appkit/NSSegmentedControl.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// Where thin lines between the segments of controls belong: rectangles as NSStringFromRect() writes them, under the control's
/// address in decimal. Null until the first is entered, then there for the whole process; an entry is emptied, never removed.
PLIX_EXPORT extern std::map<std::string, std::vector<std::string>>* separatorsForSegmentedControls;

/// Notes, while its segments draw, where a line belongs: behind each segment but the last and those at both sides of the selected
/// one.
class PLIX_EXPORT PLIXSegmentedCell : public NSSegmentedCell {
    PLIX_CLASS(PLIXSegmentedCell, NSSegmentedCell);

public:
    bool init();
    bool init(NSCoder&);

    // NSSegmentedCell:
    void drawSegment(int segment, Rect frame, NSView& controlView) override;
};

/// Draws the lines that its cell, where that is a PLIXSegmentedCell, has noted, as long as its window is key.
class PLIX_EXPORT PLIXSegmentedControl : public NSSegmentedControl {
    PLIX_CLASS(PLIXSegmentedControl, NSSegmentedControl);

public:
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    /// Empty for a control that was never seen.
    static std::vector<std::string> separatorsForSegmentedControl(NSView const*);
    /// Nothing where either is nil.
    static void addSeparator(std::optional<std::string_view> rectangle, NSView const* forSegmentedControl);
    static void removeSeparatorsForSegmentedControl(NSView const*);

    // NSControl:
    void drawRect(Rect) override;
    void drawCell(NSCell&) override;
    void drawCellInside(NSCell&) override;
};

/// A segmented control with one picture in its middle.
class PLIX_EXPORT PLIXSegmentedControlButton : public NSSegmentedControl {
    PLIX_CLASS(PLIXSegmentedControlButton, NSSegmentedControl);

public:
    PLIXSegmentedControlButton();
    ~PLIXSegmentedControlButton() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    // Of its one segment.
    NSImage* image() const;
    using NSSegmentedControl::setImage;
    void setImage(Ref<NSImage> const&);

    // NSControl:
    void drawRect(Rect) override;

private:
    Ref<NSImage> m_image;
};

/// The cell's tag of the selected segment; -1 where none is selected.
PLIX_EXPORT int selectedSegmentTag(NSSegmentedControl const&);
/// The first segment with that tag, or -1.
PLIX_EXPORT int segmentWithTag(NSSegmentedControl const&, int tag);
/// Selects the first segment with that tag; false where there is none.
PLIX_EXPORT bool selectSegmentWithTag(NSSegmentedControl&, int tag);

}
