#include "cells_pages.h"
#include "Form.h"
#include "page_parts.h"

#include <plix/controls/PLIXImageView.h>
#include <plix/controls/TQSplitView.h>
#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSImageCell.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSSplitView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

// MARK: controls and cells

/// What every control has: a value of any type, a tag, target and action, enabledness and a size.
Ref<NSView> makeNSControlPage()
{
    auto const form = Form::page();
    auto const field = textField("42.5 metres", 160);
    std::vector<Ref<NSTextField>> readings;
    for (auto const* caption : { "stringValue", "intValue", "floatValue" }) {
        readings.push_back(textField("", 110));
        readings.back()->setEditable(false);
        readings.back()->setToolTip(caption);
    }
    auto const read = [field = field.get(), readings] {
        readings[0]->takeStringValueFrom(field);
        readings[1]->takeIntValueFrom(field);
        readings[2]->takeFloatValueFrom(field);
    };
    read();
    field->setActionFunction([read, page = form.get()](NSObject* sender) {
        read();
        page->setStatus(
            "Action of " + sender->describedClass().name() + " with tag " + std::to_string(static_cast<NSControl*>(sender)->tag()));
    });
    field->setTag(7);
    form->addRow("Value", { field, hint("Change it and press Return.") });
    form->addRow("Taken as", { captioned("string", readings[0]), captioned("int", readings[1]), captioned("float", readings[2]) });
    std::vector<Ref<NSView>> sizes;
    for (auto const& [size, title, height] : { std::tuple { NSRegularControlSize, "Regular", 28.F },
             { NSSmallControlSize, "Small", 24.F }, { NSMiniControlSize, "Mini", 20.F } }) {
        auto const button = form->told(make<NSButton>(Rect { 0, 0, 90, height }));
        button->setTitle(title);
        button->cell()->setControlSize(size);
        button->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(size)));
        sizes.push_back(button);
    }
    form->addRow("Sizes", sizes);
    auto const enabled = checkBox("The field and the buttons are enabled", [field, sizes](bool isOn) {
        field->setEnabled(isOn);
        for (auto const& button : sizes)
            static_cast<NSControl*>(button.get())->setEnabled(isOn);
    });
    enabled->setState(NSOnState);
    form->addRow("Enabled", { enabled });
    form->addStatus("A control has a value, and sends its action to its target.");
    form->sizeToRows();
    return form;
}

/// One cell stamps all that is seen here: it is given a value and a frame, and draws.
Ref<NSView> makeNSCellPage()
{
    class Stamps : public NSView {
    public:
        using NSView::init;
        bool isFlipped() const override { return true; }
        void drawRect(Rect) override
        {
            auto const cell = make<NSCell>("");
            cell->setBezeled(true);
            Rect frame { 0, 0, 160, 24 };
            for (auto const& [alignment, text] : { std::pair { NSLeftTextAlignment, "Left" }, { NSCenterTextAlignment, "Centre" },
                     { NSRightTextAlignment, "Right" } }) {
                cell->setAlignment(alignment);
                cell->setStringValue(text);
                cell->drawWithFrame(frame, *this);
                frame.x += 180;
            }
            cell->setAlignment(NSLeftTextAlignment);
            frame = { 0, 40, 160, 24 };
            for (auto const mode : { NSLineBreakByTruncatingHead, NSLineBreakByTruncatingMiddle, NSLineBreakByTruncatingTail }) {
                cell->setLineBreakMode(mode);
                cell->setStringValue("A title that is longer than its place");
                cell->drawWithFrame(frame, *this);
                frame.x += 180;
            }
            frame = { 0, 80, 160, 48 };
            cell->setBezeled(false);
            cell->setBordered(true);
            cell->setWraps(true);
            cell->setStringValue("A text that wraps at the cell’s right edge");
            cell->drawWithFrame(frame, *this);
            cell->setEnabled(false);
            cell->drawWithFrame(NSOffsetRect(frame, 180, 0), *this);
            make<NSCell>(icon(Icon::folder, 32))->drawWithFrame(NSOffsetRect(frame, 360, 0), *this);
        }
    };
    auto const form = Form::page();
    form->addHeading("Alignment, line breaks, and what a cell shows");
    form->addView(make<Stamps>(Rect { 0, 0, 520, 132 }));
    auto const cell = make<NSCell>("How large am I?");
    auto const size = cell->cellSize();
    form->addNote("A cell is no view: the same one can draw in many places. One with this text wants to be "
        + std::to_string(std::lround(size.width)) + " × " + std::to_string(std::lround(size.height)) + " points.");
    form->sizeToRows();
    return form;
}

