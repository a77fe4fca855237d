#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

namespace plix {
namespace {

class Receiver : public NSObject {
    PLIX_CLASS(Receiver, NSObject);

public:
    void act(NSObject* sender)
    {
        ++calls;
        lastSender = sender;
        if (auto const* button = dynamic_cast<NSButton*>(sender))
            states.push_back(button->state());
    }
    int calls { 0 };
    NSObject* lastSender { nullptr };
    std::vector<int> states;
};

PLIX_DESCRIBE(Receiver)
{
    description.action("act:", &Receiver::act);
}

class ButtonTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 100, 400, 300 });
        receiver = make<Receiver>();
        button = addButton({ 20, 200, 120, 24 }, "Apply");
    }

    Ref<NSButton> addButton(Rect frame, std::string_view title, NSButtonType type = NSMomentaryPushInButton)
    {
        auto added = make<NSButton>(frame);
        added->setButtonType(type);
        added->setTitle(title);
        added->setTarget(receiver);
        added->setAction(Selector("act:"));
        window->contentView()->addSubview(*added);
        pump();
        return added;
    }
    Ref<NSBitmapImageRep> picture(NSButton& shown) { return shown.bitmapImageRepForCachingDisplayInRect(shown.bounds()); }
    Ref<NSWindow> window;
    Ref<Receiver> receiver;
    Ref<NSButton> button;
};

// MARK: clicks

TEST_F(ButtonTest, AClickSendsTheActionWithTheButtonAsSender)
{
    clickCenter(*button);
    EXPECT_EQ(receiver->calls, 1);
    EXPECT_EQ(receiver->lastSender, button.get());
}

TEST_F(ButtonTest, ADoubleClickSendsTwice)
{
    clickCenter(*button, { .count = 2 });
    EXPECT_EQ(receiver->calls, 2);
}

TEST_F(ButtonTest, AReleaseOutsideSendsNothing)
{
    drag(*button, { 60, 12 }, { 300, 12 });
    EXPECT_EQ(receiver->calls, 0);
    EXPECT_FALSE(button->cell()->isHighlighted());
}

TEST_F(ButtonTest, ADisabledButtonIgnoresClicksAndKeys)
{
    button->setKeyEquivalent("x");
    button->setEnabled(false);
    clickCenter(*button);
    key(U'x');
    EXPECT_EQ(receiver->calls, 0);
}

TEST_F(ButtonTest, AMomentaryButtonStaysOff)
{
    clickCenter(*button);
    EXPECT_EQ(button->state(), NSOffState);
    EXPECT_EQ(receiver->states, std::vector<int> { 0 });
}

TEST_F(ButtonTest, AButtonOfStateTogglesBeforeItsActionIsSent)
{
    for (auto const type : { NSPushOnPushOffButton, NSOnOffButton, NSToggleButton, NSSwitchButton }) {
        receiver->states.clear();
        auto const toggled = addButton({ 20, 150, 120, 24 }, "On", type);
        clickCenter(*toggled);
        clickCenter(*toggled);
        EXPECT_EQ(receiver->states, (std::vector<int> { 1, 0 })) << type;
        toggled->removeFromSuperview();
    }
}

TEST_F(ButtonTest, MixedFollowsOff)
{
    auto const box = addButton({ 20, 150, 120, 18 }, "Parts", NSSwitchButton);
    box->setAllowsMixedState(true);
    for (int const expected : { NSOnState, NSOffState, NSMixedState, NSOnState }) {
        if (box->state() == NSOffState && receiver->states.empty()) {
            box->setState(NSMixedState);
            receiver->states.push_back(0);
        }
        clickCenter(*box);
        EXPECT_EQ(box->state(), expected);
    }
}

TEST_F(ButtonTest, AClickOnTheTitleOfACheckBoxCountsToo)
{
    auto const box = addButton({ 20, 150, 120, 18 }, "Remember", NSSwitchButton);
    click(*box, { 60, 9 });
    EXPECT_EQ(box->state(), NSOnState);
}

