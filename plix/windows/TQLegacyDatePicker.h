#pragma once

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/foundation/NSCalendarDate.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace plix {

class NSTextField;
enum class DatePart : std::uint8_t;
struct NSNotification;

/// Three fields for month, day and year, each with its title below it, in the order of a date format. What is typed is not read
/// back: the host reads the fields. The titles are the main bundle's words for "Month", "Day" and "Year".
class PLIX_EXPORT TQLegacyDatePicker : public NSView {
    PLIX_CLASS(TQLegacyDatePicker, NSView);

public:
    TQLegacyDatePicker();
    ~TQLegacyDatePicker() override;
    bool init();
    /// The present date, by the user's short date format. The bounds end with the fields, whatever the frame's size.
    bool init(Rect frame);
    /// The same where an archive has the view.
    bool init(NSCoder&);

    /// Puts the fields, the separators between and the titles below in the format's order, and leads the keyboard through the
    /// fields from the view before them to the one after. A format that tells no order moves nothing; nil does nothing.
    virtual void setDateFormat(std::optional<std::string> const&);
    /// What was given last.
    std::optional<std::string> const& dateFormat() const { return m_dateFormatString; }
    /// Shows the date; nil does nothing.
    virtual void setDate(std::optional<NSCalendarDate> const&);
    NSCalendarDate const& date() const { return m_date; }
    /// Does nothing: what is typed does not change the date.
    virtual void syncDateFromInterface(NSObject* sender);

    // The fields and their titles, and what stands between. Nil where a subclass's initFields() does not make them.
    NSTextField* month_Field() const { return m_month_Field.get(); }
    NSTextField* day_Field() const { return m_day_Field.get(); }
    NSTextField* year_Field() const { return m_year_Field.get(); }
    NSTextField* month_Title_Field() const { return m_month_Title_Field.get(); }
    NSTextField* day_Title_Field() const { return m_day_Title_Field.get(); }
    NSTextField* year_Title_Field() const { return m_year_Title_Field.get(); }
    NSTextField* separator_Field() const { return m_separator_Field.get(); }
    NSTextField* separator2_Field() const { return m_separator2_Field.get(); }

    /// As the fields' delegate: one line of log that says what happened.
    virtual void controlTextDidChange(NSNotification const&);

protected:
    virtual void initFields();
    std::vector<Ref<NSView>> archivedSubviews() const override;

private:
    std::array<NSTextField*, 3> entries() const;
    NSTextField* entry(DatePart) const;
    NSTextField* title(DatePart) const;
    NSView* neighbor(NSView* (NSView::*side)() const) const;

    Ref<NSTextField> m_month_Field;
    Ref<NSTextField> m_day_Field;
    Ref<NSTextField> m_year_Field;
    Ref<NSTextField> m_month_Title_Field;
    Ref<NSTextField> m_day_Title_Field;
    Ref<NSTextField> m_year_Title_Field;
    Ref<NSTextField> m_separator_Field;
    Ref<NSTextField> m_separator2_Field;
    std::optional<std::string> m_dateFormatString;
    NSCalendarDate m_date;
};

}
