#include <plugins/DatePicker/CalendarView.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/foundation/date_text.h>
#include <plix/platform/foundation/locale_values.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/text_line.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace plix {

namespace {

constexpr float dayRadius = 4;
constexpr float litStrength = 0.12F;
/// One event of the wheel turns at most so many: a hundred years.
constexpr float mostPagesAtOnce = 1200;

void drawCentered(std::string_view text, Rect rect, NSFont const& font, NSColor const& color)
{
    float const height = font.defaultLineHeightForFont();
    Rect const line { rect.x, rect.y + std::floor((rect.height - height) / 2), rect.width, height };
    drawTextLine(text, line, { font, &color, NSCenterTextAlignment, NSLineBreakByTruncatingTail });
}

std::optional<CalendarMove> moveOfKey(char32_t key, bool isShifted)
{
    switch (key) {
    case NSLeftArrowFunctionKey:
        return CalendarMove::previousDay;
    case NSRightArrowFunctionKey:
        return CalendarMove::nextDay;
    case NSUpArrowFunctionKey:
        return CalendarMove::previousWeek;
    case NSDownArrowFunctionKey:
        return CalendarMove::nextWeek;
    case NSPageUpFunctionKey:
        return isShifted ? CalendarMove::previousYear : CalendarMove::previousMonth;
    case NSPageDownFunctionKey:
        return isShifted ? CalendarMove::nextYear : CalendarMove::nextMonth;
    case NSHomeFunctionKey:
        return CalendarMove::firstOfMonth;
    case NSEndFunctionKey:
        return CalendarMove::lastOfMonth;
    default:
        return std::nullopt;
    }
}

}

bool CalendarView::init(CalendarDay marked, CalendarDay today, CalendarLimits const& limits)
{
    m_names = currentDateNames();
    m_today = today;
    m_limits = limits;
    mark(marked);
    return NSView::init(rectWith({}, CalendarLayout::size()));
}

void CalendarView::mark(CalendarDay day)
{
    m_marked = m_limits.nearest(day);
    m_days = daysOfMonthPage(m_marked.year, m_marked.month, m_names->firstWeekday);
    setNeedsDisplay(true);
}

bool CalendarView::takeKey(NSEvent& event)
{
    auto const move = moveOfKey(event.characterIgnoringModifiers(), (event.modifierFlags() & NSShiftKeyMask) != 0);
    if (move)
        mark(dayAfterMove(m_marked, *move));
    return move.has_value();
}

void CalendarView::turnPage(CalendarMove move)
{
    mark(dayAfterMove(m_marked, move));
}

void CalendarView::takeWheel(NSEvent const& event)
{
    m_wheel += event.deltaY();
    if (!std::isfinite(m_wheel))
        m_wheel = 0;
    float const whole = std::trunc(m_wheel);
    m_wheel -= whole;
    auto const move = whole > 0 ? CalendarMove::previousMonth : CalendarMove::nextMonth;
    auto day = m_marked;
    for (float pages = std::min(std::abs(whole), mostPagesAtOnce); pages > 0; --pages)
        day = m_limits.nearest(dayAfterMove(day, move));
    if (!(day == m_marked))
        mark(day);
}

CalendarView::Place CalendarView::placeAt(Point point) const
{
    if (NSPointInRect(point, m_layout.previous))
        return { Part::previous };
    if (NSPointInRect(point, m_layout.next))
        return { Part::next };
    auto const day = m_layout.dayAt(point);
    return day && m_limits.contains(m_days[static_cast<std::size_t>(*day)]) ? Place { Part::day, *day } : Place {};
}

void CalendarView::point(Point point)
{
    auto const place = placeAt(point);
    if (place == m_lit)
        return;
    for (auto const& changed : { std::exchange(m_lit, place), place })
        setNeedsDisplayInRect(rectOf(changed));
}

Rect CalendarView::rectOf(Place const& place) const
{
    switch (place.part) {
    case Part::previous:
        return m_layout.previous;
    case Part::next:
        return m_layout.next;
    case Part::day:
        return m_layout.days[static_cast<std::size_t>(place.day)];
    case Part::none:
        break;
    }
    return {};
}

std::optional<CalendarDay> CalendarView::dayAt(Point point) const
{
    auto const place = placeAt(point);
    return place.part == Part::day ? std::optional(m_days[static_cast<std::size_t>(place.day)]) : std::nullopt;
}