/// A cell of one's own that follows the mouse: five stars.
Ref<NSView> makeNSActionCellPage()
{
    class RatingCell : public NSActionCell {
    public:
        void drawWithFrame(Rect frame, NSView&) override
        {
            for (int i = 0; i < 5; ++i)
                icon(Icon::star, 24)
                    ->drawInRect({ frame.x + static_cast<float>(i) * 28, frame.y, 24, 24 }, {}, NSCompositeSourceOver,
                        i < intValue() ? 1.0F : 0.2F);
        }
        bool startTracking(Point start, NSView& view) override { return continueTracking(start, start, view); }
        bool continueTracking(Point, Point current, NSView&) override
        {
            setIntValue(std::clamp(static_cast<int>(current.x / 28) + 1, 1, 5));
            return true;
        }
    };
    auto const form = Form::page();
    for (auto const* title : { "The score", "The players", "The hall" }) {
        auto const rating = make<NSControl>(Rect { 0, 0, 140, 24 });
        auto const cell = make<RatingCell>();
        rating->setCell(cell);
        rating->setIntValue(3);
        cell->setActionFunction(nullptr, [page = form.get(), title](NSObject* sender) {
            page->setStatus(std::string(title) + ": " + std::to_string(static_cast<NSControl*>(sender)->intValue()) + " of 5");
        });
        form->addRow(title, { rating });
    }
    form->addNote(
        "A subclass draws the value and says what the mouse does to it; the control sends the action when the button goes up.");
    form->addStatus("Click a star, or drag over them.");
    form->sizeToRows();
    return form;
}

// MARK: images

