#pragma once

#include <plix/platform/appkit/NSDatePickerCell.h>

namespace plix {

struct CalendarChoice;

/// A date in fields, with a button at the end that opens a calendar. A field that is emptied stays so until something is typed into
/// it: the picker does not give the keyboard away meanwhile.
class PLIXTextDatePickerCell : public NSDatePickerCell {
    PLIX_CLASS(PLIXTextDatePickerCell, NSDatePickerCell);

public:
    bool init();
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    bool showsButton() const { return m_showsButton; }
    void setShowsButton(bool);
    /// In the control view's coordinates; empty without a button.
    Rect buttonRect(Rect frame) const;
    /// Lets a day be chosen from the calendar; the time of day stays. The event is the press that opens it, or null.
    void openCalendar(Rect frame, NSView& controlView, NSEvent*);

    // NSDatePickerCell:
    bool keepsEmptyFields() const override { return true; }

    // NSCell:
    Size cellSizeForBounds(Rect bounds) const override;
    void drawInteriorWithFrame(Rect frame, NSView& controlView) override;
    bool trackMouse(NSEvent&, Rect frame, NSView& controlView, bool untilMouseUp) override;

protected:
    void copyStateTo(NSObject& fresh) const override;

private:
    CalendarChoice choice() const;

    bool m_showsButton { true };
    bool m_isCalendarOpen { false };
};

}
