#include "scrolling_pages.h"
#include "Form.h"
#include "page_parts.h"

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/attribute_names.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace gallery {

using namespace plix;

namespace {

/// A field of coloured squares with their numbers.
class Squares : public NSView {
public:
    using NSView::init;
    static constexpr float side = 60;

    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        for (float y = std::floor(dirty.y / side) * side; y < dirty.maxY(); y += side) {
            for (float x = std::floor(dirty.x / side) * side; x < dirty.maxX(); x += side)
                drawSquare({ x, y, side, side });
        }
    }

private:
    void drawSquare(Rect square) const
    {
        NSColor::colorWithCalibratedHue(square.x / bounds().width, 0.25F + 0.5F * square.y / bounds().height, 0.9F, 1)->set();
        NSRectFill(square);
        auto const number = std::to_string(std::lround(square.y / side)) + "," + std::to_string(std::lround(square.x / side));
        make<NSAttributedString>(number,
            Attributes { { NSFontAttributeName, NSFont::systemFontOfSize(11) },
                { NSForegroundColorAttributeName, NSColor::colorWithCalibratedWhite(0.1F, 1) } })
            ->drawAtPoint({ square.x + 6, square.y + 4 });
    }
};

std::string place(Rect visible)
{
    return "Visible from (" + std::to_string(std::lround(visible.x)) + ", " + std::to_string(std::lround(visible.y)) + ") to ("
        + std::to_string(std::lround(visible.maxX())) + ", " + std::to_string(std::lround(visible.maxY())) + ")";
}

/// Has the page's status line say what is visible, now and whenever that changes.
void tellPlace(NSScrollView& scroll, Form& form)
{
    scroll.contentView()->setPostsBoundsChangedNotifications(true);
    auto const tell = [page = &form](NSNotification const& notification) {
        page->setStatus(place(static_cast<NSClipView*>(notification.object.get())->documentVisibleRect()));
    };
    form.keep(NSNotificationCenter::defaultCenter().addObserver(tell, NSViewBoundsDidChangeNotification, scroll.contentView()));
    form.addStatus(place(scroll.documentVisibleRect()));
}

Ref<NSView> makeNSScrollViewPage()
{
    auto const form = Form::page();
    auto const scroll = make<NSScrollView>(Rect { 0, 0, 520, 240 });
    scroll->setBorderType(NSBezelBorder);
    scroll->setHasVerticalScroller(true);
    scroll->setHasHorizontalScroller(true);
    scroll->setAutohidesScrollers(true);
    scroll->setLineScroll(Squares::side);
    scroll->setDocumentView(make<Squares>(Rect { 0, 0, 1200, 1800 }));
    form->addView(scroll);
    form->addRow("Go",
        { pushButton("Top", [scroll] { scroll->scrollToBeginningOfDocument(nullptr); }),
            pushButton("Page Down", [scroll] { scroll->scrollPageDown(nullptr); }),
            pushButton("Line Down", [scroll] { scroll->scrollLineDown(nullptr); }),
            pushButton("End", [scroll] { scroll->scrollToEndOfDocument(nullptr); }) });
    auto const large = checkBox("Large document", [scroll](bool isOn) {
        scroll->documentView()->setFrameSize(isOn ? Size { 1200, 1800 } : Size { 300, 120 });
    });
    large->setState(NSOnState);
    form->addRow("", { large, hint("Scrollers that aren’t needed hide.") });
    tellPlace(*scroll, *form);
    form->sizeToRows();
    return form;
}

/// The window onto a document: scrolling moves the origin of its bounds.
Ref<NSView> makeNSClipViewPage()
{
    auto const form = Form::page();
    auto const scroll = make<NSScrollView>(Rect { 0, 0, 520, 200 });
    scroll->setBorderType(NSLineBorder);
    auto const clip = Ref<NSClipView>(scroll->contentView());
    clip->setBackgroundColor(NSColor::lightGrayColor());
    clip->setDocumentView(make<Squares>(Rect { 0, 0, 1200, 420 }));
    clip->setDocumentCursor(&NSCursor::openHandCursor());
    form->addView(scroll);
    auto const to = [clip](Point point) { return [clip, point] { clip->scrollTo(point); }; };
    form->addRow("Scroll to",
        { pushButton("(0, 0)", to({ 0, 0 })), pushButton("(300, 100)", to({ 300, 100 })),
            pushButton("(9999, 9999)", to({ 9999, 9999 })) });
    auto const copies = checkBox("Moves the pixels that stay in view", [clip](bool isOn) { clip->setCopiesOnScroll(isOn); });
    copies->setState(NSOnState);
    form->addRow("", { copies });
    form->addNote("Without scrollers of its own: the wheel scrolls, and where scrolling goes is kept within the document.");
    tellPlace(*scroll, *form);
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSScrollerPage()
{
    auto const form = Form::page();
    auto const scroller = [&](Rect frame, float value, float proportion, NSScrollArrowPosition arrows) {
        auto const made = make<NSScroller>(frame);
        made->setArrowsPosition(arrows);
        made->setFloatValue(value, proportion);
        made->setEnabled(true);
        made->setActionFunction([page = form.get()](NSObject* sender) {
            auto& moved = *static_cast<NSScroller*>(sender);
            auto const part = moved.hitPart();
            bool const isBack = part == NSScrollerDecrementPage || part == NSScrollerDecrementLine;
            float const step = part == NSScrollerDecrementPage || part == NSScrollerIncrementPage ? moved.knobProportion() : 0.05F;
            if (part != NSScrollerKnob && part != NSScrollerKnobSlot)
                moved.setFloatValue(moved.floatValue() + (isBack ? -step : step));
            page->setStatus("Value " + std::to_string(std::lround(moved.floatValue() * 100)) + " %");
        });
        return made;
    };
    form->addRow("Usual", { scroller({ 0, 0, 380, 15 }, 0.3F, 0.25F, NSScrollerArrowsNone) });
    form->addRow("With arrows", { scroller({ 0, 0, 380, 15 }, 0, 0.5F, NSScrollerArrowsMaxEnd) });
    form->addRow("At the start", { scroller({ 0, 0, 380, 15 }, 0.5F, 0.1F, NSScrollerArrowsMinEnd) });
    auto const small
        = scroller({ 0, 0, 380, NSScroller::scrollerWidthForControlSize(NSSmallControlSize) }, 1, 0.25F, NSScrollerArrowsNone);
    small->setControlSize(NSSmallControlSize);
    form->addRow("Small", { small });
    auto const disabled = scroller({ 0, 0, 380, 15 }, 0.3F, 0.25F, NSScrollerArrowsNone);
    disabled->setEnabled(false);
    form->addRow("Disabled", { disabled });
    form->addRow("Upright",
        { scroller({ 0, 0, 15, 140 }, 0.2F, 0.4F, NSScrollerArrowsNone),
            scroller({ 0, 0, 15, 140 }, 0.6F, 0.2F, NSScrollerArrowsMaxEnd) });
    form->addStatus("Drag a knob, press beside it, hold an arrow.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "scrolling_pages.cpp";
constexpr Page familyPages[] {
    { "NSScrollView", "Scroll view", controlsSection, source, makeNSScrollViewPage },
    { "NSClipView", "Clip view", controlsSection, source, makeNSClipViewPage },
    { "NSScroller", "Scroller", controlsSection, source, makeNSScrollerPage },
};

}

std::span<Page const> scrollingPages()
{
    return familyPages;
}

}
