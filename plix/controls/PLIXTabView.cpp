#include <plix/controls/PLIXTabView.h>

#include <plix/controls/PLIXTabViewItem.h>
#include <plix/platform/appkit/NSText.h>
#include <plix/platform/appkit/NSWindow.h>

#include <vector>

namespace plix {

namespace {

constexpr unsigned sizableInBothDirections = NSViewWidthSizable | NSViewHeightSizable;

PLIXTabViewItem* itemWithCustomView(NSTabViewItem* item)
{
    auto* const own = dynamic_cast<PLIXTabViewItem*>(item);
    return own && own->customView() ? own : nullptr;
}

/// Who has the keyboard in a view: for text in a field the field, since its editor goes.
Ref<NSView> keyboardHolderIn(NSView const& view)
{
    auto* responder = view.window() ? dynamic_cast<NSView*>(view.window()->firstResponder()) : nullptr;
    if (auto const* text = dynamic_cast<NSText*>(responder); text && text->isFieldEditor())
        responder = dynamic_cast<NSView*>(text->delegate());
    return responder && responder->isDescendantOf(view) ? responder : nullptr;
}

/// Lets a view change its size without its subviews following.
class SubviewsStay {
public:
    explicit SubviewsStay(NSView& view)
        : m_view(view)
        , m_autoresizes(view.autoresizesSubviews())
    {
        view.setAutoresizesSubviews(false);
    }
    ~SubviewsStay() { m_view->setAutoresizesSubviews(m_autoresizes); }
    SubviewsStay(SubviewsStay const&) = delete;
    SubviewsStay& operator=(SubviewsStay const&) = delete;

private:
    Ref<NSView> m_view;
    bool m_autoresizes;
};

/// A pane that is out of the view tree while its window changes, so that it is not stretched.
class PaneOutOfTree {
public:
    explicit PaneOutOfTree(NSView& pane)
        : m_pane(pane)
        , m_superview(pane.superview())
        , m_keyboardHolder(keyboardHolderIn(pane))
    {
        pane.removeFromSuperview();
    }
    PaneOutOfTree(PaneOutOfTree const&) = delete;
    PaneOutOfTree& operator=(PaneOutOfTree const&) = delete;

