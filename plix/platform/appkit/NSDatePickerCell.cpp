#include <plix/platform/appkit/NSDatePickerCell.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/appkit/tracking_wait.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimeZone.h>
#include <plix/platform/foundation/locale_values.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/text_line.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

namespace {

constexpr float stepperWidth = 17;
constexpr float textPadding = 3;
constexpr double firstRepeat = 0.4;
constexpr double nextRepeat = 0.1;

DateHalves currentHalves()
{
    auto const names = currentDateNames();
    return { names->amPm[0], names->amPm[1] };
}

// There is room for that many.
std::size_t digitsOf(DateFieldKind kind)
{
    return kind == DateFieldKind::year ? 4 : 2;
}

}

struct NSDatePickerCell::Placed {
    DateField field;
    Rect rect;
    std::string text;
};

PLIX_DESCRIBE(NSDatePickerCell)
{
    description.hookOutlet("delegate", &NSDatePickerCell::takeHooks);
}

NSDatePickerCell::NSDatePickerCell() = default;
NSDatePickerCell::~NSDatePickerCell() = default;

bool NSDatePickerCell::init()
{
    if (!Base::init(std::string_view {}))
        return false;
    m_date = NSDate::date();
    m_textColor = NSColor::controlTextColor();
    m_backgroundColor = NSColor::textBackgroundColor();
    setBezeled(true);
    return true;
}

bool NSDatePickerCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    m_date = NSDate::date();
    m_textColor = NSColor::controlTextColor();
    m_backgroundColor = NSColor::textBackgroundColor();
    coder.read("datePickerStyle",
        [&](ObjectValue const& value) { m_style = static_cast<NSDatePickerStyle>(std::clamp(value.intValue(), 0, 2)); });
    coder.read("datePickerElements", [&](ObjectValue const& value) { m_elements = static_cast<unsigned>(value.integerValue()); });
    auto const dateUnder = [&](char const* key) -> std::optional<NSDate> {
        auto const value = coder.decodeObjectForKey(key);
        return value.date() ? std::optional(*value.date()) : std::nullopt;
    };
    m_minDate = dateUnder("minDate");
    m_maxDate = dateUnder("maxDate");
    m_date = limited(dateUnder("date").value_or(m_date));
    coder.read("textColor", [&](ObjectValue const& value) { m_textColor = value.as<NSColor>(); });
    coder.read("backgroundColor", [&](ObjectValue const& value) { m_backgroundColor = value.as<NSColor>(); });
    coder.read("drawsBackground", [&](ObjectValue const& value) { m_drawsBackground = value.boolValue(); });
    return true;
}

void NSDatePickerCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeInt(m_style, "datePickerStyle");
    coder.encodeInt(m_elements, "datePickerElements");
    coder.encodeObject(m_date, "date");
    coder.encodeObject(m_minDate ? ObjectValue(*m_minDate) : ObjectValue(), "minDate");
    coder.encodeObject(m_maxDate ? ObjectValue(*m_maxDate) : ObjectValue(), "maxDate");
    coder.encodeObject(m_textColor, "textColor");
    coder.encodeObject(m_backgroundColor, "backgroundColor");
    coder.encodeBool(m_drawsBackground, "drawsBackground");
}

void NSDatePickerCell::takeHooks(HookSource const& source)
{
    m_hooks = source.hooks<NSDatePickerCellDelegate>();
}

void NSDatePickerCell::setDatePickerStyle(NSDatePickerStyle style)
{
    m_style = style;
    looksChanged();
}

void NSDatePickerCell::setDatePickerElements(unsigned flags)
{
    m_elements = flags;
    selectField(m_selected);
    looksChanged();
}

void NSDatePickerCell::setTextColor(Ref<NSColor> const& color)
{
    m_textColor = color;
    looksChanged();
}

void NSDatePickerCell::setBackgroundColor(Ref<NSColor> const& color)
{
    m_backgroundColor = color;
    looksChanged();
}

