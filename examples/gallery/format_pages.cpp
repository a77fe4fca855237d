#include "format_pages.h"
#include "Canvas.h"
#include "FixedWorld.h"
#include "LivePage.h"
#include "page_parts.h"

#include <plix/format/TQTimeIntervalFormatter.h>
#include <plix/format/attributed_string_additions.h>
#include <plix/format/collection_additions.h>
#include <plix/format/color_additions.h>
#include <plix/format/csv_line.h>
#include <plix/format/dates.h>
#include <plix/format/file_size_text.h>
#include <plix/format/menu_additions.h>
#include <plix/format/size_and_duration.h>
#include <plix/format/string_additions.h>
#include <plix/format/tab_view_additions.h>
#include <plix/format/truncation.h>
#include <plix/format/view_additions.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/platform/foundation/NSCharacterSet.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>

#include <algorithm>
#include <memory>

namespace gallery {

using namespace plix;

namespace {

// MARK: intervals and sizes

Ref<NSView> makeTQTimeIntervalFormatterPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const format = make<TQTimeIntervalFormatter>());
    SHOW(format->stringForObjectValue(694'845));
    SHOW(format->stringForObjectValue(-61));
    RUN(format->setMaximumComponent(TQTimeIntervalMinutes));
    SHOW(format->stringForObjectValue(3725));
    RUN(format->setShowsMilliseconds(true));
    SHOW(format->stringForObjectValue(3725.25));
    SHOW(format->stringForObjectValue("tea"));
    transcript->addHeading("Read");
    RUN(ObjectValue value);
    RUN(std::string error);
    SHOW(format->getObjectValue(value, "62:05.5", error));
    SHOW(value);
    SHOW(format->getObjectValue(value, "tea", error));
    SHOW(value);
    SHOW(format->getObjectValue(value, std::nullopt, error));
    RUN(format->setMaximumTimeInterval(100));
    SHOW(format->stringForObjectValue(3725));
    auto const page = LivePage::page(transcript);
    auto const field = textField("", 120);
    field->setFormatter(make<TQTimeIntervalFormatter>(TQTimeIntervalSeconds, TQTimeIntervalHours));
    field->setObjectValue(3725);
    page->addControl(field);
    page->addControl(hint("A field with one of hours, minutes and seconds"));
    return page;
}

Ref<NSView> makeIntervalsPage()
{
    auto const transcript = make<Transcript>();
    RUN(FixedWorld const world);
    for (double const seconds : { 0.5, 1.0, 59.0, 3661.0, 90'061.0, 190'061.0 })
        transcript->show("PLIXLongStringForTimeInterval(" + numberText(seconds) + ")", PLIXLongStringForTimeInterval(seconds));
    transcript->addHeading("By the clock");
    for (double const seconds : { 0.0, 59.9, 3725.0, 360'000.0, -5.0, 1e12 })
        transcript->show("TimeIntervalDescription(" + numberText(seconds) + ")", TimeIntervalDescription(seconds));
    return transcript;
}

Ref<NSView> makeFileSizesPage()
{
    auto const transcript = make<Transcript>();
    SHOW(StringForFileSize(0));
    SHOW(StringForFileSize(1));
    SHOW(StringForFileSize(1023));
    SHOW(StringForFileSize(1024));
    SHOW(StringForFileSize(1536));
    SHOW(StringForFileSize(1024 * 1024 - 1));
    SHOW(StringForFileSize(5 * 1024 * 1024));
    SHOW(StringForFileSize(3'000'000'000));
    SHOW(StringForFileSize(2048ULL << 30));
    transcript->addNote("Units change at powers of 1024; rounding may still show 1024.0 of the smaller one.");
    return transcript;
}

// MARK: dates

Ref<NSView> makeDateRangesPage()
{
    auto const transcript = make<Transcript>();
    transcript->run("// On Saturday, 12 July 2008, at 15:23:45");
    RUN(FixedWorld const world("en_US", "UTC"));
    RUN(NSCalendarDate start, end);
    char const* const names[] { "today", "yesterday", "last week", "last month", "last quarter", "last year", "this week",
        "this month", "this quarter", "this year", "week to date", "month to date", "quarter to date", "year to date" };
    for (int code = 0; code < 14; ++code) {
        DateRangeForMnemonic(code, start, end);
        transcript->add("DateRangeForMnemonic(" + std::to_string(code) + (code < 10 ? ")  " : ") ") + names[code],
            start.descriptionWithCalendarFormat("%d %b %Y – ") + end.descriptionWithCalendarFormat("%d %b %Y"));
    }
    SHOW(end.description());
    SHOW(DateRangeForMnemonic(99, start, end));
    return transcript;
}

Ref<NSView> makeDateFormatsPage()
{
    auto const transcript = make<Transcript>();
    transcript->addHeading("DateFormatStringToShortestDateFormatString of");
    for (auto const* format : { "%A, %B %d, %Y", "%d. %B %Y", "%Y-%m-%d", "%H:%M", "" })
        transcript->show(quotedText(format), DateFormatStringToShortestDateFormatString(format));
    transcript->addHeading("Written by such a format");
    RUN(FixedWorld const world("de_DE", "UTC"));
    RUN(auto const format = DateFormatStringToShortestDateFormatString("%A, %e. %B %Y"));
    SHOW(format);
    SHOW(NSCalendarDate(NSDate::date()).descriptionWithCalendarFormat(format));
    return transcript;
}

// MARK: texts

Ref<NSView> makeCsvPage()
{
    auto const transcript = make<Transcript>();
    SHOW(CSVLineComponents("Assam,4.50,2"));
    SHOW(CSVLineComponents("Assam,\"4,50\",2\r\nSencha"));
    SHOW(CSVLineComponents("a,\"say \"\"when\"\"\",b"));
    SHOW(CSVLineComponents("say \"\"when\"\",b"));
    SHOW(CSVLineComponents("\"not, here\",b"));
    SHOW(CSVLineComponents(",,"));
    SHOW(CSVLineComponents(""));
    SHOW(CSVLineComponents("a,\"never closed"));
    transcript->addNote(
        "A quoted field begins right after a comma, never at the line’s start, and keeps doubled quotes as they are.");
    return transcript;
}

Ref<NSView> makeColorTextPage()
{
    auto const transcript = make<Transcript>();
    SHOW(asCalibratedRGBString(*NSColor::orangeColor()));
    SHOW(asCalibratedRGBString(*NSColor::colorWithCalibratedWhite(0.5F, 0.25F)));
    SHOW(colorFromCalibratedRGBString("1,0.5,0,1")->description());
    SHOW(colorFromCalibratedRGBString("2,-1,tea,0.5")->description());
    SHOW(colorFromCalibratedRGBString("1,0.5")->description());
    SHOW(colorFromCalibratedRGBString(std::nullopt)->description());
    std::vector<Ref<NSView>> tiles;
    for (auto const* text : { "1,0.5,0,1", "0.2,0.6,0.3,1", "0.25,0.5,0.9,0.5", "" })
        tiles.push_back(drawing(*text ? text : "no text", { 121, 40 },
            [text](Rect bounds) { colorFromCalibratedRGBString(text)->drawSwatchInRect(bounds); }));
    return tiledPage(tiles, transcript);
}

Ref<NSView> makeStringAdditionsPage()
{
    auto const transcript = make<Transcript>();
    SHOW(fileExtension("/music/tea.mp3"));
    SHOW(fileExtension("/music/tea.jpeg"));
    SHOW(fileExtension("notes.c"));
    SHOW(fileExtension("v1.5 b"));
    SHOW(stringByDeletingFileExtension("/music/tea.mp3"));
    SHOW(stringByDeletingFileExtension("notes.c"));
    SHOW(stringByDeletingFileExtension("Chapter 1.Water"));
    SHOW(withoutCharactersInSet("1,234,567", NSCharacterSet::punctuationCharacterSet()));
    SHOW(withoutCharactersInSet("", NSCharacterSet::letterCharacterSet()));
    transcript->addNote("An extension has three or four characters, all of them letters or digits.");
    return transcript;
}

Ref<NSView> makeTruncationPage()
{
    auto const transcript = make<Transcript>();
    RUN(Attributes const look { { NSFontAttributeName, NSFont::systemFontOfSize(13) } });
    RUN(std::string const text = "The quick brown fox");
    SHOW(TruncateStringWithAttributes(text, &look, 1000));
    SHOW(TruncateStringWithAttributes(text, &look, 80));
    SHOW(TruncateStringWithAttributes("", &look, 80));
    SHOW(TruncateStringWithAttributes(text, nullptr, 80));
    SHOW(TruncateStringWithAttributes(text, &look, 4));
    auto const line = transcript->add("In a width of 120", TruncateStringWithAttributes(text, &look, 120).value_or(""));
    auto const page = LivePage::page(transcript);
    auto const width = std::make_shared<float>(120.F);
    auto const change = [=, transcript = transcript.get()](float points) {
        return [=] {
            *width = std::clamp(*width + points, 30.F, 160.F);
            transcript->setResult(line, numberText(*width) + ": " + TruncateStringWithAttributes(text, &look, *width).value_or(""));
        };
    };
    page->addControl(pushButton("Narrower", change(-10)));
    page->addControl(pushButton("Wider", change(10)));
    return page;
}

// MARK: additions

Ref<NSView> makeCollectionAdditionsPage()
{
    auto const transcript = make<Transcript>();
    RUN(ObjectValue::Array teas { "Assam", "Sencha", "Rooibos", "Sencha" });
    SHOW(objectsAtIndexes(teas, NSIndexSet { 0, 2 }));
    SHOW(objectsAtIndexes(teas, NSIndexSet { 0, 9 }));
    SHOW(objectsAtIndexes(teas, std::nullopt));
    SHOW(indexesOfObjects(teas, ObjectValue::Array { "Sencha", "Rooibos" }));
    SHOW(indexesOfObjects(teas, ObjectValue::Array { "Coffee" }).firstIndex() == NSNotFound);
    SHOW(indexSetFromRowNumbers(ObjectValue::Array { 3, 1, -1, 2.7 }));
    RUN(insertObjects(teas, std::vector<ObjectValue> { "Oolong", "Mate" }, 1));
    SHOW(teas);
    RUN(insertObjects(teas, std::vector<ObjectValue> { "Far" }, 99));
    SHOW(teas.size());
    RUN(replaceObject(teas, "Mate", "Chai"));
    RUN(removeObjectsInArray_Optimized(teas, std::vector<ObjectValue> { "Sencha" }));
    SHOW(teas);
    return transcript;
}

Ref<NSView> makeAttributedAdditionsPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const text = make<NSMutableAttributedString>("Tea for two"));
    SHOW(attribute(*text, NSForegroundColorAttributeName));
    RUN(text->addAttribute(NSForegroundColorAttributeName, NSColor::redColor(), { 0, 3 }));
    RUN(text->addAttribute(NSKernAttributeName, 2, { 4, 3 }));
    SHOW(attribute(*text, NSForegroundColorAttributeName).as<NSColor>() == NSColor::redColor());
    SHOW(text->runs().size());
    RUN(replaceAttribute(*text, NSForegroundColorAttributeName, NSColor::blueColor()));
    SHOW(text->attribute(NSForegroundColorAttributeName, 10).as<NSColor>() == NSColor::blueColor());
    SHOW(text->attribute(NSKernAttributeName, 5));
    SHOW(text->runs().size());
    SHOW(attribute(*make<NSAttributedString>(""), NSKernAttributeName));
    return transcript;
}

Ref<NSView> makeMenuAdditionsPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const menu = make<NSMenu>("Tea"));
    SHOW(lastItem(*menu) == nullptr);
    RUN(auto const assam = make<NSMenuItem>("Assam", Selector(), ""));
    RUN(auto const sencha = make<NSMenuItem>("Sencha", Selector(), ""));
    RUN(addItems(*menu, std::vector { assam, sencha }));
    RUN(addItems(*menu, std::nullopt));
    SHOW(lastItem(*menu)->title());
    RUN(sencha->setTag(7));
    RUN(auto const popUp = make<NSPopUpButton>(Rect { 0, 0, 120, 26 }, false));
    RUN(popUp->setMenu(menu));
    SHOW(itemWithTag(*popUp, 7)->title());
    SHOW(selectItemWithTag(*popUp, 7));
    SHOW(popUp->titleOfSelectedItem());
    SHOW(selectItemWithTag(*popUp, 99));
    RUN(selectItemWithTagOrNone(*popUp, 99));
    SHOW(popUp->indexOfSelectedItem());
    auto const page = LivePage::page(transcript);
    page->addControl(popUp);
    page->addControl(pushButton("Tag 7", [popUp = popUp.get()] { selectItemWithTag(*popUp, 7); }));
    page->addControl(pushButton("Tag 99 or None", [popUp = popUp.get()] { selectItemWithTagOrNone(*popUp, 99); }));
    return page;
}

Ref<NSView> makeViewAdditionsPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const tabs = make<NSTabView>(Rect { 0, 0, 200, 100 }));
    RUN(auto const item = make<NSTabViewItem>(ObjectValue("teas")));
    RUN(tabs->addTabViewItem(*item));
    SHOW(tabViewItemWithIdentifier(*tabs, "teas") == item.get());
    SHOW(tabViewItemWithIdentifier(*tabs, "coffees") == nullptr);
    transcript->addHeading("After a view in its chain of responders");
    RUN(auto const form = Form::page());
    RUN(auto const box = make<NSView>(Rect { 0, 0, 50, 50 }));
    RUN(auto const field = textField("Tea", 40));
    RUN(form->addSubview(*box));
    RUN(box->addSubview(*field));
    SHOW(nextResponderOfClass(*field, NSView::staticClass()) == box.get());
    SHOW(nextResponderOfClass(*box, NSView::staticClass()) == form.get());
    SHOW(nextResponderOfClass(*field, NSTextField::staticClass()) == nullptr);
    return transcript;
}

