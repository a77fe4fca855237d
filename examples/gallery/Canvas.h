#pragma once

#include <plix/platform/appkit/NSView.h>

#include <functional>

namespace gallery {

/// A view that shows what a function draws into its bounds, y upwards, over the white of paper or the dark of a dark appearance.
class Canvas final : public plix::NSView {
public:
    using Draw = std::function<void(plix::Rect bounds)>;
    using NSView::init;
    bool init(plix::Size, Draw);

    // NSView:
    void drawRect(plix::Rect) override;

private:
    Draw m_draw;
};

/// One with a hint below it that says what is seen.
plix::Ref<plix::NSView> drawing(std::string_view caption, plix::Size, Canvas::Draw);

}
