#pragma once

#include <plix/platform/appkit/NSView.h>

namespace gallery {

/// Where the window shows a page, in a scroll view: in the middle, at its own size times the zoom, and as in an active or inactive
/// window. Never smaller than what is visible.
class PageStage final : public plix::NSView {
public:
    using NSView::init;

    /// Null for none. The page before is let go.
    void setPage(plix::Ref<plix::NSView> const&);
    plix::NSView* page() const { return m_page.get(); }
    void setZoom(float);
    float zoom() const { return m_zoom; }
    void setLooksActive(bool);

    /// Follows the size of what is visible.
    void layOut();

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    bool looksActive() const override { return m_looksActive && NSView::looksActive(); }
    void drawRect(plix::Rect) override;
    void resizeWithOldSuperviewSize(plix::Size) override { layOut(); }

private:
    /// Scaled around the page.
    plix::Ref<plix::NSView> m_frame;
    plix::Ref<plix::NSView> m_page;
    float m_zoom { 1 };
    bool m_looksActive { true };
};

}
