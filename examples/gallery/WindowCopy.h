#pragma once

#include <plix/platform/appkit/NSView.h>

namespace plix {

class NSWindow;

}

namespace gallery {

/// What is in a window, on a page: its background with its content on it, in a thin frame. Keeps the window, which is left with an
/// empty content.
class WindowCopy final : public plix::NSView {
public:
    WindowCopy();
    ~WindowCopy() override;
    bool init(plix::Ref<plix::NSWindow> const&, plix::Point origin);

    plix::NSWindow& original() const { return *m_window; }

    // NSView:
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;

private:
    plix::Ref<plix::NSWindow> m_window;
};

}
