#pragma once

#include <plix/platform/appkit/NSResponder.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindowDelegate.h>
#include <plix/platform/base/HookSource.h>
#include <plix/platform/base/NSDate.h>
#include <plix/platform/graphics/geometry.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class HostWindow;

/// What a window's frame has; the bits are joined.
enum NSWindowStyleMask : unsigned {
    NSBorderlessWindowMask = 0,
    NSTitledWindowMask = 1,
    NSClosableWindowMask = 2,
    NSMiniaturizableWindowMask = 4,
    NSResizableWindowMask = 8,
    NSUtilityWindowMask = 16,
    NSDocModalWindowMask = 64,
    NSNonactivatingPanelMask = 128,
    NSTexturedBackgroundWindowMask = 256,
};

/// Where a window keeps what was drawn. All do it as the buffered one.
enum NSBackingStoreType : int { NSBackingStoreRetained = 0, NSBackingStoreNonretained = 1, NSBackingStoreBuffered = 2 };

/// A window of a higher level is in front of all of lower ones.
enum NSWindowLevel : int {
    NSNormalWindowLevel = 0,
    NSFloatingWindowLevel = 3,
    NSSubmenuWindowLevel = 3,
    NSTornOffMenuWindowLevel = 3,
    NSModalPanelWindowLevel = 8,
    NSMainMenuWindowLevel = 24,
    NSStatusWindowLevel = 25,
    NSPopUpMenuWindowLevel = 101,
    NSScreenSaverWindowLevel = 1000,
};

/// How the keyboard came to a view.
enum NSSelectionDirection : int { NSDirectSelection = 0, NSSelectingNext = 1, NSSelectingPrevious = 2 };

/// The buttons of a window's title.
enum NSWindowButton : int {
    NSWindowCloseButton,
    NSWindowMiniaturizeButton,
    NSWindowZoomButton,
    NSWindowToolbarButton,
    NSWindowDocumentIconButton,
};

/// The arguments of a window's content-rectangle init.
struct WindowPlacement {
    Rect contentRect;
    unsigned styleMask { NSBorderlessWindowMask };
    NSBackingStoreType backing { NSBackingStoreBuffered };
    bool defer { true };
};

/// A window on the screen. Its frame is in screen coordinates, y upwards, and includes what the window system puts around the
/// content; base coordinates begin at the frame's lower left corner. The application keeps a window while it is on screen;
/// otherwise whoever made it does. The host's window is made when the window first comes on screen.
class PLIX_EXPORT NSWindow : public NSResponder {
    PLIX_CLASS(NSWindow, NSResponder);

public:
    struct Internals;

    NSWindow();
    ~NSWindow() override;

    bool init();
    bool init(Rect contentRect, unsigned styleMask, NSBackingStoreType, bool defer);
    /// The content rectangle is relative to that screen's origin; null means the main screen.
    bool init(Rect contentRect, unsigned styleMask, NSBackingStoreType, bool defer, NSScreen*);
    /// For a window of the machine's that another object has: takes it over with its place, style and title, and leaves the other
    /// off screen. Nil for null, for what no window has, and for a sheet's.
    bool init(HostWindow* windowRef);
    /// Archived are place, style, title, limits, colour and content; the window is off screen.
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;
    /// The content-rectangle init of that very class, for its descriptor: windows of interface files are made by it.
    template <typename Window>
    requires requires(Window& window, Rect rect, NSBackingStoreType backing) { window.init(rect, 0U, backing, true); }
    static bool initWithPlacement(Window& window, WindowPlacement const& placement)
    {
        return window.init(placement.contentRect, placement.styleMask, placement.backing, placement.defer);
    }

