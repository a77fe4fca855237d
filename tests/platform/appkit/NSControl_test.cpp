#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSScroller.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <cmath>

namespace plix {
namespace {

/// Remembers how it was tracked.
class TrackedCell : public NSActionCell {
    PLIX_CLASS(TrackedCell, NSActionCell);

public:
    using NSActionCell::init;
    bool startTracking(Point start, NSView& view) override
    {
        log.push_back("start " + NSStringFromPoint(start));
        return Base::startTracking(start, view) || isTold;
    }
    bool continueTracking(Point, Point current, NSView&) override
    {
        log.push_back("continue " + NSStringFromPoint(current));
        return goesOn;
    }
    void stopTracking(Point, Point stop, NSView&, bool mouseIsUp) override
    {
        log.push_back("stop " + NSStringFromPoint(stop) + (mouseIsUp ? " up" : ""));
    }
    bool ownPrefersTrackingUntilMouseUp() const override { return untilMouseUp; }
    void drawWithFrame(Rect, NSView&) override { ++draws; }

    std::vector<std::string> log;
    int draws { 0 };
    bool isTold { true };
    bool goesOn { true };
    bool untilMouseUp { false };
};

PLIX_DESCRIBE(TrackedCell)
{
}

class TrackedControl : public NSControl {
    PLIX_CLASS(TrackedControl, NSControl);

public:
    using NSControl::init;
    Class const* ownCellClass() const override { return &TrackedCell::staticClass(); }
    TrackedCell& tracked() const { return static_cast<TrackedCell&>(*cell()); }
};

PLIX_DESCRIBE(TrackedControl)
{
}

class Receiver : public NSObject {
    PLIX_CLASS(Receiver, NSObject);

public:
    void act(NSObject* sender)
    {
        ++calls;
        lastSender = sender;
    }
    int calls { 0 };
    NSObject* lastSender { nullptr };
};

PLIX_DESCRIBE(Receiver)
{
    description.action("act:", &Receiver::act);
}

/// Takes the same action from the responder chain.
class Chained : public NSView {
    PLIX_CLASS(Chained, NSView);

public:
    using NSView::init;
    bool acceptsFirstResponder() const override { return true; }
    void act(NSObject* sender) { lastSender = sender; }
    NSObject* lastSender { nullptr };
};

PLIX_DESCRIBE(Chained)
{
    description.action("act:", &Chained::act);
}

class ControlTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 100, 400, 300 });
        control = make<TrackedControl>(Rect { 10, 10, 100, 40 });
        window->contentView()->addSubview(*control);
        receiver = make<Receiver>();
        control->setTarget(receiver);
        control->setAction(Selector("act:"));
        pump();
        control->tracked().draws = 0;
    }
    TrackedCell& cell() { return control->tracked(); }

    Ref<NSWindow> window;
    Ref<TrackedControl> control;
    Ref<Receiver> receiver;
};

TEST_F(ControlTest, SendsItsActionWhenItIsClicked)
{
    person().click(centerOnScreen(*control));
    pump();
    EXPECT_EQ(receiver->calls, 1);
    EXPECT_EQ(receiver->lastSender, control.get());
    EXPECT_EQ(cell().log, (std::vector<std::string> { "start {50, 20}", "stop {50, 20} up" }));
    EXPECT_EQ(cell().state(), NSOnState);
    EXPECT_FALSE(cell().isHighlighted());
}

TEST_F(ControlTest, IsHighlightedWhileItIsPressed)
{
    std::vector<bool> highlights;
    auto note = [&] { highlights.push_back(cell().isHighlighted()); };
    person().press(centerOnScreen(*control));
    person().then(note);
    person().dragTo(onScreen(*control, { 200, 20 })); // out
    person().then(note);
    person().dragTo(onScreen(*control, { 60, 20 })); // and in again
    person().then(note);
    person().release(onScreen(*control, { 60, 20 }));
    pump();
    EXPECT_EQ(highlights, (std::vector<bool> { true, false, true }));
    EXPECT_EQ(receiver->calls, 1);
    EXPECT_FALSE(cell().isHighlighted());
}

