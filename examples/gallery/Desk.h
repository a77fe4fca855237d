#pragma once

#include <plix/platform/appkit/NSView.h>

#include <vector>

namespace gallery {

/// The ground of a page. Everything on it looks as its superview says; alone, as in an active window, or as in an inactive one.
class Desk : public plix::NSView {
public:
    using NSView::init;

    void setLooksActive(bool isActive) { m_isActive = isActive; }
    /// Alive as long as the page: delegates and data sources are held weakly by those that they serve.
    template <typename T> plix::Ref<T> keep(plix::Ref<T> const& object)
    {
        m_kept.emplace_back(object);
        return object;
    }

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
