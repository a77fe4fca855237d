#pragma once

#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/date_fields.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/base/HookSource.h>
#include <plix/platform/base/NSDate.h>

#include <memory>
#include <optional>
#include <vector>

namespace plix {

class NSDatePickerCell;
class NSTimeZone;

/// How a date is entered. All styles look like the text field with a stepper.
enum NSDatePickerStyle : int {
    NSTextFieldAndStepperDatePickerStyle = 0,
    NSClockAndCalendarDatePickerStyle = 1, ///< looks like a field here
    NSTextFieldDatePickerStyle = 2,
};

/// Which parts of a date can be seen and changed.
enum NSDatePickerElementFlags : unsigned {
    NSHourMinuteDatePickerElementFlag = 0x000C,
    NSHourMinuteSecondDatePickerElementFlag = 0x000E,
    NSTimeZoneDatePickerElementFlag = 0x0010, ///< not shown here
    NSYearMonthDatePickerElementFlag = 0x00C0,
    NSYearMonthDayDatePickerElementFlag = 0x00E0,
    NSEraDatePickerElementFlag = 0x0100, ///< not shown here
};

/// What a date picker asks its delegate.
struct NSDatePickerCellDelegate {
    /// Before a person's change: the date may be made another one.
    Hook<void(NSDatePickerCell&, NSDate& proposed, NSTimeInterval& interval)> validateProposedDateValue;

    template <typename Host> void fillFrom(Host& host) { PLIX_FILL_HOOK(validateProposedDateValue); }
};

/// A date as a row of fields, each changed by itself: by digits, the up and down arrows or the stepper. In the order of the user's
/// short date and time. The wheel changes nothing.
class PLIX_EXPORT NSDatePickerCell : public NSActionCell {
    PLIX_CLASS(NSDatePickerCell, NSActionCell);

public:
    NSDatePickerCell();
    ~NSDatePickerCell() override;
    /// Now, with year, month, day, hour and minute and a stepper.
    bool init();
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // What is shown.
    NSDatePickerStyle datePickerStyle() const { return m_style; }
    void setDatePickerStyle(NSDatePickerStyle);
    unsigned datePickerElements() const { return m_elements; }
    void setDatePickerElements(unsigned flags);
    NSDate dateValue() const { return m_date; }
    /// Taken into the limits.
    virtual void setDateValue(NSDate);
    std::optional<NSDate> minDate() const { return m_minDate; }
    void setMinDate(std::optional<NSDate>);
    std::optional<NSDate> maxDate() const { return m_maxDate; }
    void setMaxDate(std::optional<NSDate>);
    /// In which the date is read; the local one unless set.
    NSTimeZone timeZone() const;
    void setTimeZone(std::optional<NSTimeZone>);
    NSColor* textColor() const { return m_textColor.get(); }
    void setTextColor(Ref<NSColor> const&);
    NSColor* backgroundColor() const { return m_backgroundColor.get(); }
    void setBackgroundColor(Ref<NSColor> const&);
    bool drawsBackground() const { return m_drawsBackground; }
    void setDrawsBackground(bool);

    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSDatePickerCellDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    void takeHooks(HookSource const&);

    // Fields: those that can be changed count from 0.
    long numberOfFields() const;
    long selectedField() const { return m_selected; }
    void selectField(long);
    DateFieldKind kindOfField(long) const;
    /// In the control view's coordinates, when the cell has that frame.
    Rect rectOfField(long, Rect frame) const;
    Rect stepperRect(Rect frame) const;
    /// What a key does to the selected field; false for a key that the picker has no use for. A digit that does not fit behind
    /// those typed before goes into the next field; a day waits for the month and year that have it. Backspace and Delete take
    /// digits away, Escape all that was typed since the keyboard came.
    bool takeKey(NSEvent&);
    /// Takes over what was typed: a year of two digits is one of the century, a day that the month lacks its last. False, with
    /// a beep, the caret on it and colour behind it, where a field was left empty.
    bool commitTyping();
    /// Whether a field that was emptied stays so until something is typed into it. Here it shows the date's again.
    virtual bool keepsEmptyFields() const { return false; }
    bool isFieldEmpty(long) const;
    /// The selected field, one more or less.
    void step(int by);

    // NSCell:
    bool reactsToPointer() const override { return true; }
    ObjectValue const& objectValue() const override;
    void setObjectValue(ObjectValue) override;
    std::string const& stringValue() const override;
    Size cellSizeForBounds(Rect bounds) const override;
    void drawWithFrame(Rect frame, NSView& controlView) override;
    void drawInteriorWithFrame(Rect frame, NSView& controlView) override;
    bool trackMouse(NSEvent&, Rect frame, NSView& controlView, bool untilMouseUp) override;
    static bool prefersTrackingUntilMouseUp() { return true; }
    bool ownPrefersTrackingUntilMouseUp() const override { return prefersTrackingUntilMouseUp(); }

protected:
    /// A person chose a whole day; the time of day stays. What was typed is forgotten.
    void takeDay(std::int64_t year, int month, int day);
    void copyStateTo(NSObject& fresh) const override;

private:
    struct Placed;

    std::vector<DateField> fields() const;
    std::vector<Placed> placedFields(Rect frame) const;
    CalendarFields reading() const;
    NSDate limited(NSDate) const;
    void change(CalendarFields const&);
    void endField();
    void forgetTyping();
    void takeDigit(int digit);
    void takeBackDigit();
    bool takeBackTyping();
    bool takeHalf(char32_t key);
    bool moveCaret(char32_t key);
    std::string shownText(DateField const&, bool isSelected) const;
    void trackStepper(NSEvent&, Rect frame, NSView&);

    NSDate m_date;
    std::optional<NSDate> m_minDate;
    std::optional<NSDate> m_maxDate;
    std::unique_ptr<NSTimeZone> m_timeZone;
    Ref<NSColor> m_textColor;
    Ref<NSColor> m_backgroundColor;
    NSDatePickerCellDelegate m_hooks;
    mutable ObjectValue m_dateValue;
    mutable std::string m_shownText;
    unsigned m_elements { NSYearMonthDayDatePickerElementFlag | NSHourMinuteDatePickerElementFlag };
    NSDatePickerStyle m_style { NSTextFieldAndStepperDatePickerStyle };
    long m_selected { 0 };
    DateTyping m_typing;
    /// What Escape brings back.
    std::optional<NSDate> m_dateBeforeTyping;
    /// Which half of the stepper is pressed: 1 up, -1 down.
    int m_pressedStep { 0 };
    bool m_drawsBackground { true };
    bool m_showsRefusal { false };
    /// The caret came to the selected field by the last digit of the one before.
    bool m_hasGoneOn { false };
};

}