TEST_F(ButtonTest, PerformClickActsAsAClick)
{
    auto const box = addButton({ 20, 150, 120, 18 }, "Remember", NSSwitchButton);
    box->performClick(nullptr);
    EXPECT_EQ(box->state(), NSOnState);
    EXPECT_EQ(receiver->calls, 1);
    EXPECT_FALSE(box->cell()->isHighlighted());
    box->setEnabled(false);
    box->performClick(nullptr);
    EXPECT_EQ(box->state(), NSOnState);
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ButtonTest, AContinuousButtonRepeatsWhileItIsHeld)
{
    button->setContinuous(true);
    button->setPeriodicDelay(0.3F, 0.1F);
    person().press(centerOnScreen(*button));
    machine().headlessEvents().postAfter(0.75, [&] { person().release(centerOnScreen(*button)); });
    pass(1);
    // After 0.3, 0.4, 0.5, 0.6 and 0.7 seconds, and at the release.
    EXPECT_EQ(receiver->calls, 6);
}

TEST_F(ButtonTest, ThePeriodicDelayIsKept)
{
    button->setPeriodicDelay(0.5F, 0.25F);
    float delay = 0;
    float interval = 0;
    button->getPeriodicDelay(delay, interval);
    EXPECT_FLOAT_EQ(delay, 0.5F);
    EXPECT_FLOAT_EQ(interval, 0.25F);
}

TEST_F(ButtonTest, AnActionMayTakeTheButtonAway)
{
    button->setTarget(*button, &NSView::removeFromSuperview);
    clickCenter(*button);
    EXPECT_EQ(button->superview(), nullptr);
}

TEST_F(ButtonTest, AnActionMayCloseTheWindow)
{
    button->setTarget(*window, &NSWindow::close);
    clickCenter(*button);
    EXPECT_FALSE(window->isVisible());
}

// MARK: radio buttons

TEST_F(ButtonTest, RadioButtonsOfOneActionTurnEachOtherOff)
{
    std::vector<Ref<NSButton>> group;
    for (int i = 0; i < 3; ++i)
        group.push_back(addButton({ 20, 20 + 24.F * static_cast<float>(i), 120, 18 }, "Choice", NSRadioButton));
    clickCenter(*group[0]);
    clickCenter(*group[2]);
    EXPECT_EQ(group[0]->state(), NSOffState);
    EXPECT_EQ(group[1]->state(), NSOffState);
    EXPECT_EQ(group[2]->state(), NSOnState);
}

TEST_F(ButtonTest, RadioButtonsWhoseActionsAreFunctionsTurnEachOtherOffBefore)
{
    std::vector<Ref<NSButton>> group;
    std::vector<int> onWhileCalled;
    for (int i = 0; i < 3; ++i) {
        group.push_back(addButton({ 20, 20 + 24.F * static_cast<float>(i), 120, 18 }, "Choice", NSRadioButton));
        group.back()->setActionFunction([&](NSObject*) {
            onWhileCalled.push_back(0);
            for (auto const& one : group)
                onWhileCalled.back() += one->state() == NSOnState ? 1 : 0;
        });
    }
    clickCenter(*group[0]);
    clickCenter(*group[2]);
    EXPECT_EQ(group[0]->state(), NSOffState);
    EXPECT_EQ(group[2]->state(), NSOnState);
    EXPECT_EQ(onWhileCalled, (std::vector<int> { 1, 1 }));
}

TEST_F(ButtonTest, ARadioButtonThatIsOnStaysOn)
{
    auto const radio = addButton({ 20, 20, 120, 18 }, "Choice", NSRadioButton);
    clickCenter(*radio);
    clickCenter(*radio);
    EXPECT_EQ(radio->state(), NSOnState);
    EXPECT_EQ(receiver->calls, 2);
}

TEST_F(ButtonTest, RadioButtonsOfAnotherTargetOrSuperviewAreLeftAlone)
{
    auto const radio = addButton({ 20, 20, 120, 18 }, "Choice", NSRadioButton);
    auto const other = addButton({ 20, 44, 120, 18 }, "Other", NSRadioButton);
    auto const otherReceiver = make<Receiver>();
    other->setTarget(otherReceiver);
    other->setState(NSOnState);
    auto const box = make<NSView>(Rect { 200, 20, 150, 100 });
    window->contentView()->addSubview(*box);
    auto const inside = addButton({ 0, 0, 100, 18 }, "Inside", NSRadioButton);
    box->addSubview(*inside);
    inside->setState(NSOnState);
    clickCenter(*radio);
    EXPECT_EQ(other->state(), NSOnState);
    EXPECT_EQ(inside->state(), NSOnState);
}

// MARK: keys

