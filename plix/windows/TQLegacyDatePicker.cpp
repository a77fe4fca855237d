#include <plix/windows/TQLegacyDatePicker.h>

#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/windows/date_plans.h>

#include <algorithm>

namespace plix {

namespace {

constexpr float titleBottom = 10;
constexpr float titleGap = 2.0F;

// Every field is bezeled, titles and separators too. That is meant.
Ref<NSTextField> makeField(float y, NSControlSize size)
{
    auto field = make<NSTextField>(Rect { 0, y, 1, 1 });
    field->cell()->setControlSize(size);
    field->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(size)));
    field->setBezeled(true);
    return field;
}

Ref<NSTextField> makeFixed(float y, NSControlSize size, std::string_view text)
{
    auto field = makeField(y, size);
    field->setEditable(false);
    field->setSelectable(false);
    field->setStringValue(text);
    field->sizeToFit();
    return field;
}

// As wide as the template.
Ref<NSTextField> makeEntry(NSTextField const& title, std::string_view widest, Ref<TQLegacyDatePicker> const& delegate)
{
    auto field = makeField(title.frame().maxY() + titleGap, NSRegularControlSize);
    field->setEditable(true);
    field->setStringValue(widest);
    field->sizeToFit();
    field->setDelegate(delegate);
    return field;
}

// A subclass may do without any of the fields.
void moveTo(NSView* view, float x)
{
    if (view)
        view->setFrameOrigin({ x, view->frame().y });
}

void show(NSTextField* field, std::int64_t number)
{
    if (field)
        field->setIntValue(static_cast<int>(number));
}

}

PLIX_DESCRIBE(TQLegacyDatePicker)
{
    description.action("syncDateFromInterface:", &TQLegacyDatePicker::syncDateFromInterface);
}

TQLegacyDatePicker::TQLegacyDatePicker() = default;
TQLegacyDatePicker::~TQLegacyDatePicker() = default;

bool TQLegacyDatePicker::init()
{
    return TQLegacyDatePicker::init(Rect {});
}

bool TQLegacyDatePicker::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    m_date = NSCalendarDate::calendarDate();
    initFields();
    return true;
}

bool TQLegacyDatePicker::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    m_date = NSCalendarDate::calendarDate();
    initFields();
    return true;
}

void TQLegacyDatePicker::initFields()
{
    m_month_Title_Field = makeFixed(titleBottom, NSSmallControlSize, NSLocalizedString("Month"));
    m_year_Title_Field = makeFixed(titleBottom, NSSmallControlSize, NSLocalizedString("Year"));
    m_day_Title_Field = makeFixed(titleBottom, NSSmallControlSize, NSLocalizedString("Day"));
    m_month_Field = makeEntry(*m_month_Title_Field, "XX", Ref<TQLegacyDatePicker>(*this));
    m_day_Field = makeEntry(*m_day_Title_Field, "XX", Ref<TQLegacyDatePicker>(*this));
    m_year_Field = makeEntry(*m_year_Title_Field, "XXXX", Ref<TQLegacyDatePicker>(*this));
    float const level = m_month_Field->frame().y;
    m_separator_Field = makeFixed(level, NSRegularControlSize, "/");
    m_separator2_Field = makeFixed(level, NSRegularControlSize, "/");
    // A subclass's own setDate() waits until it has fields of its own.
    TQLegacyDatePicker::setDate(NSCalendarDate(m_date));

    for (auto const& view : { m_month_Title_Field, m_year_Title_Field, m_day_Title_Field, m_month_Field, m_day_Field, m_year_Field,
             m_separator_Field, m_separator2_Field })
        addSubview(*view);
    setDateFormat(NSUserDefaults::standardUserDefaults().stringForKey(NSShortDateFormatString));
    Size extent;
    for (auto const& view : subviews()) {
        extent.width = std::max(extent.width, view->frame().maxX());
        extent.height = std::max(extent.height, view->frame().maxY());
    }
    setBounds({ 0, 0, static_cast<float>(static_cast<int>(extent.width)), static_cast<float>(static_cast<int>(extent.height)) });
}

void TQLegacyDatePicker::setDate(std::optional<NSCalendarDate> const& date)
{
    if (!date)
        return;
    m_date = *date;
    show(m_year_Field.get(), m_date.yearOfCommonEra());
    show(m_month_Field.get(), m_date.monthOfYear());
    show(m_day_Field.get(), m_date.dayOfMonth());
}

std::array<NSTextField*, 3> TQLegacyDatePicker::entries() const
{
    return { m_month_Field.get(), m_day_Field.get(), m_year_Field.get() };
}

NSTextField* TQLegacyDatePicker::entry(DatePart part) const
{
    return part == DatePart::month ? m_month_Field.get() : part == DatePart::day ? m_day_Field.get() : m_year_Field.get();
}

NSTextField* TQLegacyDatePicker::title(DatePart part) const
{
    return part == DatePart::month ? m_month_Title_Field.get()
        : part == DatePart::day    ? m_day_Title_Field.get()
                                   : m_year_Title_Field.get();
}

// The first view beside a field on one side of the key view loop that is neither a field nor the picker. A window that makes the
// loop anew has the separators and titles in it: then it is the view beyond them.
NSView* TQLegacyDatePicker::neighbor(NSView* (NSView::*side)() const) const
{
    auto const fields = entries();
    auto const isOwn = [&](NSView* view) { return view->isDescendantOf(*this) || std::ranges::find(fields, view) != fields.end(); };
    for (auto const* field : fields) {
        auto* view = field ? (field->*side)() : nullptr;
        if (view == this || std::ranges::find(fields, view) != fields.end())
            continue;
        while (view && view != field && isOwn(view))
            view = (view->*side)();
        if (view && !isOwn(view))
            return view;
    }
    return nullptr;
}

void TQLegacyDatePicker::setDateFormat(std::optional<std::string> const& format)
{
    if (!format)
        return;
    m_dateFormatString = format;
    auto const order = dateFieldOrder(*format);
    if (!order)
        return;
    auto* const previous = neighbor(&NSView::previousKeyView);
    auto* const next = neighbor(&NSView::nextKeyView);

    auto const positions = dateFieldPositions(*order);
    for (std::size_t i = 0; i < order->size(); ++i) {
        moveTo(entry((*order)[i]), positions.entries[i]);
        moveTo(title((*order)[i]), positions.titles[i]);
    }
    moveTo(m_separator_Field.get(), positions.separators[0]);
    moveTo(m_separator2_Field.get(), positions.separators[1]);
    setNeedsDisplay(true);

    NSView* last = previous;
    for (auto const part : *order) {
        auto* const field = entry(part);
        if (field && last)
            last->setNextKeyView(field);
        last = field ? field : last;
    }
    if (last)
        last->setNextKeyView(next);
}

void TQLegacyDatePicker::syncDateFromInterface(NSObject*)
{
}

void TQLegacyDatePicker::controlTextDidChange(NSNotification const& notification)
{
    NSLog(notification.name + " of " + (notification.object ? notification.object->description() : std::string("nobody")));
}

std::vector<Ref<NSView>> TQLegacyDatePicker::archivedSubviews() const
{
    auto views = Base::archivedSubviews();
    std::erase_if(views, [this](Ref<NSView> const& view) {
        std::array<NSView const*, 8> const own { m_month_Field.get(), m_day_Field.get(), m_year_Field.get(),
            m_month_Title_Field.get(), m_day_Title_Field.get(), m_year_Title_Field.get(), m_separator_Field.get(),
            m_separator2_Field.get() };
        return std::ranges::find(own, view.get()) != own.end();
    });
    return views;
}

}