void NSDatePickerCell::setDrawsBackground(bool draws)
{
    m_drawsBackground = draws;
    looksChanged();
}

// MARK: the date

NSDate NSDatePickerCell::limited(NSDate date) const
{
    if (m_maxDate && date > *m_maxDate)
        date = *m_maxDate;
    return m_minDate && date < *m_minDate ? *m_minDate : date;
}

void NSDatePickerCell::setDateValue(NSDate date)
{
    auto const taken = limited(date);
    forgetTyping();
    if (taken == m_date)
        return;
    m_date = taken;
    looksChanged();
}

void NSDatePickerCell::setMinDate(std::optional<NSDate> date)
{
    m_minDate = date;
    setDateValue(m_date);
}

void NSDatePickerCell::setMaxDate(std::optional<NSDate> date)
{
    m_maxDate = date;
    setDateValue(m_date);
}

NSTimeZone NSDatePickerCell::timeZone() const
{
    return m_timeZone ? *m_timeZone : NSTimeZone::localTimeZone();
}

void NSDatePickerCell::setTimeZone(std::optional<NSTimeZone> zone)
{
    m_timeZone = zone ? std::make_unique<NSTimeZone>(*zone) : nullptr;
    looksChanged();
}

CalendarFields NSDatePickerCell::reading() const
{
    return timeZone().fieldsForDate(m_date);
}

// A person's change: the delegate has the last word.
void NSDatePickerCell::change(CalendarFields const& fields)
{
    Ref<NSDatePickerCell> const protector(this);
    auto proposed = limited(timeZone().dateForFields(fields));
    NSTimeInterval interval = 0;
    if (m_hooks.validateProposedDateValue)
        m_hooks.validateProposedDateValue(*this, proposed, interval);
    if (timeZone().fieldsForDate(proposed) != fields)
        m_typing.day = 0;
    if (proposed == m_date)
        return;
    auto const typing = m_typing;
    auto const before = m_dateBeforeTyping;
    setDateValue(proposed);
    m_typing = typing;
    m_dateBeforeTyping = before;
    sendAction();
}

ObjectValue const& NSDatePickerCell::objectValue() const
{
    m_dateValue = m_date;
    return m_dateValue;
}

void NSDatePickerCell::setObjectValue(ObjectValue value)
{
    if (auto const* date = value.date())
        setDateValue(*date);
}

std::string const& NSDatePickerCell::stringValue() const
{
    m_shownText.clear();
    long index = 0;
    for (auto const& field : fields()) {
        bool const isLiteral = field.kind == DateFieldKind::literal;
        m_shownText += shownText(field, !isLiteral && index == m_selected);
        index += isLiteral ? 0 : 1;
    }
    return m_shownText;
}

// MARK: fields

std::vector<DateField> NSDatePickerCell::fields() const
{
    auto const names = currentDateNames();
    DateFieldChoice const choice {
        .showsYearAndMonth = (m_elements & NSYearMonthDatePickerElementFlag) == NSYearMonthDatePickerElementFlag,
        .showsDay = (m_elements & NSYearMonthDayDatePickerElementFlag) == NSYearMonthDayDatePickerElementFlag,
        .showsHourAndMinute = (m_elements & NSHourMinuteDatePickerElementFlag) == NSHourMinuteDatePickerElementFlag,
        .showsSecond = (m_elements & NSHourMinuteSecondDatePickerElementFlag) == NSHourMinuteSecondDatePickerElementFlag,
    };
    return dateFields(names->shortDateFormat, names->timeFormat, choice);
}

long NSDatePickerCell::numberOfFields() const
{
    auto const all = fields();
    return std::ranges::count_if(all, [](DateField const& field) { return field.kind != DateFieldKind::literal; });
}

DateFieldKind NSDatePickerCell::kindOfField(long index) const
{
    for (auto const& field : fields()) {
        if (field.kind != DateFieldKind::literal && index-- == 0)
            return field.kind;
    }
    return DateFieldKind::literal;
}