TEST_F(ButtonTest, TheSpaceBarPressesTheButtonThatHasTheKeyboard)
{
    window->makeFirstResponder(button.get());
    key(U' ');
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ButtonTest, OtherKeysGoOn)
{
    window->makeFirstResponder(button.get());
    key(U'q');
    EXPECT_EQ(receiver->calls, 0);
}

TEST_F(ButtonTest, TabGoesFromButtonToButton)
{
    auto const second = addButton({ 160, 200, 120, 24 }, "Cancel");
    window->recalculateKeyViewLoop();
    window->makeFirstResponder(button.get());
    key(U'\t');
    EXPECT_EQ(window->firstResponder(), second.get());
}

TEST_F(ButtonTest, ADisabledButtonTakesNoKeyboard)
{
    button->setEnabled(false);
    EXPECT_FALSE(button->acceptsFirstResponder());
    EXPECT_FALSE(button->canBecomeKeyView());
}

TEST_F(ButtonTest, ReturnPressesTheButtonWhoseKeyItIs)
{
    button->setKeyEquivalent("\r");
    key(U'\r');
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ButtonTest, EnterIsReturnToo)
{
    button->setKeyEquivalent("\r");
    key(NSEnterCharacter);
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ButtonTest, EscapePressesTheButtonWhoseKeyItIs)
{
    button->setKeyEquivalent("\x1b");
    key(0x1B);
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ButtonTest, AKeyWithTheShortcutModifierPressesToo)
{
    button->setKeyEquivalent("d");
    button->setKeyEquivalentModifierMask(NSCommandKeyMask);
    key(U'd', NSControlKeyMask);
    EXPECT_EQ(receiver->calls, 1);
    key(U'd');
    EXPECT_EQ(receiver->calls, 1) << "without the modifier";
}

TEST_F(ButtonTest, AKeyOfAHiddenButtonDoesNothing)
{
    button->setKeyEquivalent("\r");
    button->setHidden(true);
    key(U'\r');
    EXPECT_EQ(receiver->calls, 0);
}

TEST_F(ButtonTest, AKeyPressesOneButtonOnly)
{
    auto const second = addButton({ 160, 200, 120, 24 }, "Too");
    button->setKeyEquivalent("\r");
    second->setKeyEquivalent("\r");
    key(U'\r');
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ButtonTest, AlternateCountsInAKeyEquivalent)
{
    button->setKeyEquivalent("d");
    button->setKeyEquivalentModifierMask(NSAlternateKeyMask);
    key(U'd');
    EXPECT_EQ(receiver->calls, 0);
    key(U'd', NSAlternateKeyMask);
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ButtonTest, TheWindowsDefaultButtonIsPressedByReturn)
{
    window->setDefaultButton(button.get());
    key(U'\r');
    EXPECT_EQ(receiver->calls, 1);
}

// MARK: values

TEST_F(ButtonTest, ItsValueIsItsState)
{
    auto const box = addButton({ 20, 150, 120, 18 }, "Remember", NSSwitchButton);
    box->setIntValue(1);
    EXPECT_EQ(box->state(), NSOnState);
    EXPECT_EQ(box->stringValue(), "1");
    EXPECT_EQ(box->objectValue(), ObjectValue(1));
    box->setObjectValue(false);
    EXPECT_EQ(box->state(), NSOffState);
    box->setStringValue("1");
    EXPECT_EQ(box->doubleValue(), 1);
    box->setFloatValue(0);
    EXPECT_EQ(box->intValue(), 0);
    EXPECT_EQ(box->title(), "Remember");
}

TEST_F(ButtonTest, MixedIsOnWhereItIsNotAllowed)
{
    auto const box = addButton({ 20, 150, 120, 18 }, "Remember", NSSwitchButton);
    box->setState(NSMixedState);
    EXPECT_EQ(box->state(), NSOnState);
    box->setAllowsMixedState(true);
    box->setState(NSMixedState);
    EXPECT_EQ(box->state(), NSMixedState);
    box->setAllowsMixedState(false);
    EXPECT_EQ(box->state(), NSOnState);
}

TEST_F(ButtonTest, NewButtonsAreCalledButton)
{
    EXPECT_EQ(make<NSButton>(Rect {})->title(), "Button");
    EXPECT_TRUE(make<NSButton>(Rect {})->isBordered());
    EXPECT_EQ(make<NSButtonCell>()->title(), "Button");
}

