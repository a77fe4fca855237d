#include "live_page.h"
#include "Form.h"

#include <plix/controls/PLIXPopUpButton.h>
#include <plix/controls/TQSplitView.h>
#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/foundation/NSTimeZone.h>

namespace gallery {

using namespace plix;

namespace {

constexpr float pageWidth = 560;
constexpr float pageHeight = 466;

Ref<NSButton> button(std::string_view title, NSButtonType type, float width)
{
    auto made = make<NSButton>(Rect { 0, 0, width, type == NSSwitchButton || type == NSRadioButton ? 18.F : 28.F });
    made->setButtonType(type);
    made->setTitle(title);
    return made;
}

Ref<NSView> fruit(Form& form)
{
    auto const combo = make<NSComboBox>(Rect { 0, 0, 160, 22 });
    combo->addItemsWithObjectValues({ "Apple", "Banana", "Cherry", "Date", "Elderberry", "Fig", "Grape" });
    combo->setCompletes(true);
    return form.told(combo);
}

Ref<NSView> size(Form& form)
{
    auto const popUp = make<NSPopUpButton>(Rect { 0, 0, 130, 26 }, false);
    popUp->addItemsWithTitles({ "Small", "Medium", "Large" });
    return form.told(popUp);
}

Ref<NSView> actions(Form& form)
{
    auto const popUp = make<NSPopUpButton>(Rect { 0, 0, 130, 26 }, true);
    popUp->addItemsWithTitles({ "Actions", "Open", "Rename", "Duplicate" });
    auto const more = make<NSMenu>("More");
    more->addItemWithTitle("Compress", {}, "");
    more->addItemWithTitle("Share", {}, "");
    popUp->addItemWithTitle("More");
    popUp->lastItem()->setSubmenu(more);
    return form.told(popUp);
}

Ref<NSView> day(Form& form)
{
    auto const picker = make<NSDatePicker>(Rect { 0, 0, 210, 22 });
    picker->setTimeZone(NSTimeZone::timeZoneForSecondsFromGMT(0));
    picker->setDateValue(NSTimeZone::timeZoneForSecondsFromGMT(0).dateForFields({ 2008, 7, 12, 15, 23, 45 }));
    return form.told(picker);
}

Ref<NSView> segments(Form& form)
{
    auto const control = make<NSSegmentedControl>(Rect { 0, 0, 200, 24 });
    control->setSegmentCount(3);
    char const* const labels[] { "Day", "Week", "Month" };
    for (long i = 0; i < 3; ++i)
        control->setLabel(labels[i], i);
    control->setSelectedSegment(1);
    return form.told(control);
}

Ref<NSView> field(Form& form)
{
    auto const text = make<NSTextField>(Rect { 0, 0, 240, 22 });
    text->cell()->setScrollable(true);
    static_cast<NSTextFieldCell*>(text->cell())->setPlaceholderString("A name");
    return form.told(text);
}

Ref<NSView> panes()
{
    auto const split = make<TQSplitView>(Rect { 0, 0, 380, 70 });
    split->setVertical(true);
    for (char const* title : { "Drag the", "divider" }) {
        auto const box = make<NSBox>(Rect { 0, 0, 180, 70 });
        box->setTitle(title);
        split->addSubview(*box);
    }
    return split;
}

}

Ref<NSView> makeLivePage()
{
    auto form = make<Form>(Rect { 0, 0, pageWidth, pageHeight });
    auto const save = button("Save", NSMomentaryPushInButton, 90);
    save->setKeyEquivalent("\r");
    auto const plain = button("First", NSRadioButton, 80);
    plain->setState(NSOnState);
    auto const mixed = button("Some", NSSwitchButton, 80);
    mixed->setAllowsMixedState(true);
    mixed->setState(NSMixedState);
    auto const bar = make<NSProgressIndicator>(Rect { 0, 0, 200, 14 });
    bar->setIndeterminate(false);
    bar->setDoubleValue(40);
    form->addRow("Name", { field(*form) });
    form->addRow("Buttons", { form->told(save), form->told(button("Revert", NSMomentaryPushInButton, 90)) });
    form->addRow("Check boxes", { form->told(button("Bold", NSSwitchButton, 80)), form->told(mixed) });
    form->addRow("Radio buttons", { form->told(plain), form->told(button("Second", NSRadioButton, 80)) });
    form->addRow("Pop-ups", { size(*form), actions(*form) });
    form->addRow("Combo box", { fruit(*form) });
    form->addRow("Date", { day(*form) });
    form->addRow("Segments", { segments(*form) });
    form->addRow("Progress", { bar });
    auto const split = panes();
    split->setFrameOrigin({ Form::left, 350 });
    form->addSubview(*split);
    form->addStatus("Try the controls with mouse and keyboard.");
    return form;
}

}