TEST_F(ControlTest, SendsNothingWhenTheButtonIsReleasedOutside)
{
    person().drag(centerOnScreen(*control), onScreen(*control, { 300, 20 }));
    pump();
    EXPECT_EQ(receiver->calls, 0);
    EXPECT_EQ(cell().state(), NSOffState);
    // The next click is a new one.
    person().click(centerOnScreen(*control));
    pump();
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ControlTest, TellsWhetherTheReleaseWasInside)
{
    auto const press = mouseEvent(NSLeftMouseDown, *control, { 50, 20 });
    for (float x : { 50.F, 300.F }) {
        window->postEvent(*mouseEvent(NSLeftMouseUp, *control, { x, 20 }), false);
        EXPECT_EQ(cell().trackMouse(*press, control->bounds(), *control, false), x == 50);
        EXPECT_EQ(receiver->calls, 1);
    }
    window->postEvent(*mouseEvent(NSLeftMouseUp, *control, { 300, 20 }), false);
    EXPECT_TRUE(cell().trackMouse(*press, control->bounds(), *control, true));
    EXPECT_EQ(receiver->calls, 2);
}

TEST_F(ControlTest, FollowsTheMouseAnywhereWhereTheCellSaysSo)
{
    cell().untilMouseUp = true;
    person().drag(centerOnScreen(*control), onScreen(*control, { 300, 20 }), {}, 1);
    pump();
    EXPECT_EQ(cell().log, (std::vector<std::string> { "start {50, 20}", "continue {300, 20}", "stop {300, 20} up" }));
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ControlTest, SendsOnTheEventsOfItsMask)
{
    cell().sendActionOn(NSLeftMouseDownMask | NSLeftMouseDraggedMask);
    std::vector<int> calls;
    person().press(centerOnScreen(*control));
    person().then([&] { calls.push_back(receiver->calls); });
    person().dragTo(onScreen(*control, { 60, 20 }));
    person().then([&] { calls.push_back(receiver->calls); });
    person().release(onScreen(*control, { 60, 20 }));
    pump();
    calls.push_back(receiver->calls);
    EXPECT_EQ(calls, (std::vector<int> { 1, 2, 2 }));
}

TEST_F(ControlTest, RepeatsItsActionWhileItIsHeld)
{
    control->setContinuous(true);
    std::vector<int> calls;
    auto note = [&] { calls.push_back(receiver->calls); };
    person().press(centerOnScreen(*control));
    machine().headlessEvents().postAfter(0.19, note);
    machine().headlessEvents().postAfter(0.21, note);
    machine().headlessEvents().postAfter(0.26, note);
    machine().headlessEvents().postAfter(0.26, [&] { person().release(centerOnScreen(*control)); });
    pass(1);
    calls.push_back(receiver->calls);
    EXPECT_EQ(calls, (std::vector<int> { 0, 1, 3, 4 })); // the release is one more
}

TEST_F(ControlTest, IsLetGoWhereTheApplicationStopsWhileItIsHeld)
{
    control->setContinuous(true);
    auto const stepper = make<NSDatePicker>(Rect { 20, 120, 160, 24 });
    auto const scroller = make<NSScroller>(Rect { 20, 160, 160, 15 });
    scroller->setEnabled(true);
    scroller->setFloatValue(0, 0.2F);
    control->superview()->addSubview(*stepper);
    control->superview()->addSubview(*scroller);
    auto const stopsWhileHeld = [this](Point place) {
        person().press(place);
        bool wasHeld = false;
        machine().headlessEvents().postAfter(0.5, [&] {
            wasHeld = true;
            NSApp->stop(nullptr);
        });
        NSApp->run();
        person().release(place);
        pump();
        return wasHeld;
    };
    EXPECT_TRUE(stopsWhileHeld(centerOnScreen(*control)));
    EXPECT_TRUE(stopsWhileHeld(onScreen(*stepper, { 153, 18 })));
    EXPECT_TRUE(stopsWhileHeld(onScreen(*scroller, { 140, 7 })));
    EXPECT_TRUE(cell().log.size() > 1);
}

TEST_F(ControlTest, DoesNothingWhileItIsDisabled)
{
    control->setEnabled(false);
    person().click(centerOnScreen(*control));
    pump();
    EXPECT_EQ(receiver->calls, 0);
    EXPECT_TRUE(cell().log.empty());
    EXPECT_FALSE(control->acceptsFirstResponder());
}

TEST_F(ControlTest, CanLeaveTheSecondClickAlone)
{
    control->setIgnoresMultiClick(true);
    person().click(centerOnScreen(*control), { .count = 2 });
    pump();
    EXPECT_EQ(receiver->calls, 1);
    control->setIgnoresMultiClick(false);
    person().click(centerOnScreen(*control), { .count = 2 });
    pump();
    EXPECT_EQ(receiver->calls, 3);
}

TEST_F(ControlTest, SendsItsActionAlongTheChainWithoutATarget)
{
    auto const chained = make<Chained>(Rect { 0, 0, 200, 100 });
    window->contentView()->addSubview(*chained);
    chained->addSubview(*control);
    control->setTarget(nullptr);
    clickCenter(*control);
    EXPECT_EQ(receiver->calls, 0);
    EXPECT_EQ(chained->lastSender, control.get());
}

