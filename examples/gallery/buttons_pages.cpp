#include "buttons_pages.h"
#include "Form.h"
#include "page_parts.h"

#include <plix/controls/PLIXButton.h>
#include <plix/controls/PLIXChiseledTextPopUpButton.h>
#include <plix/controls/PLIXPopUpButton.h>
#include <plix/controls/PLIXSegmentedControl.h>
#include <plix/controls/TQPopUpButtonCell.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSPopUpButtonCell.h>
#include <plix/platform/appkit/NSSegmentedCell.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/attribute_names.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

// MARK: buttons

Ref<NSView> makeNSButtonPage()
{
    auto const form = Form::page();
    auto const button = [&](std::string_view title, NSButtonType type, float width, float height = 18) {
        auto const made = make<NSButton>(Rect { 0, 0, width, height });
        made->setButtonType(type);
        made->setTitle(title);
        return form->told(made);
    };
    auto const save = button("Save", NSMomentaryPushInButton, 90, 28);
    save->setKeyEquivalent("\r"); // filled, because Return presses it
    auto const disabled = button("Delete", NSMomentaryPushInButton, 90, 28);
    disabled->setEnabled(false);
    form->addRow("Push", { save, button("Revert", NSMomentaryPushInButton, 90, 28), disabled });
    auto const play = button("Play", NSToggleButton, 90, 28);
    play->setAlternateTitle("Pause");
    form->addRow("On and off", { button("Bold", NSPushOnPushOffButton, 90, 28), play });
    auto const some = button("Some", NSSwitchButton, 80);
    some->setAllowsMixedState(true);
    some->setState(NSMixedState);
    form->addRow("Check boxes", { button("Bold", NSSwitchButton, 70), button("Italic", NSSwitchButton, 70), some });
    auto const winds = button("Winds", NSRadioButton, 70);
    winds->setState(NSOnState);
    form->addRow("Radio", { winds, button("Strings", NSRadioButton, 70), button("Brass", NSRadioButton, 70) });
    auto const pictured = button("Favourite", NSMomentaryPushInButton, 110, 28);
    pictured->setImage(icon(Icon::star));
    pictured->setImagePosition(NSImageLeft);
    auto const quiet = button("Quiet", NSMomentaryPushInButton, 44, 28);
    quiet->setImage(icon(Icon::folder));
    quiet->setImagePosition(NSImageOnly);
    quiet->setShowsBorderOnlyWhileMouseInside(true);
    quiet->setToolTip("Its border shows under the pointer");
    form->addRow("Pictures", { pictured, quiet });
    form->addStatus("Click, or press Return, Tab and the space bar.");
    form->sizeToRows();
    return form;
}

/// What of a button a press and a state change: masks that the types of buttons are made of.
Ref<NSView> makeNSButtonCellPage()
{
    auto const form = Form::page();
    auto const button = [&](std::string_view title, NSBezelStyle style, Size size) {
        auto const made = make<NSButton>(rectWith({}, size));
        made->setTitle(title);
        made->setBezelStyle(style);
        return form->told(made);
    };
    form->addRow("Bezels",
        { captioned("rounded", button("Open", NSRoundedBezelStyle, { 80, 28 }), 28),
            captioned("square", button("Open", NSRegularSquareBezelStyle, { 80, 28 }), 28),
            captioned("round rect", button("Open", NSRoundRectBezelStyle, { 80, 22 }), 28),
            captioned("recessed", button("Open", NSRecessedBezelStyle, { 80, 22 }), 28) });
    form->addRow("",
        { captioned("circle", button("", NSCircularBezelStyle, { 28, 28 }), 28),
            captioned("help", button("", NSHelpButtonBezelStyle, { 24, 24 }), 28),
            captioned("disclosure", button("", NSDisclosureBezelStyle, { 18, 18 }), 28),
            captioned("round disclosure", button("", NSRoundedDisclosureBezelStyle, { 26, 26 }), 28) });
    std::vector<Ref<NSView>> positions;
    for (auto const& [position, caption] : { std::pair { NSImageLeft, "left" }, { NSImageRight, "right" },
             { NSImageAbove, "above" }, { NSImageBelow, "below" }, { NSImageOnly, "only" } }) {
        auto const placed = button("Star", NSRegularSquareBezelStyle, { 68, 48 });
        placed->setImage(icon(Icon::star));
        placed->setImagePosition(position);
        positions.push_back(captioned(caption, placed));
    }
    form->addRow("Image", positions);
    auto const lit = button("Lit while on", NSRoundedBezelStyle, { 110, 28 });
    static_cast<NSButtonCell*>(lit->cell())->setShowsStateBy(NSChangeGrayCellMask);
    auto const other = button("Asleep", NSRoundedBezelStyle, { 110, 28 });
    other->setAlternateTitle("Awake");
    static_cast<NSButtonCell*>(other->cell())->setShowsStateBy(NSContentsCellMask);
    form->addRow("State", { lit, other });
    auto const held = pushButton("Hold");
    held->setContinuous(true);
    held->setPeriodicDelay(0.4F, 0.1F);
    held->setActionFunction(
        [page = form.get(), times = 0](NSObject*) mutable { page->setStatus("Times fired: " + std::to_string(++times)); });
    form->addRow("Repeats", { held });
    form->addStatus("A cell draws a button and follows the mouse for it.");
    form->sizeToRows();
    return form;
}

