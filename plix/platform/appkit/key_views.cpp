#include <plix/platform/appkit/key_views.h>

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/reading_order.h>

#include <algorithm>

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

namespace {

bool isIn(NSView const* view, NSView const& pane)
{
    return view && view->isDescendantOf(pane);
}

/// Where the links within the pane begin; in a circle, the view itself.
NSView& headOfLinks(NSView& linked, NSView const& pane)
{
    auto* head = &linked;
    while (isIn(head->previousKeyView(), pane)) {
        head = head->previousKeyView();
        if (head == &linked)
            break;
    }
    return *head;
}

NSView& tailOfLinks(NSView& head, NSView const& pane)
{
    auto* tail = &head;
    while (isIn(tail->nextKeyView(), pane) && tail->nextKeyView() != &head)
        tail = tail->nextKeyView();
    return *tail;
}

}

void insertInKeyViewLoop(NSView& behind, NSView& pane, NSView* first)
{
    auto* const after = behind.nextKeyView();
    if (isIn(after, pane))
        return;
    auto views = viewsInReadingOrder(pane);
    views.insert(views.begin(), &pane);
    auto const isLinked = [&](NSView const* view) { return isIn(view->nextKeyView(), pane); };
    auto linked = isIn(first, pane) && isLinked(first) ? std::ranges::find(views, first) : std::ranges::find_if(views, isLinked);
    if (linked == views.end()) {
        for (std::size_t i = 0; i + 1 < views.size(); ++i)
            views[i]->setNextKeyView(views[i + 1]);
        linked = views.begin();
    }
    auto& head = headOfLinks(**linked, pane);
    auto& tail = tailOfLinks(head, pane);
    bool const isAlone = !after && !behind.previousKeyView();
    behind.setNextKeyView(&head);
    if (auto* const next = isAlone ? &behind : after)
        tail.setNextKeyView(next);
}

bool removeFromKeyViewLoop(NSView& behind, NSView& pane)
{
    NSView* last = nullptr;
    auto* view = behind.nextKeyView();
    for (; isIn(view, pane); view = view->nextKeyView())
        last = view;
    if (!last)
        return false;
    last->setNextKeyView(nullptr);
    behind.setNextKeyView(view);
    return true;
}

}