bool CalendarView::turnPageAt(Point point)
{
    auto const part = placeAt(point).part;
    if (part != Part::previous && part != Part::next)
        return false;
    turnPage(part == Part::previous ? CalendarMove::previousMonth : CalendarMove::nextMonth);
    return true;
}

// Drawing.

void CalendarView::drawRect(Rect)
{
    Theme::current().drawMenuBackground(bounds());
    drawHead();
    for (int i = 0; i < daysOfPage; ++i) {
        if (needsToDrawRect(m_layout.days[static_cast<std::size_t>(i)]))
            drawDay(i);
    }
}

void CalendarView::drawHead() const
{
    auto const& theme = Theme::current();
    if (needsToDrawRect(m_layout.title)) {
        CalendarFields const shown { m_marked.year, m_marked.month, 1 };
        auto const title = formatDate(shown, {}, monthTitleFormat(m_names->dateFormat), *m_names);
        drawCentered(title, m_layout.title, *NSFont::boldSystemFontOfSize(0), *theme.color(ThemeRole::menuText));
    }
    if (needsToDrawRect(m_layout.previous))
        drawArrow(m_layout.previous, true, m_lit.part == Part::previous);
    if (needsToDrawRect(m_layout.next))
        drawArrow(m_layout.next, false, m_lit.part == Part::next);
    auto const font = NSFont::systemFontOfSize(NSFont::smallSystemFontSize());
    for (std::size_t i = 0; i < m_layout.weekdays.size(); ++i) {
        if (!needsToDrawRect(m_layout.weekdays[i]))
            continue;
        auto const weekday = (static_cast<std::size_t>(m_names->firstWeekday) + i) % m_layout.weekdays.size();
        drawCentered(m_names->shortWeekdays[weekday], m_layout.weekdays[i], *font, *theme.color(ThemeRole::menuKeyText));
    }
}

void CalendarView::drawArrow(Rect rect, bool pointsLeft, bool isLit) const
{
    auto const& theme = Theme::current();
    GraphicsState const saved;
    if (isLit) {
        theme.color(ThemeRole::menuText)->colorWithAlphaComponent(litStrength)->setFill();
        Theme::roundedRect(NSInsetRect(rect, 2, 1), dayRadius)->fill();
    }
    theme.color(ThemeRole::menuText)->setStroke();
    Point const middle { std::floor(rect.midX()), std::floor(rect.midY()) };
    float const tip = pointsLeft ? -2.5F : 2.5F;
    auto const path = NSBezierPath::bezierPath();
    path->moveToPoint({ middle.x - tip, middle.y - 4.5F });
    path->lineToPoint({ middle.x + tip, middle.y });
    path->lineToPoint({ middle.x - tip, middle.y + 4.5F });
    path->setLineWidth(1.5F);
    path->stroke();
}

void CalendarView::drawDay(int index) const
{
    auto const& theme = Theme::current();
    auto const place = static_cast<std::size_t>(index);
    auto const day = m_days[place];
    bool const isOfMonth = day.month == m_marked.month && day.year == m_marked.year;
    bool const isMarked = day == m_marked;
    auto const rect = NSInsetRect(m_layout.days[place], 2, 1);
    auto role = isOfMonth ? ThemeRole::menuText : ThemeRole::menuKeyText;
    if (!m_limits.contains(day))
        role = ThemeRole::menuDisabledText;
    {
        GraphicsState const saved;
        if (isMarked) {
            role = ThemeRole::menuHighlightText;
            NSColor::selectedMenuItemColor()->setFill();
            Theme::roundedRect(rect, dayRadius)->fill();
        }
        bool const isLit = m_lit.part == Part::day && m_lit.day == index;
        if (isLit && !isMarked) {
            theme.color(ThemeRole::menuText)->colorWithAlphaComponent(litStrength)->setFill();
            Theme::roundedRect(rect, dayRadius)->fill();
        }
        if (day == m_today) {
            theme.color(isMarked ? ThemeRole::menuHighlightText : ThemeRole::menuKeyText)->setStroke();
            float const inset = isMarked ? 1.5F : 0.5F;
            auto const ring = Theme::roundedRect(NSInsetRect(rect, inset, inset), dayRadius);
            ring->setLineWidth(1);
            ring->stroke();
        }
    }
    auto const font = day == m_today ? NSFont::boldSystemFontOfSize(0) : NSFont::systemFontOfSize(0);
    drawCentered(std::to_string(day.day), m_layout.days[place], *font, *theme.color(role));
}

}