TEST_F(ControlTest, SurvivesBeingTakenOutByItsAction)
{
    control->setActionFunction([this](NSObject*) {
        control->removeFromSuperview();
        control = nullptr;
    });
    person().click(centerOnScreen(*control));
    pump();
    EXPECT_FALSE(control);
}

TEST_F(ControlTest, PerformsAClickAsAPersonWould)
{
    control->performClick(nullptr);
    EXPECT_EQ(receiver->calls, 1);
    EXPECT_EQ(cell().state(), NSOnState);
    control->setEnabled(false);
    control->performClick(nullptr);
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ControlTest, IsDrawnAnewForWhatChangesAndOnlyForThat)
{
    auto drawsAfter = [&](auto change) {
        cell().draws = 0;
        change();
        pump();
        return cell().draws;
    };
    EXPECT_EQ(drawsAfter([&] { control->setStringValue("new"); }), 1);
    EXPECT_EQ(drawsAfter([&] { control->setStringValue("new"); }), 0);
    EXPECT_EQ(drawsAfter([&] { control->setEnabled(false); }), 1);
    EXPECT_EQ(drawsAfter([&] { control->setEnabled(false); }), 0);
    EXPECT_EQ(drawsAfter([&] { control->setFont(NSFont::boldSystemFontOfSize(0)); }), 1);
    EXPECT_EQ(drawsAfter([&] { control->setFont(NSFont::boldSystemFontOfSize(0)); }), 0);
    EXPECT_EQ(drawsAfter([&] { control->setAlignment(NSCenterTextAlignment); }), 1);
    EXPECT_EQ(drawsAfter([&] { control->setTag(5); }), 0);
    EXPECT_EQ(drawsAfter([&] { cell().setState(NSOnState); }), 1);
    EXPECT_EQ(drawsAfter([&] { cell().setBezeled(true); }), 1);
}

TEST_F(ControlTest, TakesValuesFromOthers)
{
    auto const other = make<TrackedControl>(Rect {});
    other->setStringValue("12.5");
    control->takeStringValueFrom(other.get());
    EXPECT_EQ(control->stringValue(), "12.5");
    control->takeIntValueFrom(other.get());
    EXPECT_EQ(control->objectValue(), ObjectValue(12));
    EXPECT_TRUE(control->perform(Selector("takeDoubleValueFrom:"), other.get()));
    EXPECT_EQ(control->doubleValue(), 12.5);
}

TEST(NSControl, WithoutACellReadsAsNothing)
{
    auto const control = make<NSControl>(Rect { 0, 0, 10, 10 });
    EXPECT_EQ(NSControl::cellClass(), nullptr);
    EXPECT_EQ(control->cell(), nullptr);
    control->setStringValue("x");
    EXPECT_EQ(control->stringValue(), "");
    EXPECT_EQ(control->intValue(), 0);
    EXPECT_FALSE(control->isEnabled());
    EXPECT_EQ(control->selectedTag(), -1);
    EXPECT_TRUE(control->objectValue().isNil());
    control->sizeToFit();
    EXPECT_EQ(control->frame(), (Rect { 0, 0, 10, 10 }));
}

TEST(NSTextField, IsMadeAsAFieldToTypeIn)
{
    auto const field = make<NSTextField>(Rect { 0, 0, 100, 22 });
    EXPECT_TRUE(field->isBezeled());
    EXPECT_TRUE(field->drawsBackground());
    EXPECT_TRUE(field->isEditable());
    EXPECT_TRUE(field->isSelectable());
    EXPECT_TRUE(field->isFlipped());
    EXPECT_TRUE(field->isOpaque());
    EXPECT_EQ(field->bezelStyle(), NSTextFieldSquareBezel);
    EXPECT_EQ(field->textColor(), NSColor::controlTextColor().get());
    EXPECT_EQ(field->backgroundColor(), NSColor::textBackgroundColor().get());
}

TEST(NSTextField, SizesALabelToItsText)
{
    auto const label = NSTextField::labelWithString("Name:");
    float const width = std::ceil(NSFont::systemFontOfSize(0)->widthOfString("Name:")) + 4;
    EXPECT_EQ(label->frame(), (Rect { 0, 0, width, 16 }));
    label->setStringValue("A longer name:");
    NSView& view = *label;
    view.sizeToFit();
    EXPECT_GT(label->frame().width, width);
    EXPECT_FALSE(label->acceptsFirstResponder());
}

