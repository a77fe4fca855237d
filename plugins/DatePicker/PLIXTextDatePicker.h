#pragma once

#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/windows/date_entry.h>

namespace plix {

class PLIXTextDatePickerCell;

/// A field to type a date into, or to choose it for from a calendar: with the button in it, F4, or Option and an arrow. It keeps
/// the keyboard while a part of the date is empty. The wheel changes nothing.
class PLIXTextDatePicker : public NSDatePicker, public DateEntry {
    PLIX_CLASS(PLIXTextDatePicker, NSDatePicker);

public:
    /// Today, with year, month and day and the button.
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    static Class const* cellClass();
    Class const* ownCellClass() const override { return cellClass(); }

    bool showsDatePickerButton() const;

    // DateEntry:
    void setShowsDatePickerButton(bool) override;
    void setDateValue(NSDate) override;
    NSDate dateValue() const override;

    // NSView:
    void keyDown(NSEvent&) override;
    void viewWillMoveToWindow(NSWindow*) override;
    /// The text is as large as the width allows, down to that of small controls.
    void setFrameSize(Size) override;

private:
    PLIXTextDatePickerCell& textCell() const;
    void fitText();
};

}