    // Frame and content.
    static Rect frameRectForContentRect(Rect, unsigned styleMask);
    static Rect contentRectForFrameRect(Rect, unsigned styleMask);
    static float minFrameWidthWithTitle(std::string_view title, unsigned styleMask);
    /// As it is for this very window, which may be a sheet.
    Rect frameRectForContentRect(Rect) const;
    Rect contentRectForFrameRect(Rect) const;
    Rect frame() const;
    /// With `display`, what is dirty afterwards is drawn before this answers. Kept within the minimum and maximum size.
    virtual void setFrame(Rect, bool display);
    /// Animated: answers when the window has arrived. Goes its way without the setter above, as do all that only move the window.
    virtual void setFrame(Rect, bool display, bool animate);
    void setFrameOrigin(Point);
    void setFrameTopLeftPoint(Point);
    /// Places the window's top left at the point, or leaves it where it is for the zero point; answers the point for the next
    /// window.
    Point cascadeTopLeftFromPoint(Point);
    void setContentSize(Size);
    /// How long an animated change to that frame takes: 0.2 s for each 150 points of change; the user's default
    /// "NSWindowResizeTime" has another time than 0.2, or 0 for no animation.
    virtual NSTimeInterval animationResizeTime(Rect newFrame);
    /// Here: a titled window's frame moved so that its top edge is on the screen's visible part, and its height no more than that.
    virtual Rect constrainFrameRect(Rect, NSScreen*);
    void center();
    Size minSize() const;
    void setMinSize(Size);
    Size maxSize() const;
    void setMaxSize(Size);
    Size contentMinSize() const;
    void setContentMinSize(Size);
    Size contentMaxSize() const;
    void setContentMaxSize(Size);
    /// Zero: none.
    Size aspectRatio() const;
    void setAspectRatio(Size);
    Size resizeIncrements() const;
    void setResizeIncrements(Size);
    NSScreen* screen() const;
    float userSpaceScaleFactor() const { return 1; }
    float backingScaleFactor() const;
    unsigned styleMask() const;
    std::string stringWithSavedFrame() const;
    /// Moved onto a screen where the saved one is gone.
    void setFrameFromString(std::string_view);
    /// Frames are saved under a name in the user's defaults; with this one at every change. False where another window saves under
    /// the name.
    bool setFrameAutosaveName(std::string_view);
    std::string const& frameAutosaveName() const;
    bool setFrameUsingName(std::string_view);
    void saveFrameUsingName(std::string_view) const;
    Point convertBaseToScreen(Point) const;
    Point convertScreenToBase(Point) const;

    // Content.
    NSView* contentView() const;
    /// The old one is let go; null gives a plain view.
    void setContentView(Ref<NSView> const&);
    std::string const& title() const;
    virtual void setTitle(std::string_view);
    std::string const& representedFilename() const;
    void setRepresentedFilename(std::string_view);
    bool isDocumentEdited() const;
    void setDocumentEdited(bool);
    /// The colour behind the content, a pattern too; null for the platform's own.
    NSColor* backgroundColor() const;
    virtual void setBackgroundColor(Ref<NSColor> const&);
    /// Of all that is drawn in the window, whatever that of the process is; none at first: as the process has it.
    std::optional<Appearance> appearance() const;
    void setAppearance(std::optional<Appearance>);
    /// With which the window is drawn.
    virtual Appearance effectiveAppearance() const;
    bool isOpaque() const;
    void setOpaque(bool);
    bool hasShadow() const;
    void setHasShadow(bool);
    float alphaValue() const;
    void setAlphaValue(float);
    virtual bool showsResizeIndicator() const;
    virtual void setShowsResizeIndicator(bool);

    // Ordering.
    virtual void orderFront(NSObject* sender);
    virtual void orderBack(NSObject* sender);
    virtual void orderOut(NSObject* sender);
    void orderFrontRegardless();
    virtual void orderWindow(NSWindowOrderingMode, long relativeTo);
    virtual void makeKeyAndOrderFront(NSObject* sender);
    bool isVisible() const;
    int level() const;
    void setLevel(int);
    long windowNumber() const;
    static NSWindow* windowWithNumber(long);
    bool hidesOnDeactivate() const;
    void setHidesOnDeactivate(bool);
    bool canHide() const;
    void setCanHide(bool);
    void addChildWindow(NSWindow&, NSWindowOrderingMode);
    void removeChildWindow(NSWindow&);
    std::vector<Ref<NSWindow>> childWindows() const;
    NSWindow* parentWindow() const;
    void setParentWindow(NSWindow*);
    NSWindow* attachedSheet() const;
    bool isSheet() const;
    bool isMovableByWindowBackground() const;
    void setMovableByWindowBackground(bool);