constexpr Page all[] {
    { "TQTimeIntervalFormatter", "TQTimeIntervalFormatter", valuesSection, "format_pages.cpp", makeTQTimeIntervalFormatterPage },
    { "intervals", "Intervals as words", valuesSection, "format_pages.cpp", makeIntervalsPage },
    { "file_sizes", "Sizes of files", valuesSection, "format_pages.cpp", makeFileSizesPage },
    { "date_ranges", "Ranges of dates", valuesSection, "format_pages.cpp", makeDateRangesPage },
    { "date_formats", "Short formats of dates", valuesSection, "format_pages.cpp", makeDateFormatsPage },
    { "csv", "Comma-separated values", valuesSection, "format_pages.cpp", makeCsvPage },
    { "color_text", "Colours as text", valuesSection, "format_pages.cpp", makeColorTextPage },
    { "string_additions", "Extensions and characters", valuesSection, "format_pages.cpp", makeStringAdditionsPage },
    { "truncation", "Truncated texts", valuesSection, "format_pages.cpp", makeTruncationPage },
    { "collection_additions", "Arrays and indexes", valuesSection, "format_pages.cpp", makeCollectionAdditionsPage },
    { "attributed_additions", "One attribute of a text", valuesSection, "format_pages.cpp", makeAttributedAdditionsPage },
    { "menu_additions", "Items by their tags", valuesSection, "format_pages.cpp", makeMenuAdditionsPage },
    { "view_additions", "Tabs and responders found", valuesSection, "format_pages.cpp", makeViewAdditionsPage },
};

}

std::span<Page const> formatPages()
{
    return all;
}

}
