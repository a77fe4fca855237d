#include "buttons_page.h"
#include "StateSheet.h"

#include <plix/controls/PLIXPopUpButton.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/graphics/NSFont.h>

namespace gallery {

using namespace plix;

namespace {

struct Kind {
    char const* caption;
    char const* title;
    NSButtonType type;
    NSBezelStyle bezel;
    Size size;
    int state { NSOffState };
    NSControlSize controlSize { NSRegularControlSize };
    bool isDefault { false };
};

constexpr Kind pushButtons[] {
    { "Push", "Button", NSMomentaryPushInButton, NSRoundedBezelStyle, { 96, 28 } },
    { "Default", "OK", NSMomentaryPushInButton, NSRoundedBezelStyle, { 96, 28 }, NSOffState, NSRegularControlSize, true },
    { "Small", "Button", NSMomentaryPushInButton, NSRoundedBezelStyle, { 84, 24 }, NSOffState, NSSmallControlSize },
    { "Mini", "Button", NSMomentaryPushInButton, NSRoundedBezelStyle, { 72, 20 }, NSOffState, NSMiniControlSize },
    { "On", "Bold", NSPushOnPushOffButton, NSRoundedBezelStyle, { 96, 28 }, NSOnState },
    { "Square", "Button", NSMomentaryPushInButton, NSRegularSquareBezelStyle, { 96, 26 } },
    { "Square, on", "Button", NSPushOnPushOffButton, NSRegularSquareBezelStyle, { 96, 26 }, NSOnState },
    { "Textured", "Button", NSMomentaryPushInButton, NSTexturedSquareBezelStyle, { 96, 24 } },
    { "Round rect", "Button", NSMomentaryPushInButton, NSRoundRectBezelStyle, { 96, 20 } },
    { "Recessed, on", "Button", NSPushOnPushOffButton, NSRecessedBezelStyle, { 96, 20 }, NSOnState },
    { "Circle", "", NSMomentaryPushInButton, NSCircularBezelStyle, { 28, 28 } },
    { "Help", "", NSMomentaryPushInButton, NSHelpButtonBezelStyle, { 24, 24 } },
    { "Disclosure", "", NSOnOffButton, NSDisclosureBezelStyle, { 20, 20 } },
    { "Disclosure, open", "", NSOnOffButton, NSDisclosureBezelStyle, { 20, 20 }, NSOnState },
};

constexpr Kind choices[] {
    { "Off", "Check box", NSSwitchButton, NSRoundedBezelStyle, { 96, 18 } },
    { "On", "Check box", NSSwitchButton, NSRoundedBezelStyle, { 96, 18 }, NSOnState },
    { "Mixed", "Check box", NSSwitchButton, NSRoundedBezelStyle, { 96, 18 }, NSMixedState },
    { "Small", "Check box", NSSwitchButton, NSRoundedBezelStyle, { 96, 16 }, NSOnState, NSSmallControlSize },
    { "Off", "Radio", NSRadioButton, NSRoundedBezelStyle, { 96, 18 } },
    { "On", "Radio", NSRadioButton, NSRoundedBezelStyle, { 96, 18 }, NSOnState },
    { "Mini", "Radio", NSRadioButton, NSRoundedBezelStyle, { 96, 14 }, NSOnState, NSMiniControlSize },
};

Ref<NSControl> buttonOf(Kind const& kind)
{
    auto const button = make<NSButton>(rectWith({}, kind.size));
    button->setButtonType(kind.type);
    if (kind.type != NSSwitchButton && kind.type != NSRadioButton)
        button->setBezelStyle(kind.bezel);
    button->setTitle(kind.title);
    button->cell()->setControlSize(kind.controlSize);
    button->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(kind.controlSize)));
    button->setAllowsMixedState(kind.state == NSMixedState);
    button->setState(kind.state);
    if (kind.isDefault)
        button->setKeyEquivalent("\r");
    return button;
}

Ref<NSControl> popUp(bool pullsDown, NSControlSize size, float height)
{
    auto const button = make<NSPopUpButton>(Rect { 0, 0, 110, height }, pullsDown);
    button->cell()->setControlSize(size);
    button->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(size)));
    button->addItemsWithTitles({ pullsDown ? "Actions" : "Choice", "Another" });
    return button;
}

Ref<NSControl> menuButton()
{
    auto const button = make<PLIXPopUpButton>(Rect { 0, 0, 96, 26 });
    button->setButtonType(NSMomentaryPushInButton);
    button->setBezelStyle(NSRegularSquareBezelStyle);
    button->addItemWithTitle("Week");
    button->selectItemAtIndex(0);
    return button;
}

Ref<NSControl> segments(long selected)
{
    auto const control = make<NSSegmentedControl>(Rect { 0, 0, 116, 24 });
    control->setSegmentCount(3);
    char const* const labels[] { "One", "Two", "Six" };
    for (long i = 0; i < 3; ++i)
        control->setLabel(labels[i], i);
    control->setSelectedSegment(selected);
    return control;
}

}

Ref<NSView> makeButtonsPage()
{
    auto sheet = make<StateSheet>(Size { 116, 28 });
    for (auto const& kind : pushButtons)
        sheet->addRow(kind.caption, [&] { return buttonOf(kind); });
    sheet->addHeading("Check boxes and radio buttons");
    for (auto const& kind : choices)
        sheet->addRow(kind.caption, [&] { return buttonOf(kind); });
    sheet->addHeading("Pop-up buttons");
    sheet->addRow("Choices", [] { return popUp(false, NSRegularControlSize, 26); });
    sheet->addRow("Small", [] { return popUp(false, NSSmallControlSize, 22); });
    sheet->addRow("Pull-down", [] { return popUp(true, NSRegularControlSize, 26); });
    sheet->addRow("With a menu", menuButton);
    sheet->addHeading("Segments");
    sheet->addRow("None selected", [] { return segments(-1); });
    sheet->addRow("One selected", [] { return segments(1); });
    sheet->sizeToRows();
    return sheet;
}

}
