#include <plix/platform/appkit/key_views.h>

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/reading_order.h>

namespace plix {

namespace {

void collectInReadingOrder(NSView& view, std::vector<NSView*>& into)
{
    std::vector<Rect> frames;
    for (auto const& subview : view.subviews())
        frames.push_back(subview->frame());
    for (auto const index : readingOrder(frames, view.isFlipped())) {
        auto& subview = *view.subviews()[index];
        into.push_back(&subview);
        collectInReadingOrder(subview, into);
    }
}

}

std::vector<NSView*> viewsInReadingOrder(NSView& view)
{
    std::vector<NSView*> views;
    collectInReadingOrder(view, views);
    return views;
}

}
