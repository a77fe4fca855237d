#pragma once

#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/Global.h>
#include <plix/platform/base/export.h>
#include <plix/platform/graphics/Forward.h>

namespace plix {

class NSImageView;

/// The background of all windows of this class; see PLIXWindow::backgroundImage(). What a host assigns before it is first asked
/// for is taken.
PLIX_EXPORT extern Global<NSImage> PLIXWindow_BackgroundImage;

/// A window that paints its background from a tall image, shows a resize indicator of its own in the lower right corner, takes a
/// control-click for a right click, and keeps its top on the screen where it is too tall for it.
///
/// The background is a pattern as wide as the image, which repeats from side to side. It is made anew when the frame is set, not
/// when a person resizes the window: for that the host makes the window its own delegate. From system version 0x1050 on the
/// platform's background stays instead, whatever is asked for.
class PLIX_EXPORT PLIXWindow : public NSWindow {
    PLIX_CLASS(PLIXWindow, NSWindow);

public:
    PLIXWindow();
    ~PLIXWindow() override;
    using NSWindow::init;
    /// The background is the whole image stretched, whatever the mode; that of the others follows the mode.
    bool init();
    bool init(Rect contentRect, unsigned styleMask, NSBackingStoreType, bool defer);
    bool init(Rect contentRect, unsigned styleMask, NSBackingStoreType, bool defer, NSScreen*);
    bool init(HostWindow* windowRef);
    /// With an indicator of its own in place of an archived one.
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// The image of PLIXWindow_BackgroundImage; where that is nil, the one named "windowbackground" from then on.
    static Ref<NSImage> backgroundImage();

    /// One of PLIXBackgroundMode; with any other the pattern is clear. PLIXBackgroundHalves at first.
    int backgroundMode() const { return m_backgroundMode; }
    virtual void setBackgroundMode(int);
    /// The pattern for a frame of that size, by the mode; no colour at all with PLIXBackgroundNone.
    virtual void updateBackgroundColorForSize(Size);
    /// The image named "windowbackground", whole, stretched over the frame's size, whatever the mode.
    virtual void updateBackgroundColor();
    /// Likewise over that width and the image's own height.
    virtual void updateBackgroundColorForSize2(Size);

    // For hosts that follow a resize. The first is the delegate's hook: it changes the background where the height is another than
    // at the last call, and never the size. The other two, which are alike, compare the width.
    virtual Size windowWillResize(NSWindow& sender, Size proposed);
    virtual void windowDidResize2(NSNotification const&);
    virtual void orderFront2(NSObject* sender);

    /// Makes the indicator's view, which is in no view yet, in place of the one that was, and answers it.
    virtual Ref<NSImageView> initResizeIndicatorView();
    /// Puts the indicator where it belongs, above all other views of the content, if the window is resizable and shows one. Each
    /// display() does.
    virtual void refreshResizeIndicator();
    NSImageView* resizeIndicatorView() const { return m_resizeIndicatorView.get(); }
    /// Of the window's own indicator, which it has at first; the platform's stays off, and showsResizeIndicator() answers for that.
    void setShowsResizeIndicator(bool) override;

    /// Light while the background is an image: what stands on it is drawn for a light ground, engraved labels above all. A host
    /// whose image is dark sets another.
    Appearance effectiveAppearance() const override;

    /// Whether the window takes events while another one is modal. False at first.
    bool worksWhenModal() const override { return m_worksWhenModal; }
    virtual void setWorksWhenModal(bool works) { m_worksWhenModal = works; }

    // NSWindow:
    void sendEvent(NSEvent&) override;
    void display() override;
    /// The background is made before the frame changes.
    void setFrame(Rect, bool display) override;
    /// The background is made after the frame has changed.
    void setFrame(Rect, bool display, bool animate) override;
    /// A frame taller than the screen's visible part keeps its size and has its top edge at the visible part's.
    Rect constrainFrameRect(Rect, NSScreen*) override;

private:
    enum class FirstBackground { wholeImage, byMode };

    bool initLook(FirstBackground);
    void backgroundFollowsWidth();

    Rect m_lastWindowFrame;
    int m_backgroundMode { 1 };
    bool m_worksWhenModal { false };
    Ref<NSImageView> m_resizeIndicatorView;
    bool m_PLIXWindow_ShowsResizeIndicator { true };
};

}