void NSDatePickerCell::selectField(long index)
{
    endField();
    index = std::clamp(index, 0L, std::max(0L, numberOfFields() - 1));
    if (m_selected == index)
        return;
    m_selected = index;
    looksChanged();
}

bool NSDatePickerCell::isFieldEmpty(long index) const
{
    return m_typing.isEmptied(kindOfField(index));
}

// MARK: typing

// The caret leaves the selected field, or comes to it anew.
void NSDatePickerCell::endField()
{
    auto const kind = kindOfField(m_selected);
    if (!keepsEmptyFields() && m_typing.isEmptied(kind)) {
        m_typing.setEmptied(kind, false);
        looksChanged();
    }
    auto const ended = m_typing;
    m_typing.digits = {};
    if (ended.digits.count == 0 || kind != DateFieldKind::year)
        return;
    change(dateByEndingYear(reading(), ended));
    looksChanged();
}

bool NSDatePickerCell::commitTyping()
{
    Ref<NSDatePickerCell> const protector(this);
    endField();
    for (long i = 0; isEnabled() && i < numberOfFields(); ++i) {
        if (!isFieldEmpty(i))
            continue;
        m_selected = i;
        m_showsRefusal = true;
        looksChanged();
        NSBeep();
        return false;
    }
    forgetTyping();
    return true;
}

void NSDatePickerCell::forgetTyping()
{
    m_dateBeforeTyping.reset();
    m_hasGoneOn = false;
    if (!std::exchange(m_showsRefusal, false) && m_typing.isUntouched())
        return;
    m_typing = {};
    looksChanged();
}

void NSDatePickerCell::step(int by)
{
    endField();
    auto const kind = kindOfField(m_selected);
    m_typing.setEmptied(kind, false);
    if (kind == DateFieldKind::day || kind == DateFieldKind::month || kind == DateFieldKind::year)
        m_typing.day = 0;
    m_showsRefusal = false;
    if (kind == DateFieldKind::half)
        by = 1;
    change(dateByStepping(reading(), kind, by));
    looksChanged();
}

void NSDatePickerCell::takeDigit(int digit)
{
    auto const kind = kindOfField(m_selected);
    auto const typed = dateByTyping(reading(), kind, m_typing, digit);
    if (typed.isLeftOver) {
        // Where no field for digits follows, the field begins anew.
        if (m_selected + 1 < numberOfFields() && kindOfField(m_selected + 1) != DateFieldKind::half)
            selectField(m_selected + 1);
        else
            m_typing.digits = {};
        return takeDigit(digit);
    }
    if (!m_dateBeforeTyping)
        m_dateBeforeTyping = m_date;
    m_typing = typed.typing;
    looksChanged();
    change(typed.date);
    if (typed.isDone) {
        m_typing.digits = {};
        selectField(m_selected + 1);
        m_hasGoneOn = true;
    }
}

void NSDatePickerCell::takeBackDigit()
{
    if (!m_dateBeforeTyping)
        m_dateBeforeTyping = m_date;
    m_typing = typingByDeleting(m_typing, kindOfField(m_selected));
    looksChanged();
}

bool NSDatePickerCell::takeBackTyping()
{
    if (!m_dateBeforeTyping)
        return false;
    auto const before = *m_dateBeforeTyping;
    bool const changes = before != m_date;
    setDateValue(before);
    if (changes)
        sendAction();
    return true;
}

void NSDatePickerCell::takeDay(std::int64_t year, int month, int day)
{
    Ref<NSDatePickerCell> const protector(this);
    auto fields = reading();
    fields.year = year;
    fields.month = month;
    fields.day = day;
    forgetTyping();
    change(fields);
}

