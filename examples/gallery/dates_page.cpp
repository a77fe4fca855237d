#include "dates_page.h"
#include "StateSheet.h"

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/windows/TQDateRangePanel.h>
#include <plix/windows/TQLegacyDatePicker.h>
#include <plix/windows/date_entry.h>

#include <string_view>
#include <utility>

namespace gallery {

using namespace plix;

namespace {

constexpr float margin = 20;
constexpr float captionWidth = 104;
constexpr float pickerWidth = 268;
constexpr float pickerHeight = 64;

NSDate sampleDate()
{
    return NSCalendarDate::dateWithYear(2027, 12, 28, 12, 0, 0);
}

Ref<NSDatePicker> entry(float width, bool showsButton)
{
    auto const path = NSBundle::mainBundle().pathForResource("DatePicker", "bundle");
    auto const bundle = path ? NSBundle::bundleWithPath(*path) : nullptr;
    auto const* described = bundle ? bundle->classNamed("PLIXTextDatePicker") : nullptr;
    auto const object = described ? described->makeObject() : nullptr;
    Ref<NSDatePicker> picker(dynamic_cast<NSDatePicker*>(object.get()));
    if (!picker)
        return nullptr;
    picker->setFrame({ 0, 0, width, 22 });
    auto& dates = dynamic_cast<DateEntry&>(*picker);
    dates.setShowsDatePickerButton(showsButton);
    dates.setDateValue(sampleDate());
    return picker;
}

/// Says what was answered beside the button.
class Asker final : public NSView {
public:
    bool init(Rect frame)
    {
        if (!NSView::init(frame))
            return false;
        auto const button = make<NSButton>(Rect { 0, 0, 140, 26 });
        button->setBezelStyle(NSRoundedBezelStyle);
        button->setTitle("Enter dates …");
        button->setTarget(*this, &Asker::ask);
        addSubview(*button);
        m_answer = NSTextField::labelWithString("");
        m_answer->setFrame({ 152, 4, frame.width - 152, 17 });
        addSubview(*m_answer);
        return true;
    }
    bool isFlipped() const override { return true; }

private:
    void ask()
    {
        Ref<Asker> const protector(*this);
        if (!m_panel)
            m_panel = make<TQDateRangePanel>(Point {}, NSCalendarDate(sampleDate()), std::nullopt);
        m_panel->run();
        m_answer->setStringValue(m_panel->fromDate().descriptionWithCalendarFormat("%x") + " – "
            + m_panel->toDate().descriptionWithCalendarFormat("%x"));
    }

    Ref<TQDateRangePanel> m_panel;
    Ref<NSTextField> m_answer;
};

class DatesPage final : public NSView {
public:
    bool init()
    {
        if (!NSView::init(Rect {}))
            return false;
        auto const sheet = makeSheet();
        addSubview(*sheet);
        m_y = sheet->frame().height;
        addLabel("Month, day and year in three fields", { margin, m_y, 400, 16 }, true);
        m_y += 24;
        addPickers();
        addLabel("A range", { margin, m_y, 400, 16 }, true);
        addSubview(*make<Asker>(Rect { margin + captionWidth + 12, m_y + 20, 500, 26 }));
        setFrameSize({ sheet->frame().width, m_y + 46 + margin });
        sheet->setFrameSize(frame().size());
        return true;
    }
    bool isFlipped() const override { return true; }

private:
    static Ref<StateSheet> makeSheet()
    {
        auto sheet = make<StateSheet>(Size { 132, 26 });
        sheet->addHeading("Date entries");
        if (!entry(100, true))
            return sheet;
        sheet->addRow("Narrow", [] { return Ref<NSControl>(entry(100, true)); });
        sheet->addRow("Wide", [] { return Ref<NSControl>(entry(132, true)); });
        sheet->addRow("Without button", [] { return Ref<NSControl>(entry(100, false)); });
        sheet->sizeToRows();
        return sheet;
    }

    void addLabel(std::string_view text, Rect frame, bool isHeading)
    {
        auto const label = NSTextField::labelWithString(text);
        label->setFont(isHeading ? NSFont::boldSystemFontOfSize(11) : NSFont::systemFontOfSize(11));
        label->setAlignment(isHeading ? NSLeftTextAlignment : NSRightTextAlignment);
        label->setFrame(frame);
        addSubview(*label);
    }

    void addPickers()
    {
        constexpr std::pair<char const*, char const*> orders[] {
            { "Month, day, year", "%m/%d/%Y" },
            { "Day, month, year", "%d/%m/%Y" },
            { "Year, month, day", "%Y/%m/%d" },
            { "Year, day, month", "%Y/%d/%m" },
            { "Day, year, month", "%d/%Y/%m" },
            { "Month, year, day", "%m/%Y/%d" },
        };
        int index = 0;
        for (auto const& [caption, format] : orders) {
            float const x = margin + static_cast<float>(index % 2) * (captionWidth + pickerWidth);
            addLabel(caption, { x, m_y + 14, captionWidth, 16 }, false);
            auto const picker = make<TQLegacyDatePicker>(Rect { x + captionWidth - 78, m_y, pickerWidth, pickerHeight });
            picker->setBounds({ 0, 0, pickerWidth, pickerHeight });
            picker->setDate(NSCalendarDate(sampleDate()));
            picker->setDateFormat(format);
            addSubview(*picker);
            m_y += index % 2 == 1 ? pickerHeight + 4 : 0;
            ++index;
        }
    }

    float m_y { 0 };
};

}

Ref<NSView> makeDatesPage()
{
    return make<DatesPage>();
}

}
