#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

/// What a window asks and tells its delegate.
struct NSWindowDelegate {
    /// False keeps the window open.
    Hook<bool(NSObject& sender)> windowShouldClose;
    /// Null for the window's own editor.
    Hook<NSResponder*(NSWindow&, NSObject* client)> windowWillReturnFieldEditor;
    Hook<NSUndoManager*(NSWindow&)> windowWillReturnUndoManager;
    /// Answers the frame size that the resize shall have instead.
    Hook<Size(NSWindow&, Size proposed)> windowWillResize;
    Hook<Rect(NSWindow&, Rect defaultFrame)> windowWillUseStandardFrame;
    Hook<bool(NSWindow&, Rect newFrame)> windowShouldZoom;
    /// Where in the window (base coordinates) the sheet's top edge is to be attached.
    Hook<Rect(NSWindow&, NSWindow& sheet, Rect proposed)> windowWillPositionSheet;

    // Told with the notification of the like name.
    Hook<void(NSNotification const&)> windowDidResize;
    Hook<void(NSNotification const&)> windowDidExpose;
    Hook<void(NSNotification const&)> windowWillMove;
    Hook<void(NSNotification const&)> windowDidMove;
    Hook<void(NSNotification const&)> windowDidBecomeKey;
    Hook<void(NSNotification const&)> windowDidResignKey;
    Hook<void(NSNotification const&)> windowDidBecomeMain;
    Hook<void(NSNotification const&)> windowDidResignMain;
    Hook<void(NSNotification const&)> windowWillClose;
    Hook<void(NSNotification const&)> windowWillMiniaturize;
    Hook<void(NSNotification const&)> windowDidMiniaturize;
    Hook<void(NSNotification const&)> windowDidDeminiaturize;
    Hook<void(NSNotification const&)> windowDidUpdate;
    Hook<void(NSNotification const&)> windowDidChangeScreen;
    Hook<void(NSNotification const&)> windowWillBeginSheet;
    Hook<void(NSNotification const&)> windowDidEndSheet;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(windowShouldClose);
        PLIX_FILL_HOOK(windowWillReturnFieldEditor);
        PLIX_FILL_HOOK(windowWillReturnUndoManager);
        PLIX_FILL_HOOK(windowWillResize);
        PLIX_FILL_HOOK(windowWillUseStandardFrame);
        PLIX_FILL_HOOK(windowShouldZoom);
        PLIX_FILL_HOOK(windowWillPositionSheet);
        PLIX_FILL_HOOK(windowDidResize);
        PLIX_FILL_HOOK(windowDidExpose);
        PLIX_FILL_HOOK(windowWillMove);
        PLIX_FILL_HOOK(windowDidMove);
        PLIX_FILL_HOOK(windowDidBecomeKey);
        PLIX_FILL_HOOK(windowDidResignKey);
        PLIX_FILL_HOOK(windowDidBecomeMain);
        PLIX_FILL_HOOK(windowDidResignMain);
        PLIX_FILL_HOOK(windowWillClose);
        PLIX_FILL_HOOK(windowWillMiniaturize);
        PLIX_FILL_HOOK(windowDidMiniaturize);
        PLIX_FILL_HOOK(windowDidDeminiaturize);
        PLIX_FILL_HOOK(windowDidUpdate);
        PLIX_FILL_HOOK(windowDidChangeScreen);
        PLIX_FILL_HOOK(windowWillBeginSheet);
        PLIX_FILL_HOOK(windowDidEndSheet);
    }
};

}