TEST_F(ButtonTest, BrokenTextInATitleIsMended)
{
    button->setTitle("a\xFF"
                     "b");
    EXPECT_EQ(button->title(),
        "a\xEF\xBF\xBD"
        "b");
}

TEST_F(ButtonTest, ATitleOfItsOwnLookIsKept)
{
    auto const title = make<NSAttributedString>("Red", Attributes { { NSForegroundColorAttributeName, NSColor::redColor() } });
    button->setAttributedTitle(title);
    EXPECT_EQ(button->attributedTitle(), title);
    EXPECT_EQ(button->title(), "Red");
    button->setTitle("Plain");
    EXPECT_EQ(button->attributedTitle()->string(), "Plain");
}

// MARK: images

TEST_F(ButtonTest, AnImageStandsBesideATitleAndAloneWithoutOne)
{
    auto const image = make<NSImage>(Size { 16, 16 });
    button->setImage(image);
    EXPECT_EQ(button->imagePosition(), NSImageLeft);
    auto const bare = addButton({ 20, 150, 40, 24 }, "");
    bare->setImage(image);
    EXPECT_EQ(bare->imagePosition(), NSImageOnly);
}

TEST_F(ButtonTest, TheAlternateTitleAndImageShowWhileItIsOn)
{
    auto const cell = make<NSButtonCell>("Play");
    cell->setButtonType(NSToggleButton);
    cell->setAlternateTitle("Pause");
    EXPECT_EQ(cell->attributedTitle()->string(), "Play");
    cell->setState(NSOnState);
    EXPECT_EQ(cell->attributedTitle()->string(), "Pause");
    cell->setState(NSOffState);
    cell->setHighlighted(true);
    EXPECT_EQ(cell->attributedTitle()->string(), "Pause");
}

TEST_F(ButtonTest, AMomentaryChangeButtonChangesWhileItIsPressedOnly)
{
    auto const cell = make<NSButtonCell>("Before");
    cell->setButtonType(NSMomentaryChangeButton);
    cell->setAlternateTitle("During");
    cell->setHighlighted(true);
    EXPECT_EQ(cell->attributedTitle()->string(), "During");
    cell->setHighlighted(false);
    cell->setState(NSOnState);
    EXPECT_EQ(cell->attributedTitle()->string(), "Before");
}

TEST_F(ButtonTest, ADisabledButtonsImageIsFaded)
{
    auto const bare = addButton({ 20, 150, 40, 40 }, "");
    bare->setBordered(false);
    bare->setImage(imageOfColor({ 20, 20 }, colors::red));
    auto const enabled = picture(*bare);
    bare->setEnabled(false);
    auto const disabled = picture(*bare);
    EXPECT_TRUE(pixelNear(enabled, 20, 20, colors::red));
    EXPECT_FALSE(pixelNear(disabled, 20, 20, colors::red, 0.2F));
    static_cast<NSButtonCell*>(bare->cell())->setImageDimsWhenDisabled(false);
    EXPECT_TRUE(pixelNear(picture(*bare), 20, 20, colors::red));
}

// MARK: size

TEST_F(ButtonTest, FitsItsTitle)
{
    button->setTitle("A rather longer title");
    button->sizeToFit();
    auto const width = button->frame().width;
    button->setTitle("Short");
    button->sizeToFit();
    EXPECT_LT(button->frame().width, width);
    EXPECT_EQ(button->frame().height, 24);
}

TEST_F(ButtonTest, IsLowerInSmallerSizes)
{
    float last = 100;
    for (auto const size : { NSRegularControlSize, NSSmallControlSize, NSMiniControlSize }) {
        auto const cell = make<NSButtonCell>("Apply");
        cell->setControlSize(size);
        cell->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(size)));
        EXPECT_LT(cell->cellSize().height, last);
        last = cell->cellSize().height;
    }
}

TEST_F(ButtonTest, ACheckBoxHasRoomForItsBox)
{
    auto const cell = make<NSButtonCell>("");
    cell->setButtonType(NSSwitchButton);
    EXPECT_GE(cell->cellSize().width, 16);
    EXPECT_GE(cell->cellSize().height, 16);
    EXPECT_EQ(cell->imageRectForBounds({ 0, 0, 100, 18 }), (Rect { 1, 2, 14, 14 }));
    EXPECT_GE(cell->titleRectForBounds({ 0, 0, 100, 18 }).x, 20);
}