Ref<NSView> makeNSImageCellPage()
{
    auto const form = Form::page();
    auto const framed = [](Rect frame, NSImageScaling scaling, NSImageAlignment alignment, NSImageFrameStyle style) {
        auto view = make<NSImageView>(frame);
        auto* const cell = static_cast<NSImageCell*>(view->cell());
        cell->setImageScaling(scaling);
        cell->setImageAlignment(alignment);
        cell->setImageFrameStyle(style);
        view->setImage(icon(Icon::folder, 40));
        return view;
    };
    auto const bezel = NSImageFrameGrayBezel;
    form->addRow("Scaling",
        { captioned("in proportion", framed({ 0, 0, 110, 60 }, NSScaleProportionally, NSImageAlignCenter, bezel)),
            captioned("to fit", framed({ 0, 0, 110, 60 }, NSScaleToFit, NSImageAlignCenter, bezel)),
            captioned("none", framed({ 0, 0, 110, 60 }, NSScaleNone, NSImageAlignCenter, bezel)) });
    form->addRow("Alignment",
        { captioned("top left", framed({ 0, 0, 110, 60 }, NSScaleNone, NSImageAlignTopLeft, bezel)),
            captioned("right", framed({ 0, 0, 110, 60 }, NSScaleNone, NSImageAlignRight, bezel)),
            captioned("bottom", framed({ 0, 0, 110, 60 }, NSScaleNone, NSImageAlignBottom, bezel)) });
    std::vector<Ref<NSView>> frames;
    for (auto const& [style, caption] : { std::pair { NSImageFrameNone, "none" }, { NSImageFramePhoto, "photo" },
             { NSImageFrameGrayBezel, "bezel" }, { NSImageFrameGroove, "groove" }, { NSImageFrameButton, "button" } })
        frames.push_back(captioned(caption, framed({ 0, 0, 64, 60 }, NSScaleProportionally, NSImageAlignCenter, style)));
    form->addRow("Frame", frames);
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSImageViewPage()
{
    auto const form = Form::page();
    auto const well = [&](std::string_view name, Ref<NSImage> const& image) {
        auto const view = make<NSImageView>(Rect { 0, 0, 96, 96 });
        view->setImageFrameStyle(NSImageFrameGrayBezel);
        view->setEditable(true);
        view->setImage(image);
        view->setActionFunction([page = form.get(), name = std::string(name)](NSObject* sender) {
            page->setStatus(name + (static_cast<NSImageView*>(sender)->image() ? " has a picture now." : " is empty now."));
        });
        return view;
    };
    auto const left = well("The left one", icon(Icon::folder, 64));
    auto const middle = well("The middle one", icon(Icon::star, 64));
    auto const right = well("The right one", nullptr);
    form->addRow("Editable", { left, middle, right });
    form->addRow("",
        { pushButton("Copy Left",
              [left, page = form.get()] {
                  left->copyImage(nullptr);
                  page->setStatus("The left picture is on the clipboard.");
              }),
            pushButton("Paste Right", [right] { right->paste(nullptr); }),
            pushButton("Clear Right", [right] { right->deleteImage(nullptr); }) });
    form->addNote("Click one to give it the keyboard: then the keys for Cut, Copy and Paste, and Delete, work as well.");
    form->addStatus("Copy a picture from one to another.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXImageViewPage()
{
    auto const form = Form::page();
    auto const place = [](Size size, std::optional<std::string_view> caption) {
        auto view = make<PLIXImageView>(rectWith({}, size));
        view->setDrawsDefaultImage(true);
        view->setDefaultImageString(caption);
        return view;
    };
    auto const artwork = place({ 150, 120 }, "Drop Artwork Here");
    auto const own = place({ 96, 120 }, std::nullopt);
    own->setDefaultImage(icon(Icon::note, 48));
    form->addRow("While empty",
        { captioned("with a caption", artwork), captioned("a border", place({ 114, 120 }, std::nullopt)),
            captioned("an image of one’s own", own) });
    auto const filled = place({ 150, 90 }, std::nullopt);
    filled->setImage(icon(Icon::folder, 64));
    auto const large = place({ 60, 90 }, std::nullopt);
    large->setImage(icon(Icon::folder, 128));
    form->addRow("With an image", { captioned("never larger", filled), captioned("smaller", large) });
    auto const fill = checkBox("The first one has an image", [artwork, page = form.get()](bool isOn) {
        artwork->setImage(isOn ? icon(Icon::star, 96) : nullptr);
        page->setStatus(isOn ? "It shows its image." : "It shows where one belongs.");
    });
    form->addRow("", { fill });
    form->addStatus("A place that says what belongs there.");
    form->sizeToRows();
    return form;
}

// MARK: progress

Ref<NSView> makeNSProgressIndicatorPage()
{
    auto const form = Form::page();
    auto const bar = make<NSProgressIndicator>(Rect { 0, 0, 200, 14 });
    bar->setIndeterminate(false);
    bar->setDoubleValue(30);
    auto const run = pushButton("Run", [weakBar = Weak<NSProgressIndicator>(bar), weakPage = Weak<Form>(form)] {
        NSTimer::scheduledTimerWithTimeInterval(
            0.05,
            [weakBar, weakPage](NSTimer& timer) {
                auto* const running = weakBar.get();
                if (!running || !running->window() || !running->window()->isVisible() || running->doubleValue() >= 100)
                    return timer.invalidate();
                running->incrementBy(2);
                weakPage->setStatus(std::to_string(std::lround(running->doubleValue())) + " %");
            },
            true);
    });
    form->addRow("How far", { bar, run, pushButton("Back", [bar, page = form.get()] {
                                 bar->setDoubleValue(0);
                                 page->setStatus("0 %");
                             }) });
    auto const busy = make<NSProgressIndicator>(Rect { 0, 0, 200, 14 });
    auto const wheel = make<NSProgressIndicator>(Rect { 0, 0, 32, 32 });
    wheel->setStyle(NSProgressIndicatorSpinningStyle);
    auto const small = make<NSProgressIndicator>(Rect { 0, 0, 16, 16 });
    small->setStyle(NSProgressIndicatorSpinningStyle);
    small->setControlSize(NSSmallControlSize);
    form->addRow("Indeterminate", { busy });
    form->addRow("Wheels", { wheel, small });
    form->addRow("", { checkBox("Moving", [busy, wheel, small](bool isOn) {
        for (auto const& one : { busy, wheel, small })
            isOn ? one->startAnimation(nullptr) : one->stopAnimation(nullptr);
    }) });
    auto const thin = make<NSProgressIndicator>(Rect { 0, 0, 200, NSProgressIndicatorPreferredSmallThickness });
    thin->setIndeterminate(false);
    thin->setControlSize(NSSmallControlSize);
    thin->setMaxValue(4);
    thin->setDoubleValue(3);
    form->addRow("Small", { thin, hint("3 of 4") });
    form->addStatus("30 %");
    form->sizeToRows();
    return form;
}

// MARK: boxes and split views

Ref<NSView> makeNSBoxPage()
{
    auto const form = Form::page();
    auto const box = [](std::string_view title, Size size) {
        auto made = make<NSBox>(rectWith({}, size));
        made->setTitle(title);
        return made;
    };
    auto const fonts = box("Text", { 170, 96 });
    for (float y = 12; auto const* title : { "Italic", "Bold" }) {
        auto const choice = checkBox(title,
            [page = form.get(), title](bool isOn) { page->setStatus(std::string(title) + (isOn ? " is on." : " is off.")); });
        choice->setFrameOrigin({ 12, y });
        fonts->addSubview(*choice);
        y += 26;
    }
    auto const untitled = box("", { 100, 96 });
    untitled->setTitlePosition(NSNoTitle);
    auto const colored = box("", { 100, 96 });
    colored->setBoxType(NSBoxCustom);
    colored->setTitlePosition(NSNoTitle);
    colored->setFillColor(NSColor::colorWithCalibratedRed(0.55F, 0.72F, 0.93F, 0.35F));
    form->addRow("Frames", { captioned("with a title", fonts), captioned("without", untitled), captioned("in a colour", colored) });
    auto const line = make<NSBox>(Rect { 0, 0, 390, 5 });
    line->setBoxType(NSBoxSeparator);
    form->addRow("Separator", { line });
    auto const above = box("Above the frame", { 180, 60 });
    above->setTitlePosition(NSAboveTop);
    auto const below = box("In the bottom edge", { 180, 60 });
    below->setTitlePosition(NSAtBottom);
    form->addRow("Titles", { above, below });
    form->addStatus("What is added to a box goes into its content view.");
    form->sizeToRows();
    return form;
}

Ref<NSView> pane(std::string_view text)
{
    auto const label = NSTextField::labelWithString(text);
    label->setAlignment(NSCenterTextAlignment);
    label->setDrawsBackground(true);
    label->setBackgroundColor(NSColor::controlBackgroundColor());
    return label;
}

Ref<NSView> makeNSSplitViewPage()
{
    class Limits : public NSObject {
    public:
        float constrainMinCoordinate(NSSplitView&, float proposed, long divider) { return divider == 0 ? proposed + 60 : proposed; }
        bool canCollapseSubview(NSSplitView& view, NSView& pane) { return &pane == view.subviews().back().get(); }
        bool shouldCollapseSubview(NSSplitView&, NSView&, long) { return true; }
        void splitViewDidResizeSubviews(NSNotification const& notification)
        {
            auto const& split = *static_cast<NSSplitView*>(notification.object.get());
            std::string widths;
            for (auto const& pane : split.subviews())
                widths += (widths.empty() ? "" : " + ")
                    + std::to_string(std::lround(split.isSubviewCollapsed(*pane) ? 0 : pane->frame().width));
            if (form)
                form->setStatus("Panes: " + widths + " points");
        }
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const limits = form->keep(make<Limits>());
    auto const split = make<NSSplitView>(Rect { 0, 0, 520, 220 });
    split->setVertical(true);
    split->addSubview(*pane("At least 60 wide"));
    auto const stack = make<NSSplitView>(Rect { 0, 0, 240, 220 });
    stack->addSubview(*pane("Above"));
    stack->addSubview(*pane("Below"));
    split->addSubview(*stack);
    split->addSubview(*pane("Collapses"));
    split->setPosition(140, 0);
    split->setPosition(380, 1);
    form->addView(split);
    form->addRow("", { pushButton("Equal Shares", [split] {
        split->setPosition(167, 0);
        split->setPosition(343, 1);
    }) });
    form->addStatus("Drag the dividers; double-click the last one.");
    limits->form = form;
    split->setDelegate(limits);
    form->sizeToRows();
    return form;
}

Ref<NSView> makeTQSplitViewPage()
{
    auto const form = Form::page();
    auto const split = make<TQSplitView>(Rect { 0, 0, 520, 180 });
    split->setVertical(true);
    for (auto const* text : { "Left", "Middle", "Right" })
        split->addSubview(*pane(text));
    split->adjustSubviews();
    form->addView(split);
    auto const thickness = make<NSSegmentedControl>(Rect { 0, 0, 200, 24 });
    thickness->setSegmentCount(4);
    for (long i = 0; auto const* label : { "1", "7", "12", "20" })
        thickness->setLabel(label, i++);
    thickness->setSelectedSegment(1);
    thickness->setActionFunction([split, page = form.get()](NSObject* sender) {
        auto const& control = *static_cast<NSSegmentedControl*>(sender);
        split->setDividerThickness(std::stof(control.labelForSegment(control.selectedSegment())));
        split->adjustSubviews();
        split->setNeedsDisplay(true);
        page->setStatus("Dividers are " + control.labelForSegment(control.selectedSegment()) + " points thick.");
    });
    form->addRow("Thickness", { thickness, hint("points") });
    form->addStatus("Dividers are 7 points thick.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "cells_pages.cpp";
constexpr Page familyPages[] {
    { "NSControl", "Control", controlsSection, source, makeNSControlPage },
    { "NSCell", "Cell", controlsSection, source, makeNSCellPage },
    { "NSActionCell", "Cell with an action", controlsSection, source, makeNSActionCellPage },
    { "NSImageView", "Image view", controlsSection, source, makeNSImageViewPage },
    { "NSImageCell", "Image cell", controlsSection, source, makeNSImageCellPage },
    { "PLIXImageView", "Image view with a default image", controlsSection, source, makePLIXImageViewPage },
    { "NSProgressIndicator", "Progress indicator", controlsSection, source, makeNSProgressIndicatorPage },
    { "NSBox", "Box", controlsSection, source, makeNSBoxPage },
    { "NSSplitView", "Split view", controlsSection, source, makeNSSplitViewPage },
    { "TQSplitView", "Split view with thick dividers", controlsSection, source, makeTQSplitViewPage },
};

}

std::span<Page const> cellsPages()
{
    return familyPages;
}

}