bool NSDatePickerCell::takeHalf(char32_t key)
{
    if (key <= 0x20 || key >= 0x80)
        return false;
    auto const halves = currentHalves();
    auto const begins
        = [&](std::string const& text) { return !text.empty() && (static_cast<char32_t>(text[0]) | 0x20U) == (key | 0x20U); };
    bool const isAfternoon = valueOfDateField(DateFieldKind::half, reading()) == 1;
    if ((begins(halves.morning) && isAfternoon) || (begins(halves.afternoon) && !isAfternoon))
        step(1);
    return begins(halves.morning) || begins(halves.afternoon);
}

bool NSDatePickerCell::moveCaret(char32_t key)
{
    switch (key) {
    case NSRightArrowFunctionKey:
        selectField(m_selected + 1);
        return true;
    case NSLeftArrowFunctionKey:
        selectField(m_selected - 1);
        return true;
    case NSHomeFunctionKey:
        selectField(0);
        return true;
    case NSEndFunctionKey:
        selectField(numberOfFields() - 1);
        return true;
    case NSTabCharacter:
        if (m_selected + 1 >= numberOfFields())
            return false;
        selectField(m_selected + 1);
        return true;
    case NSBackTabCharacter:
        if (m_selected == 0)
            return false;
        selectField(m_selected - 1);
        return true;
    default:
        return false;
    }
}

bool NSDatePickerCell::takeKey(NSEvent& event)
{
    Ref<NSDatePickerCell> const protector(this);
    if (!isEnabled() || event.hasShortcutModifier() || numberOfFields() == 0)
        return false;
    auto const key = event.characterIgnoringModifiers();
    auto const kind = kindOfField(m_selected);
    bool const hasGoneOn = std::exchange(m_hasGoneOn, false);
    if (std::exchange(m_showsRefusal, false))
        looksChanged();
    if (moveCaret(key))
        return true;
    switch (key) {
    case NSUpArrowFunctionKey:
        step(1);
        return true;
    case NSDownArrowFunctionKey:
        step(-1);
        return true;
    case NSEscapeCharacter:
        return takeBackTyping();
    case NSBackspaceCharacter:
    case NSDeleteCharacter:
    case NSDeleteFunctionKey:
        if (kind != DateFieldKind::half)
            takeBackDigit();
        return true;
    default:
        break;
    }
    if (kind == DateFieldKind::half && takeHalf(key))
        return true;
    if (key >= U'0' && key <= U'9' && kind != DateFieldKind::half) {
        takeDigit(static_cast<int>(key - U'0'));
        return true;
    }
    // Separators go on to the next field, where the digit before has not done so already.
    if (key == U'/' || key == U'.' || key == U'-' || key == U':' || key == U',' || key == U' ') {
        if (!hasGoneOn)
            selectField(m_selected + 1);
        return true;
    }
    return false;
}

std::string NSDatePickerCell::shownText(DateField const& field, bool isSelected) const
{
    if (field.kind != DateFieldKind::literal && m_typing.isEmptied(field.kind))
        return std::string(digitsOf(field.kind), '-');
    if (isSelected && m_typing.digits.count > 0) {
        auto const digits = std::to_string(m_typing.digits.value);
        auto const count = static_cast<std::size_t>(m_typing.digits.count);
        return digits.size() < count ? std::string(count - digits.size(), '0') + digits : digits;
    }
    auto date = reading();
    if (field.kind == DateFieldKind::day && m_typing.day != 0)
        date.day = m_typing.day;
    return textOfDateField(field, date, currentHalves());
}

// MARK: geometry

Rect NSDatePickerCell::stepperRect(Rect frame) const
{
    if (m_style != NSTextFieldAndStepperDatePickerStyle)
        return {};
    float const width = std::min(stepperWidth, std::max(0.F, frame.width));
    return { frame.maxX() - width + 2, frame.y, width - 2, frame.height };
}

