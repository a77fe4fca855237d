#include "welcome_pages.h"
#include "Desk.h"

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/controls/PLIXSegmentedControl.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/foundation/NSTimeZone.h>
#include <plix/platform/foundation/calendar_fields.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/tables/PLIXImageAndTextCell.h>
#include <plix/tables/PLIXTableView.h>

namespace gallery {

using namespace plix;

namespace {

constexpr float pageWidth = 560;
constexpr float margin = 24;

struct Planet {
    char const* name;
    char const* day;
    float hue;
};
constexpr Planet planets[] { { "Mercury", "4,223 hours", 0.08F }, { "Venus", "2,802 hours", 0.12F }, { "Earth", "24 hours", 0.58F },
    { "Mars", "24 hours 40 minutes", 0.02F }, { "Jupiter", "9 hours 56 minutes", 0.1F }, { "Saturn", "10 hours 42 minutes", 0.14F },
    { "Uranus", "17 hours 14 minutes", 0.5F }, { "Neptune", "16 hours 6 minutes", 0.62F } };

Ref<NSImage> ball(float hue)
{
    auto image = make<NSImage>(Size { 16, 16 });
    FocusLock const focus(*image);
    auto const oval = NSBezierPath::bezierPathWithOvalInRect({ 1, 1, 14, 14 });
    NSColor::colorWithCalibratedHue(hue, 0.6F, 0.8F, 1)->set();
    oval->fill();
    NSColor::colorWithCalibratedHue(hue, 0.3F, 1, 0.8F)->set();
    NSBezierPath::bezierPathWithOvalInRect({ 4, 7, 6, 6 })->fill();
    return image;
}

class PlanetRows final : public NSObject {
public:
    long numberOfRowsInTableView(NSTableView&) { return std::ssize(planets); }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
    {
        return column.identifier() == ObjectValue("name") ? planets[row].name : planets[row].day;
    }
    void willDisplayCell(NSTableView&, NSCell& cell, NSTableColumn& column, long row)
    {
        if (column.identifier() == ObjectValue("name"))
            cell.setImage(ball(planets[row].hue));
    }
};

void addText(Desk& desk, std::string_view text, Ref<NSFont> const& font, Rect frame, ThemeRole role)
{
    auto const label = NSTextField::labelWithString(text);
    label->setFont(font);
    label->cell()->setWraps(true);
    label->setTextColor(Theme::current().color(role));
    label->setFrame(frame);
    desk.addSubview(*label);
}

void addTable(Desk& desk, Rect frame)
{
    auto const table = make<PLIXTableView>(rectWith({}, frame.size()));
    auto const name = make<NSTableColumn>(ObjectValue("name"));
    name->setDataCell(make<PLIXImageAndTextCell>(""));
    name->setWidth(110);
    auto const day = make<NSTableColumn>(ObjectValue("day"));
    day->setWidth(frame.width - 130);
    for (auto const& [column, title] : { std::pair(name, "Planet"), std::pair(day, "From noon to noon") }) {
        column->headerCell()->setStringValue(title);
        column->setEditable(false);
        table->addTableColumn(*column);
    }
    auto const rows = make<PlanetRows>();
    desk.keep(rows);
    table->setRowHeight(20);
    table->setHighlightStyle(PLIXHighlightCapsule);
    table->setDataSource(rows);
    table->setDelegate(rows);
    table->selectRow(2, false);
    auto const scroll = make<NSScrollView>(frame);
    scroll->setBorderType(NSBezelBorder);
    scroll->setHasVerticalScroller(true);
    scroll->setAutohidesScrollers(true);
    scroll->setDocumentView(table);
    desk.addSubview(*scroll);
}

void addControls(Desk& desk, Point at)
{
    auto const add = [&](NSView& view, float x, float y) {
        view.setFrameOrigin({ at.x + x, at.y + y });
        desk.addSubview(view);
    };
    auto const popUp = make<NSPopUpButton>(Rect { 0, 0, 188, 26 }, false);
    popUp->addItemsWithTitles({ "By name", "By length of the day", "By distance from the sun" });
    add(*popUp, 0, 0);
    auto const segments = make<NSSegmentedControl>(Rect { 0, 0, 188, 24 });
    segments->setSegmentCount(3);
    for (long i = 0; i < 3; ++i) {
        segments->setLabel(std::vector { "Day", "Week", "Month" }[static_cast<std::size_t>(i)], i);
        segments->setWidth(i == 1 ? 62 : 63, i);
    }
    segments->setSelectedSegment(1);
    add(*segments, 0, 38);
    auto const date = make<NSDatePicker>(Rect { 0, 0, 188, 22 });
    date->setTimeZone(NSTimeZone::timeZoneForSecondsFromGMT(0));
    date->setDateValue(NSTimeZone::timeZoneForSecondsFromGMT(0).dateForFields({ 2008, 7, 12, 15, 23, 45 }));
    add(*date, 0, 74);
    auto const bar = make<NSProgressIndicator>(Rect { 0, 0, 188, 14 });
    bar->setIndeterminate(false);
    bar->setDoubleValue(64);
    add(*bar, 0, 110);
    auto const check = make<NSButton>(Rect { 0, 0, 90, 18 });
    check->setButtonType(NSSwitchButton);
    check->setTitle("Rotating");
    check->setState(NSOnState);
    add(*check, 0, 141);
    auto const button = make<NSButton>(Rect { 0, 0, 90, 28 });
    button->setBezelStyle(NSRoundedBezelStyle);
    button->setTitle("Visit");
    button->setKeyEquivalent("\r");
    add(*button, 98, 136);
}

void addCode(Desk& desk, Rect frame, std::string_view code)
{
    auto const text = make<NSTextView>(rectWith({}, frame.size()));
    text->setString(code);
    text->setFont(NSFont::userFixedPitchFontOfSize(11));
    text->setTextContainerInset({ 8, 8 });
    text->setEditable(false);
    auto const scroll = make<NSScrollView>(frame);
    scroll->setBorderType(NSLineBorder);
    scroll->setBackgroundColor(NSColor::textBackgroundColor());
    scroll->setDocumentView(text);
    desk.addSubview(*scroll);
}

Ref<NSView> makeWelcomePage()
{
    auto desk = make<Desk>(Rect { 0, 0, pageWidth, 492 });
    float const width = pageWidth - 2 * margin;
    addText(*desk, "plix", NSFont::boldSystemFontOfSize(30), { margin, 14, width, 40 }, ThemeRole::buttonText);
    addText(*desk,
        "Views, cells, windows, tables and text for Linux desktops, in AppKit\u2019s shapes.\n"
        "Strings, dates, sizes, images, sounds and speech, as classes or as plain functions.\n"
        "One library to link, drawn alike on every machine, with a display or without.",
        NSFont::systemFontOfSize(12), { margin, 58, width, 60 }, ThemeRole::secondaryText);
    addTable(*desk, { margin, 128, 308, 202 });
    addControls(*desk, { margin + 308 + 16, 134 });
    auto const engraved = make<PLIXChiseledTextField>(Rect { margin + 324, 308, 188, 18 });
    engraved->setStringValue("Eight planets, one selected");
    engraved->setActiveColor(NSColor::controlTextColor());
    engraved->setShadowActiveColor(NSColor::colorWithCalibratedWhite(currentAppearance() == Appearance::dark ? 0 : 1, 0.9F));
    engraved->activate(nullptr);
    desk->addSubview(*engraved);
    addText(*desk, "Linking it", NSFont::boldSystemFontOfSize(13), { margin, 346, width, 18 }, ThemeRole::buttonText);
    addCode(*desk, { margin, 370, width, 98 },
        "# CMakeLists.txt\n"
        "find_package(plix 0.1 REQUIRED)\n"
        "target_link_libraries(application PRIVATE plix::plix)\n"
        "\n"
        "// main.cpp\n"
        "#include <plix/plix.h>");
    return desk;
}

constexpr Page familyPages[] {
    { "welcome", "Welcome to plix", welcomeSection, "welcome_pages.cpp", makeWelcomePage },
};

}

std::span<Page const> welcomePages()
{
    return familyPages;
}

}
