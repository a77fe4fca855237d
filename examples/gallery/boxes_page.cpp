#include "boxes_page.h"
#include "Desk.h"
#include "picture_samples.h"

#include <plix/controls/TQSplitView.h>
#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>

namespace gallery {

using namespace plix;

namespace {

constexpr float margin = 20;
constexpr float pageWidth = 640;
constexpr float pageHeight = 540;

class Sheet final : public Desk {
public:
    using Desk::init;
    void addHeading(std::string_view text, Point place)
    {
        auto const label = NSTextField::labelWithString(text);
        label->setFont(NSFont::boldSystemFontOfSize(13));
        label->setFrame({ place.x, place.y, 280, 18 });
        addSubview(*label);
    }
    void addCaption(std::string_view text, Rect under)
    {
        auto const label = NSTextField::labelWithString(text);
        label->setFont(NSFont::systemFontOfSize(10));
        label->setTextColor(Theme::current().color(ThemeRole::secondaryText));
        label->setAlignment(NSCenterTextAlignment);
        label->setFrame({ under.x - 20, under.maxY() + 4, under.width + 40, 14 });
        addSubview(*label);
    }
};

class Pane final : public NSView {
public:
    using NSView::init;
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::textBackgroundColor()->set();
        NSRectFill(dirty);
    }
};

void addBox(Sheet& desk, Rect frame, char const* title, NSBorderType border, NSTitlePosition position)
{
    auto const box = make<NSBox>(frame);
    box->setTitle(title);
    box->setBorderType(border);
    box->setTitlePosition(position);
    desk.addSubview(*box);
}

void addBoxes(Sheet& desk)
{
    desk.addHeading("Boxes", { margin, margin });
    addBox(desk, { 20, 46, 140, 80 }, "At the top", NSGrooveBorder, NSAtTop);
    addBox(desk, { 172, 46, 140, 80 }, "Above the top", NSGrooveBorder, NSAboveTop);
    addBox(desk, { 324, 46, 140, 80 }, "Line, below", NSLineBorder, NSBelowTop);
    addBox(desk, { 476, 46, 140, 80 }, "At the bottom", NSBezelBorder, NSAtBottom);
    auto const line = make<NSBox>(Rect { 20, 138, 596, 5 });
    line->setBoxType(NSBoxSeparator);
    desk.addSubview(*line);
}

void addImages(Sheet& desk, PictureSamples const& samples)
{
    desk.addHeading("Images", { margin, 156 });
    struct Kind {
        char const* caption;
        NSImageFrameStyle frame;
        bool isEnabled;
    };
    constexpr Kind kinds[] { { "plain", NSImageFrameNone, true }, { "photo", NSImageFramePhoto, true },
        { "grey bezel", NSImageFrameGrayBezel, true }, { "groove", NSImageFrameGroove, true },
        { "button", NSImageFrameButton, true }, { "disabled", NSImageFrameGrayBezel, false } };
    Rect place { 20, 182, 64, 56 };
    for (auto const& kind : kinds) {
        auto const view = make<NSImageView>(place);
        view->setImageFrameStyle(kind.frame);
        view->setImage(samples.badged.front());
        view->setEnabled(kind.isEnabled);
        desk.addSubview(*view);
        desk.addCaption(kind.caption, place);
        place.x += 106;
    }
}

Ref<NSProgressIndicator> indicator(Rect frame, NSProgressIndicatorStyle style, NSControlSize size)
{
    auto made = make<NSProgressIndicator>(frame);
    made->setStyle(style);
    made->setControlSize(size);
    return made;
}

void addProgress(Sheet& desk)
{
    desk.addHeading("Progress", { margin, 274 });
    float y = 302;
    for (double const value : { 0.0, 35.0, 100.0 }) {
        auto const bar = indicator({ 20, y, 280, 14 }, NSProgressIndicatorBarStyle, NSRegularControlSize);
        bar->setIndeterminate(false);
        bar->setDoubleValue(value);
        desk.addSubview(*bar);
        y += 22;
    }
    auto const small = indicator({ 20, y, 280, 10 }, NSProgressIndicatorBarStyle, NSSmallControlSize);
    small->setIndeterminate(false);
    small->setDoubleValue(60);
    desk.addSubview(*small);
    auto const moving = indicator({ 324, 302, 180, 14 }, NSProgressIndicatorBarStyle, NSRegularControlSize);
    moving->startAnimation(nullptr);
    desk.addSubview(*moving);
    auto const wheel = indicator({ 324, 330, 32, 32 }, NSProgressIndicatorSpinningStyle, NSRegularControlSize);
    wheel->startAnimation(nullptr);
    desk.addSubview(*wheel);
    auto const smallWheel = indicator({ 372, 338, 16, 16 }, NSProgressIndicatorSpinningStyle, NSSmallControlSize);
    smallWheel->startAnimation(nullptr);
    desk.addSubview(*smallWheel);
    desk.addSubview(*indicator({ 404, 330, 32, 32 }, NSProgressIndicatorSpinningStyle, NSRegularControlSize));
}

void addSplits(Sheet& desk)
{
    desk.addHeading("Split views", { margin, 400 });
    auto const fill = [&](NSSplitView& split, bool isVertical, Size share) {
        split.setVertical(isVertical);
        for (int i = 0; i < 2; ++i)
            split.addSubview(*make<Pane>(Rect { 0, 0, i == 0 ? share.width : 100, i == 0 ? share.height : 100 }));
        desk.addSubview(split);
    };
    fill(*make<NSSplitView>(Rect { 20, 428, 186, 92 }), true, { 60, 60 });
    fill(*make<TQSplitView>(Rect { 225, 428, 186, 92 }), false, { 150, 150 });
    auto const panes = make<NSSplitView>(Rect { 430, 428, 186, 92 });
    panes->setIsPaneSplitter(true);
    fill(*panes, true, { 100, 100 });
}

}

Ref<NSView> makeBoxesPage()
{
    auto desk = make<Sheet>(Rect { 0, 0, pageWidth, pageHeight });
    auto const samples = PictureSamples::make();
    addBoxes(*desk);
    addImages(*desk, samples);
    addProgress(*desk);
    addSplits(*desk);
    return desk;
}

}