TEST(NSTextField, MakesCellsOfTheClassThatIsSet)
{
    class SpecialField : public NSTextField {
    public:
        Class const* ownCellClass() const override { return &NSActionCell::staticClass(); }
    };
    EXPECT_EQ(NSTextField::cellClass(), &NSTextFieldCell::staticClass());
    auto const special = make<SpecialField>(Rect {});
    EXPECT_EQ(&special->cell()->isa(), &NSActionCell::staticClass());
    EXPECT_EQ(special->textColor(), nullptr);
}

class TextFieldTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 100, 400, 300 });
    }

    Ref<NSWindow> window;
};

TEST_F(TextFieldTest, LeavesAClickOnALabelToWhatIsBehind)
{
    class Ground : public NSView {
    public:
        void mouseDown(NSEvent&) override { ++presses; }
        int presses { 0 };
    };
    auto const ground = make<Ground>(Rect { 0, 0, 200, 100 });
    window->contentView()->addSubview(*ground);
    auto const label = NSTextField::labelWithString("Label");
    ground->addSubview(*label);
    person().click(centerOnScreen(*label));
    pump();
    EXPECT_EQ(ground->presses, 1);
}

TEST_F(TextFieldTest, DrawsItsTextWithItsBaselineWhereTheFontSays)
{
    auto const label = NSTextField::labelWithString("HHH");
    label->setFrameOrigin({ 20, 30 });
    window->contentView()->addSubview(*label);
    pump();
    auto const ink = inkBounds(window->snapshot(), NSColor::windowBackgroundColor()->components());
    auto const font = NSFont::systemFontOfSize(0);
    int const top = 300 - 30 - 16; // of the label, from the window's top
    int const baseline = top + static_cast<int>(std::lround(font->ascender()));
    EXPECT_EQ(ink.y + ink.height, baseline);
    EXPECT_NEAR(ink.height, font->capHeight(), 1);
    EXPECT_NEAR(ink.x, 20 + 2 + 1, 1);
}

TEST_F(TextFieldTest, AlignsAndTruncatesItsText)
{
    auto const label = NSTextField::labelWithString("Text");
    label->setFrame({ 20, 30, 200, 16 });
    window->contentView()->addSubview(*label);
    auto const ground = NSColor::windowBackgroundColor()->components();
    auto ink = [&] {
        pump();
        return inkBounds(window->snapshot(), ground);
    };
    EXPECT_LT(ink().x, 30);
    label->setAlignment(NSRightTextAlignment);
    EXPECT_NEAR(ink().x + ink().width, 218, 1);
    label->setAlignment(NSCenterTextAlignment);
    EXPECT_NEAR(ink().x + ink().width / 2, 120, 1);
    label->setStringValue("A text that is far too long for the two hundred points of this label");
    EXPECT_GE(ink().x, 22);
    EXPECT_LE(ink().x + ink().width, 218);
}

TEST_F(TextFieldTest, LooksAsItDidInEveryState)
{
    auto const& content = *window->contentView();
    float y = 250;
    auto add = [&](Ref<NSTextField> const& field, float x, float width, float height) {
        field->setFrame({ x, y, width, height });
        const_cast<NSView&>(content).addSubview(*field);
    };
    for (bool isEnabled : { true, false }) {
        auto label = NSTextField::labelWithString("A label");
        label->setEnabled(isEnabled);
        add(label, 20, 100, 16);
        auto coloured = NSTextField::labelWithString("A red one");
        coloured->setTextColor(NSColor::redColor());
        coloured->setEnabled(isEnabled);
        add(coloured, 20 + 120, 100, 16);
        y -= 34;
        auto field = make<NSTextField>(Rect {});
        field->setStringValue("A field");
        field->setEnabled(isEnabled);
        add(field, 20, 100, 22);
        auto rounded = make<NSTextField>(Rect {});
        rounded->setBezelStyle(NSTextFieldRoundedBezel);
        static_cast<NSTextFieldCell*>(rounded->cell())->setPlaceholderString("Search");
        rounded->setEnabled(isEnabled);
        add(rounded, 140, 100, 22);
        auto bordered = make<NSTextField>(Rect {});
        bordered->setBordered(true);
        bordered->setAlignment(NSRightTextAlignment);
        bordered->setStringValue("Bordered");
        bordered->setEnabled(isEnabled);
        add(bordered, 260, 100, 18);
        y -= 50;
    }
    auto wrapped = NSTextField::labelWithString("A longer text that wraps into several lines where there is little room for it.");
    wrapped->cell()->setLineBreakMode(NSLineBreakByWordWrapping);
    y -= 20;
    add(wrapped, 20, 180, 64);
    pump();
    EXPECT_TRUE(matchesReference(window->snapshot(), "appkit/text_fields"));
}

}
}
