#pragma once

#include <plix/controls/PLIXPopUpButton.h>
#include <plix/controls/chiseled_popup_plan.h>
#include <plix/platform/graphics/Forward.h>

namespace plix {

class PLIXChiseledTextField;
struct NSNotification;

/// A pop-up button without a border that shows one of three images, which it composes itself: an engraved title and a small arrow,
/// and behind them, under the pointer and while pressed, a background of three slices. It is as wide as its title needs, and keeps
/// its right edge in place when that changes. The title follows the key state of an NSWindow or NSPanel, in windows of other
/// classes the application's.
///
/// Of what is archived only the base's part comes back: its cell's title is taken, while anchor and height fitting are as in a new
/// one.
class PLIX_EXPORT PLIXChiseledTextPopUpButton : public PLIXPopUpButton {
    PLIX_CLASS(PLIXChiseledTextPopUpButton, PLIXPopUpButton);

public:
    PLIXChiseledTextPopUpButton();
    ~PLIXChiseledTextPopUpButton() override;
    bool init();
    bool init(Rect frame);
    /// With the title of the archived cell.
    bool init(NSCoder&);

    // Of the title and its shadow under the pointer and while pressed; a new colour at each call.
    static Ref<NSColor> highlightColor();
    static Ref<NSColor> shadow_HighlightColor();

    /// Loads the six slices. One that is missing is 0 wide and draws nothing.
    virtual void InitBackgroundImages();

    // Each composes a new image for the title, size and activity of this moment.
    virtual Ref<NSImage> ConstructIdleImage();
    virtual Ref<NSImage> ConstructMouseOverImage();
    virtual Ref<NSImage> ConstructMouseDownImage();
    /// Becomes the button's image.
    virtual void SetIdleImage(Ref<NSImage> const&);
    /// Kept until the pointer comes.
    virtual void SetMouseOverImage(Ref<NSImage> const&);
    /// Becomes the alternate image, which shows while pressed.
    virtual void SetMouseDownImage(Ref<NSImage> const&);

    /// Tracks the pointer over the bounds of this moment, in a superview and a window; the rectangle before goes.
    virtual void UpdateTrackingRect();

    /// Fits the frame to the title and composes the images anew. The height only changes where it is to be fitted too, and to whole
    /// points.
    void setTitle(std::string_view) override;
    std::string const& title() const override;
    /// The title's; it shows from the next title or change of activity on. Ignores null.
    void setFont(Ref<NSFont> const&) override;
    /// Whether the height follows the title's, plus 4; no at first. Counts from the next title on.
    virtual void SetSizeHeightToFit(bool fits) { m_sizeHeightToFit = fits; }
    /// Bit 0, which is set at first: the right edge stays where it is when a title changes the width, else the left one. Counts
    /// from the next title on.
    virtual void SetFrameAnchorMask(long mask) { m_frameAnchorMask = mask; }

    // The sender is a notification or null, and ignored.
    virtual void activate(NSNotification const* sender);
    virtual void deactivate(NSNotification const* sender);
    /// Logs the notification's name as it stands.
    virtual void blah(NSNotification const&);

    // NSObject: does nothing, nor calls the base.
    void awakeFromNib() override { }
    // NSView. Geometry: the rectangle that is tracked is that of before the change, until the next update.
    bool acceptsFirstResponder() const override { return false; }
    void setFrame(Rect) override;
    void setFrameSize(Size) override;
    void setFrameOrigin(Point) override;
    void viewDidEndLiveResize() override;
    void viewDidMoveToSuperview() override;
    void viewDidMoveToWindow() override;
    void resetCursorRects() override;
    void mouseEntered(NSEvent&) override;
    void mouseExited(NSEvent&) override;
    void mouseDown(NSEvent&) override;
    void mouseUp(NSEvent&) override;

private:
    void setUp(Rect titleFrame);
    void composeImages();
    Ref<NSImage> compose(std::optional<PopUpBackground>);
    void drawSlices(PopUpBackground, Rect button) const;
    void drawTitle(std::optional<PopUpBackground>);
    void setTitleColors(std::optional<PopUpBackground>);
    NSImage* blackArrow();
    NSImage* whiteArrow();
    SliceWidths pressedWidths() const;
    SliceWidths hoverWidths() const;

    Ref<PLIXChiseledTextField> m_titleField;
    Ref<NSImage> m_leftCap_MouseDown_Image;
    Ref<NSImage> m_middle_MouseDown_Image;
    Ref<NSImage> m_rightCap_MouseDown_Image;
    Ref<NSImage> m_leftCap_MouseOver_Image;
    Ref<NSImage> m_middle_MouseOver_Image;
    Ref<NSImage> m_rightCap_MouseOver_Image;
    Ref<NSImage> m_image_Idle;
    Ref<NSImage> m_image_MouseOver;
    Ref<NSImage> m_image_MouseDown;
    Ref<NSImage> m_blackArrow;
    Ref<NSImage> m_whiteArrow;
    NSTrackingRectTag m_trackingRectTag { 0 };
    bool m_mouseIsDown { false };
    long m_frameAnchorMask { 1 };
    bool m_sizeHeightToFit { false };
    bool m_active { true };
};

}