/// Two buttons with the same key: it presses either, and this class acts when the key goes down, once.
Ref<NSView> makePLIXButtonPage()
{
    auto const form = Form::page();
    auto const counted = [&](Ref<NSButton> const& button, char const* title, char const* key) {
        button->setFrame({ 0, 0, 130, 28 });
        button->setTitle(title);
        button->setKeyEquivalent(key);
        button->setKeyEquivalentModifierMask(0);
        button->setActionFunction([page = form.get(), title, presses = 0](NSObject*) mutable {
            ++presses;
            page->setStatus(std::string(title) + " was pressed " + std::to_string(presses) + (presses == 1 ? " time." : " times."));
        });
        return button;
    };
    form->addRow("PLIXButton", { counted(make<PLIXButton>(Rect {}), "Next Page", "n"), hint("press N") });
    form->addRow("NSButton", { counted(make<NSButton>(Rect {}), "Previous Page", "p"), hint("press P") });
    form->addNote("A PLIXButton’s key equivalent fires as the key goes down and never a second time as it comes up.");
    form->addStatus("Nothing has been pressed yet.");
    form->sizeToRows();
    return form;
}

// MARK: pop-ups

Ref<NSView> makeNSPopUpButtonPage()
{
    auto const form = Form::page();
    auto const instrument = make<NSPopUpButton>(Rect { 0, 0, 160, 26 }, false);
    instrument->addItemsWithTitles({ "Piccolo", "Flute", "Oboe" });
    instrument->menu()->addItem(*NSMenuItem::separatorItem());
    instrument->addItemsWithTitles({ "Clarinet", "Bassoon" });
    instrument->itemWithTitle("Piccolo")->setImage(icon(Icon::note));
    instrument->selectItemWithTitle("Oboe");
    form->addRow("Chooses", { form->told(instrument), hint("Type “cl”, or press the arrow keys.") });
    auto const actions = make<NSPopUpButton>(Rect { 0, 0, 160, 26 }, true);
    actions->addItemsWithTitles({ "Actions", "Open", "Rename", "Send to" });
    auto const places = make<NSMenu>("Send to");
    for (auto const* place : { "Printer", "Mail", "Archive" })
        places->addItemWithTitle(place, {}, "")->setActionFunction([page = form.get(), place](NSObject*) {
            page->setStatus(std::string("Sent to: ") + place);
        });
    places->setItemsNeedActions(false);
    actions->lastItem()->setSubmenu(places);
    form->addRow("Pulls down", { form->told(actions), hint("The first item is its title.") });
    auto const many = make<NSPopUpButton>(Rect { 0, 0, 160, 26 }, false);
    for (int number = 1; number <= 60; ++number)
        many->addItemWithTitle("Measure " + std::to_string(number));
    many->selectItemAtIndex(29);
    form->addRow("Many items", { form->told(many), hint("Opens over the chosen item, and scrolls.") });
    auto const disabled = make<NSPopUpButton>(Rect { 0, 0, 160, 26 }, false);
    disabled->addItemWithTitle("Not now");
    disabled->setEnabled(false);
    form->addRow("Disabled", { disabled });
    form->addStatus("Choose something.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSPopUpButtonCellPage()
{
    auto const form = Form::page();
    auto const popUp = [&](bool pullsDown) {
        auto const made = make<NSPopUpButton>(Rect { 0, 0, 120, 26 }, pullsDown);
        made->addItemsWithTitles({ "Largo", "Andante", "Presto" });
        return form->told(made);
    };
    auto const cellOf = [](NSPopUpButton& button) { return static_cast<NSPopUpButtonCell*>(button.cell()); };
    auto const center = popUp(false);
    auto const bottom = popUp(false);
    cellOf(*bottom)->setArrowPosition(NSPopUpArrowAtBottom);
    auto const none = popUp(false);
    cellOf(*none)->setArrowPosition(NSPopUpNoArrow);
    form->addRow("Arrow", { captioned("at the centre", center), captioned("at the bottom", bottom), captioned("none", none) });
    auto const below = popUp(true);
    cellOf(*below)->setPreferredEdge(NSMinYEdge);
    auto const beside = popUp(true);
    cellOf(*beside)->setPreferredEdge(NSMaxXEdge);
    form->addRow("Opens", { captioned("below", below), captioned("at the right", beside) });
    auto const unmarked = popUp(false);
    cellOf(*unmarked)->setAltersStateOfSelectedItem(false);
    form->addRow("No check", { unmarked, hint("The chosen item has no check mark.") });
    auto const tempo = popUp(false);
    int beats = 50;
    for (auto const& item : tempo->itemArray())
        item->setRepresentedObject(beats += 30);
    tempo->setActionFunction([page = form.get()](NSObject* sender) {
        auto const* const item = static_cast<NSPopUpButton*>(sender)->selectedItem();
        page->setStatus(item->title() + " stands for " + item->representedObject().description() + " beats a minute.");
    });
    form->addRow("Objects", { tempo, hint("Each item stands for a number.") });
    form->addStatus("A cell keeps the menu, shows the choice and opens it.");
    form->sizeToRows();
    return form;
}

/// For rows of tables: shows a text of its own, whatever its items are called.
Ref<NSView> makeTQPopUpButtonCellPage()
{
    auto const form = Form::page();
    auto const style = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    style->setFirstLineHeadIndent(8);
    style->setMinimumLineHeight(20);
    auto const show = [page = form.get(), style](NSPopUpButton& popUp, std::string_view stand) {
        auto const text = make<NSMutableAttributedString>(std::string(stand) + popUp.titleOfSelectedItem(),
            Attributes { { NSFontAttributeName, NSFont::boldSystemFontOfSize(12) }, { NSParagraphStyleAttributeName, style },
                { NSForegroundColorAttributeName, NSColor::controlTextColor() } });
        text->addAttribute(
            NSForegroundColorAttributeName, Theme::current().color(ThemeRole::secondaryText), { 0, std::ssize(stand) });
        static_cast<TQPopUpButtonCell*>(popUp.cell())->setDisplayAttributedString(text);
        page->setStatus("Shows “" + text->string() + "”");
    };
    form->addStatus("");
    for (auto const* stand : { "Stand 1:  ", "Stand 2:  ", "Stand 3:  " }) {
        auto const popUp = make<NSPopUpButton>(Rect { 0, 0, 180, 26 }, false);
        popUp->setCell(make<TQPopUpButtonCell>("", false));
        popUp->addItemsWithTitles({ "Flute", "Oboe", "Clarinet" });
        popUp->setActionFunction([show, stand](NSObject* sender) { show(*static_cast<NSPopUpButton*>(sender), stand); });
        show(*popUp, stand);
        form->addRow("", { popUp });
    }
    form->addNote("The cell draws its display string in place of the usual inside, and leaves ten points for the arrows.");
    form->setStatus("Choose an instrument.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXPopUpButtonPage()
{
    class Listener : public NSObject {
    public:
        void willDisplayMenu(PLIXPopUpButton&, NSMenu& menu)
        {
            ++openings;
            menu.itemAtIndex(0)->setTitle("Opened " + std::to_string(openings) + (openings == 1 ? " time" : " times"));
        }
        int openings { 0 };
    };
    auto const form = Form::page();
    auto const gear = make<PLIXPopUpButton>(Rect { 0, 0, 40, 28 });
    gear->setImage(icon(Icon::star));
    gear->setImagePosition(NSImageOnly);
    gear->setDelegate(form->keep(make<Listener>()));
    gear->addItemWithTitle("Never opened");
    gear->addItem(NSMenuItem::separatorItem().get());
    for (auto const* title : { "Add to Favourites", "Remove" })
        gear->addItemWithTitle(title)->setActionFunction(
            [page = form.get(), title](NSObject*) { page->setStatus(std::string("Chosen: ") + title); });
    form->addRow("A button", { gear, hint("that opens a menu, which its delegate may change before.") });
    auto const paper = make<PLIXPopUpButton>(Rect { 0, 0, 120, 28 });
    for (auto const* title : { "A4", "A5", "Letter" }) {
        auto const item = paper->addItemWithTitle(title);
        item->setTag(paper->menu()->numberOfItems());
        item->setActionFunction([paper = paper.get(), tag = item->tag()](NSObject*) { paper->selectItemWithTag(tag); });
    }
    paper->selectItemAtIndex(0);
    form->addRow("Selects", { paper, hint("An item’s action says that it is to be selected.") });
    form->addStatus("Choose something.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXChiseledTextPopUpButtonPage()
{
    auto const form = Form::page();
    auto const popUp = [&](std::string_view title, float size) {
        auto const made = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 100, 20 });
        made->setFont(NSFont::boldSystemFontOfSize(size));
        made->SetSizeHeightToFit(true);
        made->SetFrameAnchorMask(0); // the left edge stays
        made->setTitle(title);
        for (auto const* text : { "Today", "Yesterday", "The whole of last week" })
            made->addItemWithTitle(text)->setActionFunction([page = form.get(), button = made.get(), text](NSObject*) {
                button->setTitle(text);
                page->setStatus("It is " + std::to_string(std::lround(button->frame().width)) + " points wide now.");
            });
        return made;
    };
    form->addRow("11 points", { onLightGround(popUp("Sort by name", 11), 390) });
    form->addRow("13 points", { onLightGround(popUp("Today", 13), 390) });
    form->addRow("16 points", { onLightGround(popUp("A longer title", 16), 390) });
    auto const disabled = popUp("Disabled", 13);
    disabled->setEnabled(false);
    form->addRow("Disabled", { onLightGround(disabled, 390) });
    form->addNote("The engraved title gets a background under the pointer; the button is as wide as its title.");
    form->addStatus("Move the pointer over one, and choose.");
    form->sizeToRows();
    return form;
}

// MARK: segments

Ref<NSSegmentedControl> segments(Ref<NSSegmentedControl> const& control, std::vector<char const*> const& labels)
{
    control->setSegmentCount(std::ssize(labels));
    for (long i = 0; i < control->segmentCount(); ++i)
        control->setLabel(labels[static_cast<std::size_t>(i)], i);
    control->setSelectedSegment(0);
    return control;
}

Ref<NSView> makeNSSegmentedControlPage()
{
    auto const form = Form::page();
    auto const telling = [page = form.get()](NSObject* sender) {
        auto const& control = *static_cast<NSSegmentedControl*>(sender);
        page->setStatus("Selected: " + control.labelForSegment(control.selectedSegment()));
    };
    auto const range = make<NSSegmentedControl>(Rect { 0, 0, 260, 24 });
    range->setSegmentCount(4);
    for (long i = 0; auto const* label : { "Day", "Week", "Month", "Year" })
        range->setLabel(label, i++);
    range->setSelectedSegment(1);
    range->setActionFunction(telling);
    form->addRow("Labels", { range });
    auto const pictures = segments(make<NSSegmentedControl>(Rect { 0, 0, 260, 24 }), { "Paper", "Folder", "Music" });
    for (long i = 0; auto const which : { Icon::paper, Icon::folder, Icon::note })
        pictures->setImage(icon(which), i++);
    pictures->setActionFunction(telling);
    form->addRow("Pictures", { pictures });
    auto const widths = segments(make<NSSegmentedControl>(Rect { 0, 0, 260, 24 }), { "Narrow", "Wide", "Off" });
    widths->setWidth(70, 0);
    widths->setWidth(130, 1);
    widths->setWidth(50, 2);
    widths->setEnabled(false, 2);
    widths->setActionFunction(telling);
    form->addRow("Widths", { widths });
    auto const menu = make<NSMenu>("Zoom");
    for (auto const* title : { "50 %", "100 %", "200 %" })
        menu->addItemWithTitle(title, {}, "")->setActionFunction([page = form.get(), title](NSObject*) {
            page->setStatus(std::string("Zoom: ") + title);
        });
    auto const withMenu = segments(make<NSSegmentedControl>(Rect { 0, 0, 160, 24 }), { "Fit", "Zoom" });
    withMenu->setMenu(menu, 1);
    form->addRow("Menu", { withMenu, hint("Hold the second one.") });
    auto const disabled = segments(make<NSSegmentedControl>(Rect { 0, 0, 160, 24 }), { "Not", "Now" });
    static_cast<NSControl&>(*disabled).setEnabled(false);
    form->addRow("Disabled", { disabled });
    form->addStatus("Click, or choose with arrow keys and the space bar.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSSegmentedCellPage()
{
    auto const form = Form::page();
    auto const tracking = [&](NSSegmentSwitchTracking mode, NSControlSize size, float height, float width = 200) {
        auto const control = segments(make<NSSegmentedControl>(Rect { 0, 0, width, height }), { "One", "Two", "Three" });
        auto* const cell = static_cast<NSSegmentedCell*>(control->cell());
        cell->setTrackingMode(mode);
        cell->setControlSize(size);
        cell->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(size)));
        for (int i = 0; i < 3; ++i)
            cell->setTag(10L * (i + 1), i);
        control->setActionFunction([page = form.get(), cell](NSObject*) {
            std::string on;
            for (int i = 0; i < 3; ++i)
                on += cell->isSelectedForSegment(i) ? (on.empty() ? "" : ", ") + std::to_string(cell->tagForSegment(i)) : "";
            page->setStatus("Tags that are on: " + (on.empty() ? "none" : on));
        });
        return control;
    };
    form->addRow("One at a time", { tracking(NSSegmentSwitchTrackingSelectOne, NSRegularControlSize, 24) });
    auto const any = tracking(NSSegmentSwitchTrackingSelectAny, NSRegularControlSize, 24);
    any->setSelected(true, 2);
    form->addRow("Any", { any });
    auto const momentary = tracking(NSSegmentSwitchTrackingMomentary, NSRegularControlSize, 24);
    momentary->setSelectedSegment(-1);
    form->addRow("Momentary", { momentary });
    form->addRow("Small, mini",
        { tracking(NSSegmentSwitchTrackingSelectOne, NSSmallControlSize, 20),
            tracking(NSSegmentSwitchTrackingSelectOne, NSMiniControlSize, 17, 190) });
    form->addStatus("Segments have tags, tool tips and a mode of tracking.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXSegmentedControlPage()
{
    auto const form = Form::page();
    auto const control = make<PLIXSegmentedControl>(Rect { 0, 0, 260, 24 });
    control->setCell(make<PLIXSegmentedCell>());
    segments(control, { "Icons", "List", "Columns", "Cover" });
    for (int i = 0; i < 4; ++i)
        static_cast<NSSegmentedCell*>(control->cell())->setTag(i + 1, i);
    control->setActionFunction([page = form.get()](NSObject* sender) {
        page->setStatus("Tag " + std::to_string(selectedSegmentTag(*static_cast<NSSegmentedControl*>(sender))));
    });
    form->addRow("With lines", { control });
    form->addRow("By tag", { pushButton("Select Tag 3", [control = control.get(), page = form.get()] {
        page->setStatus(selectSegmentWithTag(*control, 3) ? "Tag 3 is selected." : "There is no tag 3.");
    }) });
    form->addNote("In the key window it draws lines between segments, where its cell has noted them.");
    form->addStatus("Choose a segment.");
    form->sizeToRows();
    return form;
}

/// Where the cell wants lines to be drawn, as text.
Ref<NSView> makePLIXSegmentedCellPage()
{
    auto const form = Form::page();
    auto const control = make<PLIXSegmentedControl>(Rect { 0, 0, 300, 24 });
    control->setCell(make<PLIXSegmentedCell>());
    segments(control, { "Piano", "Forte", "Crescendo" });
    auto const tell = [page = form.get(), control = control.get()] {
        std::string places;
        for (auto const& rectangle : PLIXSegmentedControl::separatorsForSegmentedControl(control))
            places += (places.empty() ? "" : "   ") + rectangle;
        page->setStatus("Lines: " + (places.empty() ? "none" : places));
    };
    form->addRow("Its control", { control });
    form->addRow("", { pushButton("Tell the Lines", tell) });
    form->addNote("While its segments are drawn the cell notes where lines between them belong: after each but the last and those "
                  "at both sides of the selected one.");
    form->addStatus("Select a segment, then ask.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXSegmentedControlButtonPage()
{
    auto const form = Form::page();
    std::vector<Ref<NSView>> buttons;
    for (auto const& [which, name] : { std::pair { Icon::paper, "paper" }, { Icon::folder, "folder" }, { Icon::star, "star" } }) {
        auto const button = make<PLIXSegmentedControlButton>(Rect { 0, 0, 44, 24 });
        button->setImage(icon(which));
        button->setActionFunction(
            [page = form.get(), name = name](NSObject*) { page->setStatus(std::string("Pressed: ") + name); });
        buttons.push_back(captioned(name, button));
    }
    form->addRow("One segment", buttons);
    form->addNote("A segmented control that is a button: one segment, with a picture in its middle.");
    form->addStatus("Press one.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "buttons_pages.cpp";
constexpr Page familyPages[] {
    { "NSButton", "Button", controlsSection, source, makeNSButtonPage },
    { "NSButtonCell", "Button cell", controlsSection, source, makeNSButtonCellPage },
    { "PLIXButton", "Button with a quick key", controlsSection, source, makePLIXButtonPage },
    { "NSPopUpButton", "Pop-up button", controlsSection, source, makeNSPopUpButtonPage },
    { "NSPopUpButtonCell", "Pop-up button cell", controlsSection, source, makeNSPopUpButtonCellPage },
    { "PLIXPopUpButton", "Menu button", controlsSection, source, makePLIXPopUpButtonPage },
    { "TQPopUpButtonCell", "Pop-up cell with a display string", controlsSection, source, makeTQPopUpButtonCellPage },
    { "PLIXChiseledTextPopUpButton", "Engraved pop-up button", controlsSection, source, makePLIXChiseledTextPopUpButtonPage },
    { "NSSegmentedControl", "Segmented control", controlsSection, source, makeNSSegmentedControlPage },
    { "NSSegmentedCell", "Segmented cell", controlsSection, source, makeNSSegmentedCellPage },
    { "PLIXSegmentedControl", "Segmented control with lines", controlsSection, source, makePLIXSegmentedControlPage },
    { "PLIXSegmentedCell", "Cell that notes lines", controlsSection, source, makePLIXSegmentedCellPage },
    { "PLIXSegmentedControlButton", "Button of one segment", controlsSection, source, makePLIXSegmentedControlButtonPage },
};

}

std::span<Page const> buttonsPages()
{
    return familyPages;
}

}
