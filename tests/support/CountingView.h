#pragma once

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <functional>
#include <string>
#include <vector>

namespace plix {

/// A view that keeps what it was asked: how often and where it drew, which events came. Fills itself with its colour, where it has
/// one.
class CountingView : public NSView {
    PLIX_CLASS(CountingView, NSView);

public:
    using NSView::init;

    Ref<NSColor> color;
    bool flipped { false };
    bool opaque { false };
    bool takesKeyboard { false };
    bool refusesToBecome { false };
    bool refusesToResign { false };
    int drawCount { 0 };
    std::vector<Rect> drawnRects;
    /// "mouseDown", "keyDown a", "becomeFirstResponder", ... in order.
    std::vector<std::string> log;
    Ref<NSEvent> lastEvent;
    std::function<void(Rect)> whenDrawn;
    /// Called at the end of every event operation.
    std::function<void(NSEvent&)> whenEvent;

    void forget()
    {
        drawCount = 0;
        drawnRects.clear();
        log.clear();
        lastEvent = nullptr;
    }

    // NSView:
    bool isFlipped() const override { return flipped; }
    bool isOpaque() const override { return opaque; }
    void drawRect(Rect rect) override
    {
        ++drawCount;
        drawnRects.push_back(rect);
        if (color) {
            color->set();
            NSRectFill(rect);
        }
        if (whenDrawn)
            whenDrawn(rect);
    }
    void viewWillMoveToWindow(NSWindow* window) override { log.emplace_back(window ? "willMoveToWindow" : "willLeaveWindow"); }
    void viewDidMoveToWindow() override { log.emplace_back(window() ? "didMoveToWindow" : "didLeaveWindow"); }
    void viewWillMoveToSuperview(NSView* view) override { log.emplace_back(view ? "willMoveToSuperview" : "willLeaveSuperview"); }
    void viewDidMoveToSuperview() override { log.emplace_back(superview() ? "didMoveToSuperview" : "didLeaveSuperview"); }
    void viewWillStartLiveResize() override { log.emplace_back("willStartLiveResize"); }
    void viewDidEndLiveResize() override { log.emplace_back("didEndLiveResize"); }
    void viewDidHide() override { log.emplace_back("didHide"); }
    void viewDidUnhide() override { log.emplace_back("didUnhide"); }

    // NSResponder:
    bool acceptsFirstResponder() const override { return takesKeyboard; }
    bool becomeFirstResponder() override
    {
        log.emplace_back("becomeFirstResponder");
        return !refusesToBecome;
    }
    bool resignFirstResponder() override
    {
        log.emplace_back("resignFirstResponder");
        return !refusesToResign;
    }
    void mouseDown(NSEvent& event) override { note("mouseDown", event); }
    void mouseUp(NSEvent& event) override { note("mouseUp", event); }
    void mouseDragged(NSEvent& event) override { note("mouseDragged", event); }
    void mouseMoved(NSEvent& event) override { note("mouseMoved", event); }
    void mouseEntered(NSEvent& event) override { note("mouseEntered", event); }
    void mouseExited(NSEvent& event) override { note("mouseExited", event); }
    void rightMouseDown(NSEvent& event) override { note("rightMouseDown", event); }
    void rightMouseUp(NSEvent& event) override { note("rightMouseUp", event); }
    void otherMouseDown(NSEvent& event) override { note("otherMouseDown", event); }
    void otherMouseUp(NSEvent& event) override { note("otherMouseUp", event); }
    void scrollWheel(NSEvent& event) override { note("scrollWheel", event); }
    void keyDown(NSEvent& event) override { note("keyDown " + event.characters(), event); }
    void keyUp(NSEvent& event) override { note("keyUp " + event.characters(), event); }
    void flagsChanged(NSEvent& event) override { note("flagsChanged", event); }

private:
    void note(std::string what, NSEvent& event)
    {
        log.push_back(std::move(what));
        lastEvent = Ref<NSEvent>(event);
        if (whenEvent)
            whenEvent(event);
    }
};

}
