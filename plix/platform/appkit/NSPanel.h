#pragma once

#include <plix/platform/appkit/NSWindow.h>

namespace plix {

/// A companion window: never main, closed by Escape where it has a close box, out of sight while the application is not active
/// where it floats.
class PLIX_EXPORT NSPanel : public NSWindow {
    PLIX_CLASS(NSPanel, NSWindow);

public:
    using NSWindow::init;
    bool init();
    bool init(Rect contentRect, unsigned styleMask, NSBackingStoreType, bool defer);
    bool init(Rect contentRect, unsigned styleMask, NSBackingStoreType, bool defer, NSScreen*);

    // Whether it stays above the application's other windows.
    bool isFloatingPanel() const { return m_isFloating; }
    void setFloatingPanel(bool);
    /// Becomes key only when a view is clicked that takes the keyboard.
    bool becomesKeyOnlyIfNeeded() const { return m_becomesKeyOnlyIfNeeded; }
    void setBecomesKeyOnlyIfNeeded(bool value) { m_becomesKeyOnlyIfNeeded = value; }
    void setWorksWhenModal(bool value) { m_worksWhenModal = value; }

    // NSWindow:
    bool worksWhenModal() const override { return m_worksWhenModal; }
    bool canBecomeMainWindow() const override { return false; }

    // NSResponder:
    void keyDown(NSEvent&) override;

private:
    bool m_isFloating { false };
    bool m_becomesKeyOnlyIfNeeded { false };
    bool m_worksWhenModal { false };
};

}
