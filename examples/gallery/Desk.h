#pragma once

#include <plix/platform/appkit/NSView.h>

namespace gallery {

/// The ground of a page. Everything on it looks as in an active window, or as in an inactive one.
class Desk : public plix::NSView {
public:
    using NSView::init;

    void setLooksActive(bool isActive) { m_isActive = isActive; }

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    bool looksActive() const override { return m_isActive; }
    void drawRect(plix::Rect) override;

private:
    bool m_isActive { true };
};

}
