#pragma once

#include <plugins/DatePicker/calendar_month.h>

#include <plix/platform/appkit/NSView.h>

#include <functional>
#include <memory>

namespace plix {

struct DateNames;

/// A page of a calendar with one day marked, which keys and the pointer move.
class CalendarView final : public NSView {
public:
    bool init(CalendarDay marked, CalendarDay today, CalendarLimits const&);

    CalendarDay marked() const { return m_marked; }
    /// Turns to the page with the day; kept within the limits.
    void mark(CalendarDay);

    /// Whether the key was one of the calendar's: it moved the mark.
    bool takeKey(NSEvent&);
    void takeWheel(NSEvent const&);
    /// The pointer, in the view's coordinates, lights what it is over.
    void point(Point);
    /// A press turns the page where it is on an arrow. The day that can be chosen there, or nothing.
    std::optional<CalendarDay> dayAt(Point) const;
    bool turnPageAt(Point);
    CalendarLayout const& layout() const { return m_layout; }

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    bool looksActive() const override { return true; }
    void drawRect(Rect) override;

private:
    enum class Part { none, previous, next, day };
    struct Place {
        Part part { Part::none };
        int day { 0 };
        friend bool operator==(Place const&, Place const&) = default;
    };

    Place placeAt(Point) const;
    /// Empty for none.
    Rect rectOf(Place const&) const;
    void turnPage(CalendarMove);
    void drawHead() const;
    void drawArrow(Rect, bool pointsLeft, bool isLit) const;
    void drawDay(int index) const;

    CalendarLayout m_layout { CalendarLayout::ofPage() };
    std::shared_ptr<DateNames const> m_names;
    CalendarDay m_marked;
    CalendarDay m_today;
    CalendarLimits m_limits;
    std::array<CalendarDay, daysOfPage> m_days {};
    Place m_lit;
    float m_wheel { 0 };
};

}
