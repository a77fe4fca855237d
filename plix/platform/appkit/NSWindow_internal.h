#pragma once

#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindowController.h>
#include <plix/platform/appkit/WindowTracking.h>
#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/foundation/NSUndoManager.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/region.h>
#include <plix/platform/host/HostWindow.h>

#include <functional>
#include <memory>
#include <optional>

namespace plix {

struct HostWindowAttributes;

/// What a window consists of, and its ear for the host's window.
struct NSWindow::Internals final : HostWindowClient {
    explicit Internals(NSWindow&);
    ~Internals() override;

    NSWindow& self;
    long number;

    // Frame and host. The content rectangle decides; the frame is what surrounds it.
    std::unique_ptr<HostWindow> host;
    /// Of windows that were closed while they draw, until they have drawn.
    std::vector<std::unique_ptr<HostWindow>> hostsInUse;
    Rect content;
    HostWindow::FrameExtents extents;
    unsigned styleMask { 0 };
    Size minSize { 0, 0 };
    Size maxSize { 0, 0 };
    Size aspectRatio { 0, 0 };
    Size resizeIncrements { 1, 1 };
    int level { NSNormalWindowLevel };
    std::string title;
    std::string representedFilename;
    std::string autosaveName;
    float alpha { 1 };
    bool isOrderedIn { false };
    bool wasOrderedIn { false };
    bool isMiniaturized { false };
    bool isDocumentEdited { false };
    bool isOpaque { true };
    bool hasShadow { true };
    bool showsResizeIndicator { true };
    bool isReleasedWhenClosed { true };
    bool isHostOfSheet { false };
    bool isClosing { false };
    bool hidesOnDeactivate { false };
    bool isHiddenByApplication { false };
    bool canHide { true };
    bool isMovableByBackground { false };
    bool acceptsMouseMoved { false };
    bool ignoresMouse { false };
    bool isExcludedFromMenu { false };
    bool isInLiveResize { false };
    bool hasHostFocus { false };
    bool isChangingHostRect { false };
    std::optional<Rect> unzoomedFrame;
    std::optional<Rect> screenFrame;
    Ref<NSWindow> keptOnScreen;

    // Relations.
    Weak<NSWindow> parent;
    std::vector<Ref<NSWindow>> children;
    Ref<NSWindow> sheet;
    Weak<NSWindow> sheetParent;
    std::function<void(NSWindow&, long)> sheetEnded;
    /// The part of a sliding sheet's height that has come out from under its window's title, from below.
    float shownShare { 1 };
    Weak<NSWindow> modalParent;
    Weak<NSWindowController> controller;
    HookSource delegateSource;
    NSWindowDelegate hooks;

    // Content and responders.
    Ref<NSView> contentView;
    Ref<NSColor> background;
    Weak<NSResponder> firstResponder;
    Weak<NSView> initialFirstResponder;
    Ref<NSResponder> fieldEditor;
    Weak<NSResponder> defaultButton;
    Ref<NSUndoManager> undoManager;
    long responderChanges { 0 };
    bool isDefaultButtonEnabled { true };
    bool autorecalculatesKeyViewLoop { false };
    NSSelectionDirection selectionDirection { NSDirectSelection };

    // Mouse.
    WindowTracking tracking;
    Weak<NSView> pressedView;
    Weak<NSView> rightPressedView;
    Weak<NSView> otherPressedView;
    std::optional<Point> moveStart;

    // Drawing.
    std::optional<Appearance> appearance;
    bool needsDisplay { true };
    bool autodisplays { true };
    bool isDrawing { false };
    int flushDisabled { 0 };
    Ref<NSGraphicsContext> context;
    PixelBuffer contextPixels;
    Region toPresent;
    std::vector<PixelRect> presented;

