#include <plix/windows/TQDateRangePanel.h>

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/format/dates.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSDateFormatter.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/system/identity.h>
#include <plix/windows/date_entry.h>
#include <plix/windows/date_entry_loading.h>
#include <plix/windows/date_plans.h>

namespace plix {

namespace {

constexpr Rect unfitted { 0, 0, 1, 1 };
constexpr Rect entryFrame { 0, 0, 100, 22 };
constexpr float buttonSlack = 10.0F;
constexpr unsigned panelStyle = NSTitledWindowMask | NSTexturedBackgroundWindowMask;

bool usesPickers()
{
    return PLIXSystemVersion() > 0x103F;
}

Ref<NSFont> regularFont()
{
    return NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(NSRegularControlSize));
}

Ref<NSTextField> makeLabel(std::string const& key)
{
    auto label = make<PLIXChiseledTextField>(unfitted);
    label->setStringValue(NSLocalizedString(key) + ':');
    label->setBordered(false);
    label->setEditable(false);
    label->setSelectable(false);
    label->setDrawsBackground(false);
    label->cell()->setControlSize(NSRegularControlSize);
    label->setFont(regularFont());
    label->sizeToFit();
    return label;
}

Ref<NSButton> makeOKButton(TQDateRangePanel& panel)
{
    auto button = make<NSButton>(unfitted);
    button->setTitle(NSLocalizedString("OK"));
    button->setBezelStyle(NSRoundedBezelStyle);
    button->setBordered(true);
    button->cell()->setControlSize(NSRegularControlSize);
    button->setFont(regularFont());
    button->sizeToFit();
    button->setFrameSize({ button->frame().width + buttonSlack, button->frame().height });
    button->setTarget(Ref<NSObject>(panel));
    button->setAction(Selector("OK_Button:"));
    button->setKeyEquivalent("\r");
    return button;
}

// Empty where the host has given the entry another formatter or none.
std::string formatOfEntry(NSTextField const& entry)
{
    auto const* formatter = dynamic_cast<NSDateFormatter const*>(entry.formatter());
    return formatter ? formatter->dateFormat() : std::string {};
}

void show(NSObject* entry, NSCalendarDate const& date)
{
    if (auto* picker = dynamic_cast<DateEntry*>(entry))
        picker->setDateValue(date);
    else if (auto* field = dynamic_cast<NSTextField*>(entry))
        field->setStringValue(date.descriptionWithCalendarFormat(formatOfEntry(*field)));
}

std::optional<NSCalendarDate> dateIn(NSObject* entry)
{
    if (auto const* picker = dynamic_cast<DateEntry const*>(entry))
        return NSCalendarDate(picker->dateValue());
    if (auto const* field = dynamic_cast<NSTextField const*>(entry))
        return NSCalendarDate::dateWithString(field->stringValue(), formatOfEntry(*field));
    return std::nullopt;
}

}

PLIX_DESCRIBE(TQDateRangePanel)
{
    description.action("OK_Button:", &TQDateRangePanel::OK_Button);
}

TQDateRangePanel::TQDateRangePanel() = default;
TQDateRangePanel::~TQDateRangePanel() = default;

bool TQDateRangePanel::init()
{
    return TQDateRangePanel::init(Point {}, std::nullopt, std::nullopt);
}

bool TQDateRangePanel::init(NSCoder& coder)
{
    setFromDate(std::nullopt);
    setToDate(std::nullopt);
    return Base::init(coder);
}

bool TQDateRangePanel::init(Point originAt, std::optional<NSCalendarDate> fromDate, std::optional<NSCalendarDate> toDate)
{
    setFromDate(std::move(fromDate));
    setToDate(std::move(toDate));
    return initInterfaceAtOrigin(originAt);
}

void TQDateRangePanel::makeEntries()
{
    if (!usesPickers())
        return makeTextFields();
    auto const* described = dateEntryClass();
    for (auto* entry : { &m_fromObject, &m_toObject })
        *entry = makeDateEntry(described, entryFrame);
}

void TQDateRangePanel::makeTextFields()
{
    auto const format = NSUserDefaults::standardUserDefaults().stringForKey(NSShortDateFormatString);
    auto const shortest = DateFormatStringToShortestDateFormatString(format.value_or(std::string {}));
    for (auto* entry : { &m_fromObject, &m_toObject }) {
        auto const field = make<NSTextField>(entryFrame);
        // A template, which only says how wide the field is to be.
        field->setStringValue(" XX/XX/XXXX");
        field->sizeToFit();
        field->setFormatter(make<NSDateFormatter>(shortest, true));
        field->setStringValue(NSCalendarDate::calendarDate().descriptionWithCalendarFormat(shortest));
        *entry = field;
    }
}

bool TQDateRangePanel::initInterfaceAtOrigin(Point)
{
    auto const button = makeOKButton(*this);
    auto const fromLabel = makeLabel("From");
    auto const toLabel = makeLabel("To");
    makeEntries();
    Ref<NSView> const fromEntry(dynamic_cast<NSView*>(m_fromObject.get()));
    Ref<NSView> const toEntry(dynamic_cast<NSView*>(m_toObject.get()));

    DatePanelSizes const sizes { fromLabel->frame().size(), toLabel->frame().size(),
        fromEntry ? fromEntry->frame().size() : Size {}, button->frame().size() };
    auto const layout = datePanelLayout(sizes, usesPickers() ? DateEntryKind::picker : DateEntryKind::textField);
    fromLabel->setFrameOrigin(layout.fromLabel);
    toLabel->setFrameOrigin(layout.toLabel);
    button->setFrameOrigin(layout.button);
    auto const content = rectWith({}, layout.content);
    auto const view = make<NSView>(content);
    if (fromEntry && toEntry) {
        fromEntry->setFrameOrigin(layout.fromEntry);
        toEntry->setFrameOrigin(layout.toEntry);
        view->addSubview(*fromEntry);
        view->addSubview(*toEntry);
    }
    view->addSubview(*button);
    view->addSubview(*fromLabel);
    view->addSubview(*toLabel);

    if (!Base::init(content, panelStyle, NSBackingStoreBuffered, false))
        return false;
    contentView()->addSubview(*view);
    setTitle(NSLocalizedString("Enter Date Range"));
    return true;
}

void TQDateRangePanel::setFromDate(std::optional<NSCalendarDate> date)
{
    m_fromDate = date ? std::move(*date) : NSCalendarDate::calendarDate();
}

void TQDateRangePanel::setToDate(std::optional<NSCalendarDate> date)
{
    m_toDate = date ? std::move(*date) : NSCalendarDate::calendarDate();
}

void TQDateRangePanel::internationalize()
{
}

bool TQDateRangePanel::run()
{
    if (m_isRunning)
        return false;
    Ref<TQDateRangePanel> const protector(this);
    struct Running {
        bool& is;
        ~Running() { is = false; }
    } const running { m_isRunning = true };
    show(m_fromObject.get(), m_fromDate);
    show(m_toObject.get(), m_toDate);
    center();
    makeKeyAndOrderFront(nullptr);
    return NSApp->runModalForWindow(*this) != 0;
}

void TQDateRangePanel::OK_Button(NSObject*)
{
    Ref<TQDateRangePanel> const protector(this);
    if (!makeFirstResponder(this))
        return;
    NSApp->stopModalWithCode(1);
    orderOut(nullptr);
    // Both are read before either is set: an override may show dates.
    auto fromDate = dateIn(m_fromObject.get());
    auto toDate = dateIn(m_toObject.get());
    setFromDate(std::move(fromDate));
    setToDate(std::move(toDate));
}

}