    void putBack()
    {
        if (!m_superview || m_pane->superview())
            return;
        {
            SubviewsStay const stay(*m_pane);
            m_superview->addSubview(*m_pane);
        }
        // Whoever was told of the change may have given the keyboard to another.
        auto* const window = m_pane->window();
        if (m_keyboardHolder && m_keyboardHolder->canBecomeKeyView() && window && window->firstResponder() == window)
            window->makeFirstResponder(m_keyboardHolder.get());
    }

private:
    Ref<NSView> m_pane;
    Ref<NSView> m_superview;
    Ref<NSView> m_keyboardHolder;
};

using FitPlan = PaneFit(Rect window, Size tabView, Size contentRect, std::span<Rect const> subviews);

void fitWindow(NSTabView& tabView, NSTabViewItem& item, FitPlan* plan)
{
    Ref<NSWindow> const window(tabView.window());
    Ref<NSTabViewItem> const selected(item);
    Ref<NSView> const pane(item.view());
    auto const subviews = pane->subviews();
    std::vector<Rect> frames;
    for (auto const& view : subviews)
        frames.push_back(view->frame());
    auto const size = tabView.frame().size();
    auto const content = tabView.contentRect().size();
    auto const offset = plan(Rect {}, size, content, frames).subviewOffset;
    PaneOutOfTree outOfTree(*pane);
    for (auto const& view : subviews) {
        auto const origin = view->frame().origin();
        view->setFrameOrigin({ origin.x + offset.width, origin.y + offset.height });
    }
    // Only now: the end of editing in the pane may have moved the window.
    if (window)
        window->setFrame(plan(window->frame(), size, content, frames).windowFrame, true, true);
    // Whoever was told of the window's new size may have selected another.
    if (tabView.selectedTabViewItem() == selected && selected->view() == pane)
        outOfTree.putBack();
}

}

PLIX_DESCRIBE(PLIXTabView)
{
}

bool PLIXTabView::init()
{
    return PLIXTabView::init(Rect {});
}

// The view itself is the answer here, whatever the base's is.
bool PLIXTabView::init(Rect frame)
{
    Base::init(frame);
    initModes();
    return true;
}

bool PLIXTabView::init(NSCoder& coder)
{
    Base::init(coder);
    initModes();
    return true;
}

void PLIXTabView::initModes()
{
    m_contentResizeMode = 1;
    m_windowResizeMode = 17;
    setAutoresizingMask(autoresizingMask() | sizableInBothDirections);
}

void PLIXTabView::takeHooks(HookSource const& source)
{
    m_hooks = source.hooks<PLIXTabViewDelegate>();
    Base::takeHooks(source);
}

void PLIXTabView::selectTabViewItem(NSTabViewItem* item)
{
    Ref<PLIXTabView> const protector(this);
    Ref<NSTabViewItem> const wanted(item);
    bool const hadKeyboard = paneHasKeyboard();
    Ref<NSView> responder;
    if (auto* const own = itemWithCustomView(item)) {
        auto* const first = own->initialFirstResponder();
        if (first && first->isDescendantOf(*own->customView()))
            responder = first;
        own->setView(make<NSView>(Rect { 0, 0, 1, 1 }));
    }
    selectWithPaneOfOwnHeight(item);
    resizeToFitContent();
    if (auto* const own = itemWithCustomView(item); own && own->view() != own->customView()) {
        own->setInitialFirstResponder(responder.get());
        own->setView(own->customView());
    }
    auto* const ownWindow = window();
    if (hadKeyboard && ownWindow && (ownWindow->firstResponder() == this || ownWindow->firstResponder() == ownWindow))
        giveKeyboardToPane();
    m_hooks.reallyDidSelectTabViewItem(*this, item);
}

// The pane takes the width that there is, but its subviews keep the height that they want: the window follows that.
void PLIXTabView::selectWithPaneOfOwnHeight(NSTabViewItem* item)
{
    Ref<NSView> const view(item ? item->view() : nullptr);
    if (!view || !window() || view->superview() || itemWithCustomView(item)) {
        Base::selectTabViewItem(item);
        return;
    }
    float const width = view->frame().width;
    {
        SubviewsStay const stay(*view);
        Base::selectTabViewItem(item);
    }
    if (view->autoresizesSubviews() && view->frame().width != width)
        view->resizeSubviewsWithOldSize({ width, view->frame().height });
}

void PLIXTabView::resizeToFitContent()
{
    Ref<PLIXTabView> const protector(this);
    if (itemWithCustomView(selectedTabViewItem())) {
        resizeToFitTabViewCustomView();
        return;
    }
    unsigned const mask = autoresizingMask();
    setAutoresizingMask(mask | sizableInBothDirections);
    auto* const item = selectedTabViewItem();
    // The mask keeps what was added then, which is meant.
    if (!item || !item->view() || item->view()->subviews().empty())
        return;
    fitWindow(*this, *item, windowFrameFittingPane);
    setAutoresizingMask(mask);
}

void PLIXTabView::resizeToFitContentXY()
{
    Ref<PLIXTabView> const protector(this);
    auto* const item = selectedTabViewItem();
    if (item && item->view() && !item->view()->subviews().empty())
        fitWindow(*this, *item, windowFrameFittingPaneXY);
}

void PLIXTabView::resizeToFitTabViewCustomView()
{
    auto const* const item = itemWithCustomView(selectedTabViewItem());
    if (!item)
        return;
    Ref<PLIXTabView> const protector(this);
    unsigned const mask = autoresizingMask();
    setAutoresizingMask(mask | sizableInBothDirections);
    if (Ref<NSWindow> const ownWindow { window() }; ownWindow && m_windowResizeMode != 0) {
        auto const frame = windowFrameFittingCustomView(
            ownWindow->frame(), contentRect().size(), item->customView()->frame().size(), m_windowResizeMode);
        ownWindow->setFrame(frame, true, true);
    }
    setAutoresizingMask(mask);
}

}