std::vector<NSDatePickerCell::Placed> NSDatePickerCell::placedFields(Rect frame) const
{
    frame.width -= stepperRect(frame).isEmpty() ? 0 : stepperWidth;
    auto const room = drawingRectForBounds(frame);
    Ref<NSFont> const textFont = font() ? Ref<NSFont>(font()) : NSFont::systemFontOfSize(0);
    float const height = textFont->defaultLineHeightForFont();
    float const digit = widthOfTextLine("0", *textFont);
    auto const halves = currentHalves();
    std::vector<Placed> placed;
    long index = 0;
    float x = room.x + textPadding;
    for (auto const& field : fields()) {
        bool const isSelected = field.kind != DateFieldKind::literal && index == m_selected;
        index += field.kind == DateFieldKind::literal ? 0 : 1;
        Placed part { field, {}, shownText(field, isSelected) };
        float width = widthOfTextLine(part.text, *textFont);
        // Fields stay where they are while their digits change.
        if (field.kind == DateFieldKind::half)
            width = std::max(widthOfTextLine(halves.morning, *textFont), widthOfTextLine(halves.afternoon, *textFont));
        else if (field.kind != DateFieldKind::literal)
            width = std::max(width, digit * static_cast<float>(digitsOf(field.kind)));
        width = std::ceil(width) + (field.kind == DateFieldKind::literal ? 0 : 2);
        part.rect = { x, room.y + std::floor((room.height - height) / 2), width, height };
        x += width;
        placed.push_back(std::move(part));
    }
    return placed;
}

Rect NSDatePickerCell::rectOfField(long index, Rect frame) const
{
    for (auto const& part : placedFields(frame)) {
        if (part.field.kind != DateFieldKind::literal && index-- == 0)
            return part.rect;
    }
    return {};
}

Size NSDatePickerCell::cellSizeForBounds(Rect bounds) const
{
    auto const placed = placedFields({ 0, 0, 10000, 100 });
    float const text = placed.empty() ? 0 : placed.back().rect.maxX() - placed.front().rect.x;
    auto const insets = frameInsets();
    float const stepper = m_style == NSTextFieldAndStepperDatePickerStyle ? stepperWidth : 0;
    Ref<NSFont> const textFont = font() ? Ref<NSFont>(font()) : NSFont::systemFontOfSize(0);
    Size const size { text + 2 * textPadding + insets.left + insets.right + stepper,
        textFont->defaultLineHeightForFont() + insets.top + insets.bottom };
    return { std::min(size.width, std::max(0.F, bounds.width)), size.height };
}

// MARK: mouse

bool NSDatePickerCell::trackMouse(NSEvent& event, Rect frame, NSView& controlView, bool)
{
    setControlView(&controlView);
    if (!isEnabled())
        return true;
    Ref<NSDatePickerCell> const protector(this);
    Point const point = controlView.convertPointFromView(event.locationInWindow(), nullptr);
    if (controlView.mouseInRect(point, stepperRect(frame))) {
        trackStepper(event, frame, controlView);
        return true;
    }
    long index = 0;
    long nearest = 0;
    for (auto const& part : placedFields(frame)) {
        if (part.field.kind == DateFieldKind::literal)
            continue;
        if (point.x >= part.rect.x)
            nearest = index;
        ++index;
    }
    selectField(nearest);
    return true;
}

// Held down it goes on stepping.
void NSDatePickerCell::trackStepper(NSEvent& event, Rect frame, NSView& controlView)
{
    Ref<NSView> const view(controlView);
    auto const rect = stepperRect(frame);
    auto const halfAt = [&](Point inWindow) {
        Point const point = view->convertPointFromView(inWindow, nullptr);
        return !view->mouseInRect(point, rect) ? 0 : point.y < rect.midY() ? 1 : -1;
    };
    int const pressed = halfAt(event.locationInWindow());
    auto const show = [&](int half) {
        if (m_pressedStep == half)
            return;
        m_pressedStep = half;
        looksChanged();
    };
    show(pressed);
    step(pressed);
    auto next = NSDate::dateWithTimeIntervalSinceNow(firstRepeat);
    while (Ref<NSWindow> const window = view->window()) {
        auto const moved
            = window->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask, next, NSEventTrackingRunLoopMode, true);
        if (isCutShort(moved, next) || (moved && moved->type() == NSLeftMouseUp))
            break;
        if (moved) {
            show(halfAt(moved->locationInWindow()) == pressed ? pressed : 0);
            continue;
        }
        if (m_pressedStep == pressed)
            step(pressed);
        next = NSDate::dateWithTimeIntervalSinceNow(nextRepeat);
    }
    show(0);
}