TEST_F(ButtonTest, SurvivesAFrameWithoutRoom)
{
    for (Size const size : { Size { 0, 0 }, Size { 1, 1 }, Size { 3, 100 }, Size { 100, 2 } }) {
        button->setFrameSize(size);
        button->display();
    }
    SUCCEED();
}

// MARK: looks

TEST_F(ButtonTest, APressIsSeenUntilTheRelease)
{
    auto const before = picture(*button);
    person().press(centerOnScreen(*button));
    person().then([&] {
        EXPECT_TRUE(button->cell()->isHighlighted());
        EXPECT_GT(countDifferences(before, picture(*button)), 200);
    });
    person().release(centerOnScreen(*button));
    pump();
    EXPECT_FALSE(button->cell()->isHighlighted());
}

TEST_F(ButtonTest, ThePointerLightsItUp)
{
    auto const before = picture(*button);
    moveMouse(*button, { 60, 12 });
    auto const hovered = picture(*button);
    EXPECT_GT(countDifferences(before, hovered, 0.01F), 200);
    moveMouse(*button, { 60, -60 });
    EXPECT_EQ(countDifferences(before, picture(*button), 0.001F), 0);
}

TEST_F(ButtonTest, AButtonMayShowItsBezelUnderThePointerOnly)
{
    button->setTitle("");
    button->setShowsBorderOnlyWhileMouseInside(true);
    auto const ground = picture(*button);
    EXPECT_EQ(countPixels(ground, [](std::uint32_t pixel) { return pixel >> 24 != 0; }), 0);
    moveMouse(*button, { 60, 12 });
    EXPECT_GT(countPixels(picture(*button), [](std::uint32_t pixel) { return pixel >> 24 != 0; }), 1000);
}

TEST_F(ButtonTest, ATransparentButtonDrawsNothingAndCanBePressed)
{
    button->setTransparent(true);
    EXPECT_EQ(countPixels(picture(*button), [](std::uint32_t pixel) { return pixel >> 24 != 0; }), 0);
    clickCenter(*button);
    EXPECT_EQ(receiver->calls, 1);
}

TEST_F(ButtonTest, TheDefaultButtonIsFilledWithTheHighlightColour)
{
    auto const isBlue = [](std::uint32_t pixel) { return (pixel & 0xFF) > 0xA0 && (pixel >> 16 & 0xFF) < 0x60; };
    EXPECT_EQ(countPixels(picture(*button), isBlue), 0);
    button->setKeyEquivalent("\r");
    EXPECT_GT(countPixels(picture(*button), isBlue), 1000);
}

TEST_F(ButtonTest, InAnInactiveWindowTheDefaultButtonIsPlain)
{
    button->setKeyEquivalent("\r");
    auto const other = showWindow({ 500, 100, 100, 100 });
    auto const isBlue = [](std::uint32_t pixel) { return (pixel & 0xFF) > 0xA0 && (pixel >> 16 & 0xFF) < 0x60; };
    EXPECT_EQ(countPixels(picture(*button), isBlue), 0);
}

TEST_F(ButtonTest, TheKeyboardIsSeenAsARing)
{
    auto const before = picture(*button);
    window->makeFirstResponder(button.get());
    EXPECT_GT(countDifferences(before, picture(*button)), 100);
    window->makeFirstResponder(nullptr);
    EXPECT_EQ(countDifferences(before, picture(*button)), 0);
}

TEST_F(ButtonTest, ACheckedBoxDiffersFromAMixedAndAnEmptyOne)
{
    auto const box = addButton({ 20, 150, 120, 18 }, "Remember", NSSwitchButton);
    box->setAllowsMixedState(true);
    auto const off = picture(*box);
    box->setState(NSOnState);
    auto const on = picture(*box);
    box->setState(NSMixedState);
    auto const mixed = picture(*box);
    PixelRect const indicator { 0, 0, 16, 18 };
    EXPECT_GT(countDifferences(off, on), 60);
    EXPECT_GT(countDifferences(on, mixed), 8);
    EXPECT_TRUE(hasInk(off, indicator, colors::clear));
}