    // Closing and the rest of the title bar's life.
    virtual void close();
    /// As the close box does: asks the delegate and the window by windowShouldClose. Beeps where the window has no close box.
    virtual void performClose(NSObject* sender);
    /// Kept for those who ask: windows live as long as they are referenced or on screen.
    bool isReleasedWhenClosed() const;
    void setReleasedWhenClosed(bool);
    void performMiniaturize(NSObject* sender);
    void miniaturize(NSObject* sender);
    void deminiaturize(NSObject* sender);
    bool isMiniaturized() const;
    void performZoom(NSObject* sender);
    void zoom(NSObject* sender);
    bool isZoomed() const;
    NSWindowController* windowController() const;
    void setWindowController(NSWindowController*);
    bool isExcludedFromWindowsMenu() const;
    void setExcludedFromWindowsMenu(bool);

    // Key and main.
    bool isKeyWindow() const;
    bool isMainWindow() const;
    virtual bool canBecomeKeyWindow() const;
    virtual bool canBecomeMainWindow() const;
    void makeKeyWindow();
    void makeMainWindow();
    virtual void becomeKeyWindow();
    virtual void resignKeyWindow();
    virtual void becomeMainWindow();
    virtual void resignMainWindow();
    /// True for windows that take events while another one is modal.
    virtual bool worksWhenModal() const { return false; }

    // First responder and key view loop.
    NSResponder* firstResponder() const;
    /// Null makes the window itself first responder, and so does a responder that refuses to become it. False where the old one
    /// refuses to resign, or the new one does not accept to be first responder at all.
    virtual bool makeFirstResponder(NSResponder*);
    NSView* initialFirstResponder() const;
    void setInitialFirstResponder(NSView*);
    void selectNextKeyView(NSObject* sender);
    void selectPreviousKeyView(NSObject* sender);
    void selectKeyViewFollowingView(NSView&);
    void selectKeyViewPrecedingView(NSView&);
    /// How the view that becomes first responder now was reached.
    NSSelectionDirection keyViewSelectionDirection() const;
    bool autorecalculatesKeyViewLoop() const;
    void setAutorecalculatesKeyViewLoop(bool);
    /// Links the views that take the keyboard from top to bottom, each row from left to right.
    void recalculateKeyViewLoop();
    NSResponder* defaultButton() const;
    /// What Return presses, null for nothing: an object with the action performClick:.
    void setDefaultButton(NSResponder*);
    void enableKeyEquivalentForDefaultButtonCell();
    void disableKeyEquivalentForDefaultButtonCell();
    /// The one editor that the window's fields share, made when first asked for and wanted; the delegate may give another. Null
    /// where there is none and none is to be made.
    virtual NSResponder* fieldEditor(bool createWhenNeeded, NSObject* forObject);
    /// Takes the editing away from the field that has it, without its text where that is refused.
    virtual void endEditingFor(NSObject*);

    // Display.
    /// Draws all of the window now, dirty or not.
    virtual void display();
    virtual void displayIfNeeded();
    bool viewsNeedDisplay() const;
    void setViewsNeedDisplay(bool);
    bool isAutodisplay() const;
    void setAutodisplay(bool);
    /// Shows what was drawn by locking focus.
    void flushWindow();
    void disableFlushWindow();
    void enableFlushWindow();
    virtual void update();
    bool inLiveResize() const;
    /// What the window's content looked like when it was last drawn, one pixel a device pixel. Null before.
    Ref<NSBitmapImageRep> snapshot() const;