// MARK: drawing

void NSDatePickerCell::drawWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    auto const& theme = Theme::current();
    auto const look = lookInView(controlView);
    auto const stepper = stepperRect(frame);
    Rect field = frame;
    field.width -= stepper.isEmpty() ? 0 : stepperWidth;
    Ref<NSColor> const background = m_drawsBackground ? m_backgroundColor : nullptr;
    if (isBezeled())
        theme.drawFieldBezel(field, FieldShape::square, look, background.get());
    else if (background)
        theme.fill(field, *background);
    if (isBordered())
        theme.drawBorder(NSLineBorder, field);
    drawInteriorWithFrame(frame, controlView);
    if (!stepper.isEmpty())
        theme.drawStepper(stepper, look, isHighlighted() && m_pressedStep == 0 ? 1 : m_pressedStep);
    if (drawsFocusRing(controlView))
        theme.drawFocusRing(field, FieldShape::square);
}

void NSDatePickerCell::drawInteriorWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    auto const& theme = Theme::current();
    bool const isNamed = m_textColor && m_textColor->colorSpaceName() == NSNamedColorSpace;
    Ref<NSColor> const color = !m_textColor || (isNamed && !isEnabled()) ? Base::colorForText() : m_textColor;
    Ref<NSFont> const textFont = font() ? Ref<NSFont>(font()) : NSFont::systemFontOfSize(0);
    bool const showsSelection = drawsFocusRing(controlView) && isEnabled();
    long index = 0;
    for (auto const& part : placedFields(frame)) {
        bool const isField = part.field.kind != DateFieldKind::literal;
        bool const isSelected = isField && showsSelection && index == m_selected;
        bool const isRefused = m_showsRefusal && isField && m_typing.isEmptied(part.field.kind);
        if (isRefused)
            theme.fill(part.rect, ThemeRole::errorText);
        else if (isSelected)
            theme.fill(part.rect, *NSColor::alternateSelectedControlColor());
        Ref<NSColor> const ink = isRefused ? NSColor::textBackgroundColor()
            : isSelected                   ? NSColor::alternateSelectedControlTextColor()
                                           : color;
        // A single digit stands where the units do, next to what follows it.
        bool const isShort = isField && part.field.kind != DateFieldKind::half && part.text.size() < digitsOf(part.field.kind);
        auto const alignment = isShort ? NSRightTextAlignment : isField ? NSCenterTextAlignment : NSLeftTextAlignment;
        Rect const place = NSInsetRect(part.rect, isShort ? 1 : 0, 0);
        drawTextLine(part.text, place, { *textFont, ink.get(), alignment, NSLineBreakByClipping });
        index += isField ? 1 : 0;
    }
}

void NSDatePickerCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSDatePickerCell&>(fresh);
    other.m_date = m_date;
    other.m_minDate = m_minDate;
    other.m_maxDate = m_maxDate;
    other.m_timeZone = m_timeZone ? std::make_unique<NSTimeZone>(*m_timeZone) : nullptr;
    other.m_textColor = m_textColor;
    other.m_backgroundColor = m_backgroundColor;
    other.m_hooks = m_hooks;
    other.m_elements = m_elements;
    other.m_style = m_style;
    other.m_drawsBackground = m_drawsBackground;
}

}