TEST_F(ButtonTest, DrawsNewWhenItsLookChanges)
{
    struct Row {
        char const* what;
        void (*change)(NSButton&);
    };
    constexpr Row rows[] {
        { "title", [](NSButton& b) { b.setTitle("Other"); } },
        { "state", [](NSButton& b) { b.setState(NSOnState); } },
        { "bezel", [](NSButton& b) { b.setBezelStyle(NSRoundRectBezelStyle); } },
        { "enabled", [](NSButton& b) { b.setEnabled(false); } },
        { "font", [](NSButton& b) { b.setFont(NSFont::systemFontOfSize(9)); } },
        { "key", [](NSButton& b) { b.setKeyEquivalent("\r"); } },
    };
    for (auto const& row : rows) {
        pump();
        ASSERT_FALSE(button->needsDisplay()) << row.what;
        row.change(*button);
        EXPECT_TRUE(button->needsDisplay()) << row.what;
    }
}

TEST_F(ButtonTest, SettingTheSameAgainDrawsNothing)
{
    button->setBezelStyle(NSRoundRectBezelStyle);
    pump();
    button->setBezelStyle(NSRoundRectBezelStyle);
    button->setTransparent(false);
    button->setState(NSOffState);
    EXPECT_FALSE(button->needsDisplay());
}

TEST_F(ButtonTest, TextIsReadableOnEveryFace)
{
    for (auto const appearance : { Appearance::light, Appearance::dark }) {
        auto const contrast = [&](ThemeRole text, ThemeRole face) {
            return contrastRatio(themeColor(text, appearance), themeColor(face, appearance));
        };
        for (auto const face : { ThemeRole::buttonTop, ThemeRole::buttonBottom, ThemeRole::buttonHoveredTop,
                 ThemeRole::buttonHoveredBottom, ThemeRole::buttonPressedTop, ThemeRole::buttonPressedBottom })
            EXPECT_GE(contrast(ThemeRole::buttonText, face), 4.5F) << static_cast<int>(face);
        for (auto const face : { ThemeRole::buttonOnTop, ThemeRole::buttonOnBottom })
            EXPECT_GE(contrast(ThemeRole::buttonOnText, face), 4.5F) << static_cast<int>(face);
        float const disabled = contrast(ThemeRole::buttonDisabledText, ThemeRole::buttonDisabled);
        EXPECT_GE(disabled, 2.5F);
        EXPECT_LT(disabled, contrast(ThemeRole::buttonText, ThemeRole::buttonTop) / 2) << "visibly paler";
    }
}

// MARK: cells

TEST_F(ButtonTest, ACopyOfACellHasAllOfIt)
{
    auto const cell = make<NSButtonCell>("Title");
    cell->setButtonType(NSSwitchButton);
    cell->setAlternateTitle("Other");
    cell->setKeyEquivalent("k");
    cell->setKeyEquivalentModifierMask(NSCommandKeyMask);
    cell->setBezelStyle(NSCircularBezelStyle);
    cell->setState(NSOnState);
    cell->setImage(make<NSImage>(Size { 8, 8 }));
    cell->setTag(5);
    auto const copy = cell->copy();
    EXPECT_EQ(copy->title(), "Title");
    EXPECT_EQ(copy->alternateTitle(), "Other");
    EXPECT_EQ(copy->keyEquivalent(), "k");
    EXPECT_EQ(copy->keyEquivalentModifierMask(), NSCommandKeyMask);
    EXPECT_EQ(copy->bezelStyle(), NSCircularBezelStyle);
    EXPECT_EQ(copy->state(), NSOnState);
    EXPECT_EQ(copy->image(), cell->image());
    EXPECT_EQ(copy->tag(), 5);
    EXPECT_EQ(copy->face(), ButtonFace::checkBox);
}

TEST_F(ButtonTest, ButtonsMadeFromNowOnMayHaveAnotherCell)
{
    class LoudCell : public NSButtonCell { };
    EXPECT_EQ(NSButton::cellClass(), &NSButtonCell::staticClass());
    EXPECT_TRUE(dynamic_cast<NSButtonCell*>(button->cell()));
}

TEST_F(ButtonTest, WithoutACellItReadsAsNothing)
{
    button->setCell(nullptr);
    EXPECT_EQ(button->title(), "");
    EXPECT_EQ(button->state(), 0);
    EXPECT_EQ(button->image(), nullptr);
    button->setTitle("x");
    button->display();
    clickCenter(*button);
    EXPECT_EQ(receiver->calls, 0);
}

}
}