    // Asked and told by views.
    void viewWillLeave(NSView&);
    void viewWasHidden(NSView&);
    void viewGeometryChanged() { tracking.invalidateCursorRects(); }
    /// Where the content's lower left corner is in base coordinates.
    Point contentOffset() const { return { extents.left, extents.bottom }; }
    bool canDraw() const;
    void displayDirty(NSView& root);
    /// False where it cannot be drawn now.
    bool displayNow(NSView&, Rect);
    /// Straight into the window's pixels, in the content's coordinates; null where there are none.
    Ref<NSGraphicsContext> contextForDrawing();
    /// Whether the pixels of the last frame are still there. Marks everything dirty where they are not.
    bool canMovePixels();
    /// Moves what the last frame left in a rectangle of the content, as far as it stays inside. False, with nothing done, where
    /// rectangle or distance are not whole pixels.
    bool movePixels(Rect contentRect, Size by);
    void notePresent(Rect contentRect);
    void presentNow();

    // Among the sources of NSWindow.
    Rect frame() const { return frameAround(content); }
    Rect frameAround(Rect contentRect) const;
    Rect contentInside(Rect frameRect) const;
    bool hasLeftScreen() const { return wasOrderedIn && (!isOrderedIn || isMiniaturized); }
    bool isSheet() const { return sheetParent.get() != nullptr; }
    bool isSliding() const { return shownShare < 1; }
    /// What the host's window shows of the content, on screen: all but of sliding sheets.
    Rect shownContent() const;
    /// Puts the attached sheet where it hangs from.
    void placeSheet();
    /// On screen and key, drawn out from under the parent's title; answers when it is there.
    void slideIn();
    /// Up again; the window stays ordered in.
    void slideOut();
    void slide(FunctionRef<float(float progress)> shareAt);
    HostWindowAttributes hostAttributes() const;
    void makeHost();
    /// Drops the host's window, so that the next one is made as the window is then.
    void dropHost();
    /// Of another window, which leaves the screen.
    void takeHost(Internals& from);
    void updateExtents();
    void applySizeLimits();
    /// What the window's setters do, for those that are no call of the one that classes override.
    void setFrame(Rect frameRect, bool display);
    /// Gives the host's window the content's rectangle; while the window draws, when it has drawn.
    void placeHost();
    void contentRectChanged(Rect before);
    /// Tells when the window is on another screen than before.
    void noteScreen();
    Rect limited(Rect frameRect) const;
    void orderIn(NSWindowOrderingMode, NSWindow* relativeTo);
    void orderOut();
    void leaveScreen();
    void selectInitialFirstResponder();
    void takeKeyboardAway(NSResponder* next);
    /// Before the window leaves the screen: whoever follows a button that is held in it is told of a release.
    void letGoOfButtons();
    /// False for another key than Return and Enter, and where there is no such button.
    bool pressDefaultButton(NSEvent const& key);
    void post(char const* name, Hook<void(NSNotification const&)> NSWindowDelegate::*hook);
    void drawBackground(NSGraphicsContext&, std::span<Rect const>);
    void drawRegion(Region const&);
    void setLiveResize(bool);
    /// The topmost of the sheets on this window and on these, or the window itself.
    NSWindow& frontmostSheet();
    void dispatchMouse(NSEvent&);
    void press(NSEvent&, Weak<NSView>& pressed, void (NSResponder::*operation)(NSEvent&));
    bool startsMoving(NSView const&) const;
    NSView* viewAt(Point base) const;
    NSView* firstKeyView() const;

    void hostButtonEvent(HostEvent const&, bool isPress);
    void hostMovement(HostEvent const&);

    // HostWindowClient:
    void hostWindowEvent(HostEvent const&) override;
    void hostWindowContentRectChanged(Rect contentRect) override;
    void hostWindowFocusChanged(bool hasFocus) override;
    void hostWindowCloseRequested() override;
    void hostWindowNeedsRepaint(Rect) override;
    void hostWindowScaleChanged(float scale) override;
    void hostWindowMiniaturizedChanged(bool isMiniaturized) override;
    void hostWindowLiveResizeChanged(bool isResizing) override;

    static std::vector<NSWindow*>& all();
};

}
