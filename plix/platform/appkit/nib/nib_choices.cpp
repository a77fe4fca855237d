#include <plix/platform/appkit/nib/NibReading.h>
#include <plix/platform/appkit/nib/nib_kinds.h>
#include <plix/platform/appkit/nib/nib_words.h>

#include <plix/platform/appkit/NSDatePickerCell.h>
#include <plix/platform/appkit/NSPopUpButtonCell.h>
#include <plix/platform/appkit/NSSegmentedCell.h>
#include <plix/platform/appkit/tab_layout.h>
#include <plix/platform/base/NSDate.h>

namespace plix {

namespace {

constexpr NibWord arrowPositions[]
    = { { "noArrow", NSPopUpNoArrow }, { "arrowAtCenter", NSPopUpArrowAtCenter }, { "arrowAtBottom", NSPopUpArrowAtBottom } };
constexpr NibWord edges[] = { { "minX", NSMinXEdge }, { "minY", NSMinYEdge }, { "maxX", NSMaxXEdge }, { "maxY", NSMaxYEdge } };
constexpr NibWord trackingModes[] = { { "selectOne", NSSegmentSwitchTrackingSelectOne },
    { "selectAny", NSSegmentSwitchTrackingSelectAny }, { "momentary", NSSegmentSwitchTrackingMomentary } };
constexpr NibWord datePickerStyles[] = { { "textFieldAndStepper", NSTextFieldAndStepperDatePickerStyle },
    { "clockAndCalendar", NSClockAndCalendarDatePickerStyle }, { "textField", NSTextFieldDatePickerStyle } };
constexpr NibWord tabViewTypes[] = {
    { "topTabsBezelBorder", NSTopTabsBezelBorder },
    { "leftTabsBezelBorder", NSLeftTabsBezelBorder },
    { "bottomTabsBezelBorder", NSBottomTabsBezelBorder },
    { "rightTabsBezelBorder", NSRightTabsBezelBorder },
    { "noTabsBezelBorder", NSNoTabsBezelBorder },
    { "noTabsLineBorder", NSNoTabsLineBorder },
    { "noTabsNoBorder", NSNoTabsNoBorder },
};
constexpr NibWord dateElements[] = {
    { "hour", NSHourMinuteDatePickerElementFlag },
    { "minute", NSHourMinuteDatePickerElementFlag },
    { "second", NSHourMinuteSecondDatePickerElementFlag },
    { "year", NSYearMonthDatePickerElementFlag },
    { "month", NSYearMonthDatePickerElementFlag },
    { "day", NSYearMonthDayDatePickerElementFlag },
    { "timeZone", NSTimeZoneDatePickerElementFlag },
    { "era", NSEraDatePickerElementFlag },
};

/// The place of the item with that id among a menu's; -1 where it is none of them.
int indexOfItem(NibValue const& menu, std::string_view id)
{
    auto const* const* described = std::get_if<NibObject const*>(&menu.value);
    auto const* items = described ? (*described)->value("items") : nullptr;
    auto const* array = items ? std::get_if<NibValue::Array>(&items->value) : nullptr;
    for (std::size_t i = 0; array && i < array->size(); ++i) {
        if (std::get<NibObject const*>((*array)[i].value)->id == id)
            return static_cast<int>(i);
    }
    return -1;
}

void readSegment(NibReading& segment)
{
    segment.text("label", "label");
    segment.text("toolTip", "toolTip");
    segment.image("image", "image");
    segment.object("menu", "menu", "NSMenu");
    segment.number("width", "width");
    segment.integer("tag", "tag");
    segment.set("selected", segment.flagValue("selected", false));
    segment.set("enabled", segment.flagValue("enabled", true));
}

}

void readNibPopUpButtonCell(NibReading& reading)
{
    reading.object("menu", "menu", "NSMenu");
    reading.flag("pullsDown", "pullsDown");
    reading.flag("altersStateOfSelectedItem", "altersStateOfSelectedItem");
    reading.choice("arrowPosition", "arrowPosition", arrowPositions);
    reading.choice("preferredEdge", "preferredEdge", edges);
    if (!reading.has("selectedItem"))
        return;
    int const selected = indexOfItem(reading.value("menu"), reading.word("selectedItem"));
    if (selected < 0)
        reading.warn("its menu has no item " + std::string(reading.word("selectedItem")));
    else
        reading.set("selectedItem", selected);
}

void readNibComboBoxCell(NibReading& reading)
{
    for (auto const* flag : { "hasVerticalScroller", "completes", "usesDataSource", "buttonBordered" })
        reading.flag(flag, flag);
    reading.integer("numberOfVisibleItems", "numberOfVisibleItems");
    reading.number("itemHeight", "itemHeight");
    reading.size("intercellSpacing", "intercellSpacing");
    ObjectValue::Array items;
    for (auto& text : reading.strings("objectValues"))
        items.emplace_back(std::move(text));
    reading.set("items", std::move(items));
}

void readNibSegmentedCell(NibReading& reading)
{
    reading.choice("trackingMode", "trackingMode", trackingModes);
    NibValue::Array segments;
    int selected = -1;
    reading.parts("segments", [&](NibReading& segment) {
        readSegment(segment);
        if (segment.flagValue("selected", false))
            selected = static_cast<int>(segments.size());
        NibValue::Array parts;
        for (auto const* key : { "label", "toolTip", "image", "menu", "width", "tag", "selected", "enabled" })
            parts.push_back(segment.value(key));
        segments.push_back({ std::move(parts) });
    });
    reading.set("segments", NibValue { std::move(segments) });
    reading.set("selectedSegment", selected);
}

void readNibDatePickerCell(NibReading& reading)
{
    reading.choice("datePickerStyle", "datePickerStyle", datePickerStyles);
    reading.mask("datePickerElements", "datePickerElements", dateElements);
    for (auto const* key : { "date", "minDate", "maxDate" }) {
        reading.part(key, [&](NibReading& date) {
            if (auto const seconds = date.numberValue("timeIntervalSinceReferenceDate"))
                reading.set(key, NSDate::dateWithTimeIntervalSinceReferenceDate(*seconds));
        });
    }
    reading.color("textColor", "textColor");
    reading.color("backgroundColor", "backgroundColor");
    reading.flag("drawsBackground", "drawsBackground");
}

void readNibDateFormatter(NibReading& reading)
{
    reading.text("dateFormat", "dateFormat");
    reading.flag("allowsNaturalLanguage", "allowsNaturalLanguage");
}

void readNibTabView(NibReading& reading)
{
    reading.choice("type", "tabViewType", tabViewTypes);
    reading.choice("controlSize", "controlSize", nibControlSizes);
    reading.objects("tabViewItems", "tabViewItems", "NSTabViewItem");
    reading.reference("initialItem", "selectedTabViewItem", "NSTabViewItem");
    reading.font("font", "font");
    reading.flag("drawsBackground", "drawsBackground");
    reading.flag("allowsTruncatedLabels", "allowsTruncatedLabels");
}

void readNibTabViewItem(NibReading& reading)
{
    reading.text("label", "label");
    if (reading.has("toolTip"))
        reading.warn("its toolTip is not known");
    reading.code("identifier", "identifier");
    reading.color("color", "color");
    reading.object("view", "view", "NSView");
}

}
