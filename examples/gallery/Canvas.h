#pragma once

#include <plix/platform/appkit/NSView.h>

#include <functional>
#include <string_view>
#include <vector>

namespace gallery {

class Transcript;

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

/// A page of views from left to right in as many rows as they take, with a transcript below where there is one.
plix::Ref<plix::NSView> tiledPage(
    std::vector<plix::Ref<plix::NSView>> const& tiles, plix::Ref<Transcript> const& transcript = nullptr);
/// One with a hint below it that says what is seen.
plix::Ref<plix::NSView> drawing(std::string_view caption, plix::Size, Canvas::Draw);

}
