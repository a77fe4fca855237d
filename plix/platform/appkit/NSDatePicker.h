#pragma once

#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSDatePickerCell.h>

namespace plix {

/// A field with a date in it; see NSDatePickerCell.
class PLIX_EXPORT NSDatePicker : public NSControl {
    PLIX_CLASS(NSDatePicker, NSControl);

public:
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    static Class const* cellClass();
    Class const* ownCellClass() const override { return cellClass(); }

    // Those of the cell.
    NSDate dateValue() const;
    void setDateValue(NSDate);
    std::optional<NSDate> minDate() const;
    void setMinDate(std::optional<NSDate>);
    std::optional<NSDate> maxDate() const;
    void setMaxDate(std::optional<NSDate>);
    unsigned datePickerElements() const;
    void setDatePickerElements(unsigned flags);
    NSDatePickerStyle datePickerStyle() const;
    void setDatePickerStyle(NSDatePickerStyle);
    void setTimeZone(std::optional<NSTimeZone>);
    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSDatePickerCellDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    void takeHooks(HookSource const&);

    // NSView, NSControl:
    /// What is empty when a picker is disabled shows the date's again.
    void setEnabled(bool) override;
    void mouseDown(NSEvent&) override;
    void keyDown(NSEvent&) override;
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;

private:
    NSDatePickerCell& pickerCell() const;
};

}