    // Events.
    /// Routes an event to the views and the first responder.
    virtual void sendEvent(NSEvent&);
    void postEvent(NSEvent&, bool atStart);
    NSEvent* currentEvent() const;
    Ref<NSEvent> nextEventMatchingMask(unsigned mask);
    Ref<NSEvent> nextEventMatchingMask(unsigned mask, NSDate until, std::string_view mode, bool dequeue);
    void discardEventsMatchingMask(unsigned mask, NSEvent* lastEvent);
    bool acceptsMouseMovedEvents() const;
    void setAcceptsMouseMovedEvents(bool);
    bool ignoresMouseEvents() const;
    void setIgnoresMouseEvents(bool);
    Point mouseLocationOutsideOfEventStream() const;
    bool areCursorRectsEnabled() const;
    void disableCursorRects();
    void enableCursorRects();
    void discardCursorRects();
    void resetCursorRects();
    void invalidateCursorRectsForView(NSView&);
    void dragImage(NSImage*, Point at, Size initialOffset, NSEvent&, NSPasteboard&, NSView& source, bool slideBack);
    void registerForDraggedTypes(std::vector<std::string> types);
    void unregisterDraggedTypes();

    // Delegate.
    template <typename T> void setDelegate(Ref<T> const& delegate) { takeHooks(HookSource::pack<NSWindowDelegate>(delegate)); }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    virtual void takeHooks(HookSource const&);
    virtual NSObject* delegate() const;
    NSWindowDelegate const& delegateHooks() const;

    /// Actions that take changes back and forth; they beep where there is nothing to do.
    void undo(NSObject* sender);
    void redo(NSObject* sender);

    // NSResponder:
    bool tryToPerform(Selector, NSObject* argument) override;
    bool performKeyEquivalent(NSEvent&) override;
    void keyDown(NSEvent&) override;
    bool acceptsFirstResponder() const override { return true; }
    /// The delegate's, else one of the window's own.
    NSUndoManager* undoManager() const override;

    /// The host's window, null while there is none.
    HostWindow* hostWindow() const;
    /// For the platform's own machinery, declared in NSWindow_internal.h.
    Internals& internals() const { return *m; }

private:
    std::unique_ptr<Internals> m;
};

// Posted with the window as object; a delegate with the hook of the like name is told first.
inline constexpr char const* NSWindowDidBecomeKeyNotification = "NSWindowDidBecomeKeyNotification";
inline constexpr char const* NSWindowDidBecomeMainNotification = "NSWindowDidBecomeMainNotification";
inline constexpr char const* NSWindowDidChangeScreenNotification = "NSWindowDidChangeScreenNotification";
inline constexpr char const* NSWindowDidDeminiaturizeNotification = "NSWindowDidDeminiaturizeNotification";
inline constexpr char const* NSWindowDidEndSheetNotification = "NSWindowDidEndSheetNotification";
inline constexpr char const* NSWindowDidExposeNotification = "NSWindowDidExposeNotification";
inline constexpr char const* NSWindowDidMiniaturizeNotification = "NSWindowDidMiniaturizeNotification";
inline constexpr char const* NSWindowDidMoveNotification = "NSWindowDidMoveNotification";
inline constexpr char const* NSWindowDidResignKeyNotification = "NSWindowDidResignKeyNotification";
inline constexpr char const* NSWindowDidResignMainNotification = "NSWindowDidResignMainNotification";
inline constexpr char const* NSWindowDidResizeNotification = "NSWindowDidResizeNotification";
inline constexpr char const* NSWindowDidUpdateNotification = "NSWindowDidUpdateNotification";
inline constexpr char const* NSWindowWillBeginSheetNotification = "NSWindowWillBeginSheetNotification";
inline constexpr char const* NSWindowWillCloseNotification = "NSWindowWillCloseNotification";
inline constexpr char const* NSWindowWillMiniaturizeNotification = "NSWindowWillMiniaturizeNotification";
inline constexpr char const* NSWindowWillMoveNotification = "NSWindowWillMoveNotification";

}
