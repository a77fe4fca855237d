#pragma once

#include <plix/platform/appkit/NSView.h>

#include <vector>

namespace gallery {

/// The ground of a page. Everything on it looks as its superview says; alone, as in an active window, or as in an inactive one.
class Desk : public plix::NSView {
public:
    using NSView::init;

    void setLooksActive(bool isActive) { m_isActive = isActive; }
    /// As long as the page is there: data sources and delegates, which views hold weakly.
    void keep(plix::Ref<plix::NSObject> const& object) { m_kept.push_back(object); }

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    bool looksActive() const override;
    void drawRect(plix::Rect) override;

private:
    std::vector<plix::Ref<plix::NSObject>> m_kept;
    bool m_isActive { true };
};

}
