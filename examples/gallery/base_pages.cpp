#include "base_pages.h"
#include "FixedWorld.h"
#include "LivePage.h"
#include "Transcript.h"
#include "page_parts.h"

#include <plix/library_classes.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/Global.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/base/HookSource.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>

namespace gallery {

using namespace plix;

namespace {

// MARK: objects

Ref<NSView> makeNSObjectPage()
{
    auto const transcript = make<Transcript>();
    transcript->addHeading("Equal and the same");
    RUN(auto const red = NSColor::colorWithCalibratedRed(1, 0, 0, 1));
    RUN(auto const other = copyOf(*red));
    SHOW(red->isEqual(other.get()));
    SHOW(red == other);
    SHOW(red->hash() == other->hash());
    SHOW(isEqual(nullptr, nullptr));
    SHOW(red->isEqual(nullptr));
    transcript->addHeading("What it is");
    SHOW(red->isa().name());
    SHOW(red->isKindOfClass(NSObject::staticClass()));
    SHOW(red->isMemberOfClass(NSObject::staticClass()));
    SHOW(red->respondsToSelector(Selector("copy:")));
    SHOW(red->perform(Selector("copy:"), nullptr));
    transcript->addHeading("Making one");
    SHOW(make<NSData>()->serialNumber() < make<NSData>()->serialNumber());
    SHOW(make<NSBitmapImageRep>(3, 2));
    SHOW(make<NSBitmapImageRep>(0, 2));
    transcript->addNote("An init() that answers false gives nil.");
    return transcript;
}

Ref<NSView> makeRefPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto color = NSColor::colorWithCalibratedWhite(0.25F, 1));
    SHOW(color->retainCount());
    RUN(Ref<NSObject> second = color);
    SHOW(color->retainCount());
    SHOW(second == color);
    RUN(second = nullptr);
    SHOW(color->retainCount());
    SHOW(static_cast<bool>(second));
    RUN(auto const third = std::move(color));
    SHOW(color == nullptr);
    SHOW(third->retainCount());
    RUN(NSColor* const pointer = third.get());
    SHOW(Ref<NSColor>(pointer)->retainCount());
    SHOW(third->retainCount());
    SHOW(ObjectValue(third).as<NSColor>() == third);
    SHOW(ObjectValue(third).as<NSData>());
    transcript->addNote("A Ref that is made from a pointer takes a further reference; adopt() and leak() hand one over.");
    return transcript;
}

Ref<NSView> makeWeakPage()
{
    auto const transcript = make<Transcript>();
    RUN(Weak<NSObject> weak);
    SHOW(weak.wasSet());
    RUN(auto object = make<NSData>());
    RUN(weak = object);
    SHOW(weak == object.get());
    SHOW(object->retainCount());
    transcript->addNote("It keeps nothing alive …");
    RUN(object = nullptr);
    SHOW(static_cast<bool>(weak));
    SHOW(weak.get() == nullptr);
    SHOW(weak.wasSet());
    transcript->addNote("… and what it gives as a Ref lives as long as that.");
    RUN(auto const another = make<NSData>());
    RUN(weak = another);
    SHOW(weak.ref()->retainCount());
    SHOW(another->retainCount());
    return transcript;
}

Ref<NSView> makeGlobalPage()
{
    auto const transcript = make<Transcript>();
    RUN(static Global<NSColor> favorite);
    RUN(favorite = nullptr);
    SHOW(static_cast<bool>(favorite));
    RUN(auto const orange = NSColor::colorWithDeviceRed(1, 0.5F, 0, 1));
    RUN(favorite = orange);
    SHOW(favorite->greenComponent());
    SHOW(favorite.ref() == orange);
    SHOW(orange->retainCount());
    RUN(favorite = nullptr);
    SHOW(orange->retainCount());
    SHOW(favorite.get() == nullptr);
    transcript->addNote("Ready before any code runs, and never released at the program’s end.");
    return transcript;
}

Ref<NSView> makeClassPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const* button = NSClassFromString("NSButton"));
    SHOW(button->name());
    SHOW(button->superclass()->name());
    SHOW(button->isSubclassOfClass(NSView::staticClass()));
    SHOW(NSClassFromString("NSHammer") == nullptr);
    transcript->addHeading("Made by name");
    RUN(auto const made = button->makeObject());
    SHOW(made->isa() == *button);
    SHOW(made->isKindOfClass(*NSClassFromString("NSControl")));
    SHOW(NSObject::staticClass().makeObject());
    transcript->addHeading("Actions, outlets and properties by name");
    SHOW(button->action(Selector("performClick:")) != nullptr);
    SHOW(button->action(Selector("explode:")) != nullptr);
    SHOW(button->outlet("target") != nullptr);
    SHOW(button->readsFromCoder());
    SHOW(NSClassFromString("TQComboBoxCell")->bundleName());
    return transcript;
}

Ref<NSView> makeSelectorPage()
{
    auto const transcript = make<Transcript>();
    RUN(Selector const copy("copy:"));
    SHOW(copy.name());
    SHOW(copy == Selector("copy:"));
    SHOW(copy == Selector("copy"));
    SHOW(static_cast<bool>(copy));
    SHOW(static_cast<bool>(Selector()));
    SHOW(Selector().name());
    transcript->addHeading("Performed by name");
    RUN(auto const box = make<NSButton>(Rect { 0, 0, 80, 18 }));
    RUN(box->setButtonType(NSSwitchButton));
    SHOW(box->respondsToSelector(Selector("performClick:")));
    SHOW(box->state());
    SHOW(box->perform(Selector("performClick:"), nullptr));
    SHOW(box->state());
    SHOW(box->perform(Selector("explode:"), nullptr));
    return transcript;
}

Ref<NSView> makeHookPage()
{
    class Listener : public NSObject {
    public:
        int base { 100 };
    };
    auto const transcript = make<Transcript>();
    RUN(Hook<int(int)> hook);
    SHOW(static_cast<bool>(hook));
    SHOW(hook(4));
    transcript->addNote("One that is not set gives nothing, zero or nil.");
    RUN(hook = [](int value) { return 2 * value; });
    SHOW(static_cast<bool>(hook));
    SHOW(hook(4));
    transcript->addHeading("Bound to an object, which it does not keep");
    RUN(auto listener = make<Listener>());
    RUN(hook.bind(*listener, [](Listener& to, int value) { return to.base + value; }));
    SHOW(hook(4));
    RUN(listener = nullptr);
    SHOW(static_cast<bool>(hook));
    SHOW(hook(4));
    return transcript;
}

/// What a meter asks of its delegate.
struct MeterHooks {
    Hook<bool(int)> shouldShow;
    Hook<std::string(int)> textForValue;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(shouldShow);
        PLIX_FILL_HOOK(textForValue);
    }
};

Ref<NSView> makeHookSourcePage()
{
    class Percent : public NSObject {
    public:
        std::string textForValue(int value) { return std::to_string(value) + " %"; }
    };
    auto const transcript = make<Transcript>();
    transcript->run("struct MeterHooks {\n    Hook<bool(int)> shouldShow;\n    Hook<std::string(int)> textForValue; … };");
    transcript->run("class Percent : public NSObject {\n    std::string textForValue(int); };");
    RUN(auto percent = make<Percent>());
    RUN(auto const source = HookSource::pack<MeterHooks>(percent));
    RUN(auto const hooks = source.hooks<MeterHooks>());
    SHOW(static_cast<bool>(hooks.shouldShow));
    SHOW(static_cast<bool>(hooks.textForValue));
    SHOW(hooks.textForValue(40));
    SHOW(source.object() == percent.get());
    RUN(percent = nullptr);
    SHOW(source.object() == nullptr);
    SHOW(static_cast<bool>(hooks.textForValue));
    SHOW(hooks.textForValue(40));
    transcript->addNote("A delegate has the functions that it wants; the others stay unset. It is held weakly.");
    return transcript;
}

// MARK: values

Ref<NSView> makeObjectValuePage()
{
    auto const transcript = make<Transcript>();
    SHOW(ObjectValue());
    SHOW(ObjectValue(true));
    SHOW(ObjectValue(42) == ObjectValue(42.0));
    SHOW(ObjectValue("12 apples").intValue());
    SHOW(ObjectValue("1e3").doubleValue());
    SHOW(ObjectValue("apples").intValue());
    SHOW(ObjectValue("99999999999").intValue());
    SHOW(ObjectValue(0.1).description());
    SHOW(ObjectValue(0.1).integerValue());
    SHOW(ObjectValue(7).string() == nullptr);
    RUN(ObjectValue const list(ObjectValue::Array { 1, "two", 3.5, nullptr }));
    SHOW(list);
    SHOW(list.array()->size());
    SHOW(list == ObjectValue(ObjectValue::Array { 1.0, "two", 3.5F, ObjectValue() }));
    RUN(ObjectValue const entry(ObjectValue::Dictionary { { "name", "Ada" }, { "born", 1815 } }));
    SHOW(entry);
    SHOW(ObjectValue(NSColor::redColor()).as<NSColor>() == NSColor::redColor());
    SHOW(ObjectValue("red").as<NSColor>());
    return transcript;
}

Ref<NSView> makeNSDataPage()
{
    auto const transcript = make<Transcript>();
    RUN(std::vector<std::uint8_t> const bytes { 0x70, 0x6C, 0x69, 0x78 });
    RUN(auto const data = make<NSData>(bytes));
    SHOW(data->length());
    SHOW(data->bytes()[0]);
    SHOW(std::string(data->bytes().begin(), data->bytes().end()));
    SHOW(data->isEqual(make<NSData>(bytes).get()));
    SHOW(data->isEqual(make<NSData>().get()));
    SHOW(data->hash() == make<NSData>(bytes)->hash());
    SHOW(data->copy()->isEqual(data.get()));
    SHOW(make<NSData>()->length());
    transcript->addNote("Bytes never change, so that they are shared freely.");
    return transcript;
}

Ref<NSView> makeNSDatePage()
{
    auto const transcript = make<Transcript>();
    SHOW(NSDate());
    SHOW(NSDate::dateWithTimeIntervalSince1970(0));
    RUN(auto const tea = NSDate::dateWithTimeIntervalSinceReferenceDate(237569025));
    SHOW(tea);
    SHOW(tea.addTimeInterval(90 * 60));
    SHOW(tea.addTimeInterval(-0.5) < tea);
    SHOW(tea.timeIntervalSinceDate(NSDate()));
    SHOW(tea.timeIntervalSince1970());
    SHOW(NSDate::distantPast());
    SHOW(NSDate::distantFuture());
    transcript->addHeading("By a clock that stands at 15:23:45");
    RUN(FixedWorld const world);
    SHOW(NSDate::date());
    SHOW(NSDate::dateWithTimeIntervalSinceNow(60));
    SHOW(tea.timeIntervalSinceNow());
    return transcript;
}

Ref<NSView> makeClockPage()
{
    class Stopwatch : public Clock {
    public:
        NSDate now() const override { return { seconds }; }
        NSTimeInterval uptime() const override { return seconds; }
        NSTimeInterval seconds { 0 };
    };
    auto const transcript = make<Transcript>();
    transcript->run("class Stopwatch : public Clock {\n    NSDate now() const override { return { seconds }; } … };");
    RUN(Clock& before = plix::clock());
    RUN(Stopwatch watch);
    RUN(installClock(&watch));
    SHOW(plix::clock().now());
    SHOW(plix::clock().uptime());
    RUN(watch.seconds = 86400);
    SHOW(plix::clock().now());
    SHOW(NSDate::date());
    RUN(installClock(&before));
    transcript->addNote("Whoever asks for the time asks the installed clock: the host’s, or one that a test moves. Null brings the "
                        "machine’s own back.");
    return transcript;
}

Ref<NSView> makeNSIndexSetPage()
{
    auto const transcript = make<Transcript>();
    RUN(NSIndexSet rows { 5, 2, 3, 2, -1 });
    SHOW(rows);
    SHOW(rows.count());
    SHOW(rows.ranges());
    SHOW(rows.containsIndex(4));
    RUN(rows.addIndexesInRange({ 8, 3 }));
    SHOW(rows);
    SHOW(rows.indexGreaterThanIndex(5));
    SHOW(rows.indexLessThanIndex(2) == NSNotFound);
    SHOW(rows.intersectsIndexesInRange({ 6, 2 }));
    transcript->addHeading("Rows move");
    RUN(rows.shiftIndexesStartingAtIndex(3, 2));
    SHOW(rows);
    RUN(rows.shiftIndexesStartingAtIndex(5, -2));
    SHOW(rows);
    RUN(rows.removeAllIndexes());
    SHOW(rows.firstIndex() == NSNotFound);
    return transcript;
}

Ref<NSView> makeNSRangePage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const word = NSMakeRange(4, 5));
    SHOW(NSMaxRange(word));
    SHOW(NSLocationInRange(4, word));
    SHOW(NSLocationInRange(9, word));
    SHOW(NSIntersectionRange(word, { 7, 10 }));
    SHOW(NSIntersectionRange(word, { 9, 10 }));
    SHOW(NSUnionRange(word, { 12, 1 }));
    SHOW(NSUnionRange(word, { 0, 0 }));
    SHOW(word == NSRange { 4, 5 });
    SHOW(NSRange());
    SHOW(NSNotFound);
    transcript->addNote("In strings, ranges count UTF-16 units.");
    return transcript;
}

Ref<NSView> makeUtf16Page()
{
    auto const transcript = make<Transcript>();
    SHOW(utf16Length("Grüße"));
    SHOW(std::string_view("Grüße").size());
    SHOW(utf16Length("a𝔸b"));
    SHOW(byteOffsetOfUnit("a𝔸b", 3));
    SHOW(byteOffsetOfUnit("a𝔸b", 2));
    SHOW(unitAtByteOffset("a𝔸b", 5));
    SHOW(substringWithRange("Grüße", { 2, 2 }));
    SHOW(substringWithRange("Grüße", { 4, 2 }));
    SHOW(utf16FromUTF8("𝔸").size());
    SHOW(utf8FromUTF16(u"Grüße"));
    transcript->addHeading("What is not UTF-8");
    SHOW(isValidUTF8("caf\xE9"));
    SHOW(validUTF8("caf\xE9"));
    SHOW(utf16Length("caf\xE9"));
    return transcript;
}

Ref<NSView> makeNSRangeExceptionPage()
{
    auto const transcript = make<Transcript>();
    SHOW(NSIndexSet().firstIndex());
    SHOW(substringWithRange("short", { 2, 9 }));
    SHOW(ObjectValue(ObjectValue::Array {}).array()->size());
    transcript->addNote("What is asked for outside its bounds raises; what searches in vain answers NSNotFound.");
    RUN(std::string said);
    RUN(
        try { raiseRangeException("itemAtIndex", 7, 3); } catch (NSRangeException const& exception) { said = exception.what(); });
    SHOW(said);
    return transcript;
}

Ref<NSView> makeNSLogPage()
{
    auto const log = make<Transcript>();
    log->setLimit(8);
    auto const page = LivePage::page(log);
    // Heard here in place of standard error.
    auto const write = [heard = log.get()](std::string_view line) {
        auto const before = installLogSink([heard](std::string_view text) { heard->add(text, {}); });
        NSLog(line);
        installLogSink(before);
    };
    page->addControl(pushButton("Boil the Kettle", [write] { write("The kettle boils."); }));
    page->addControl(pushButton("Make Tea", [write] { write("Tea is ready: 4 cups."); }));
    write("Water is poured.");
    return page;
}

constexpr Page all[] {
    { "NSObject", "NSObject", valuesSection, "base_pages.cpp", makeNSObjectPage },
    { "Ref", "Ref", valuesSection, "base_pages.cpp", makeRefPage },
    { "Weak", "Weak", valuesSection, "base_pages.cpp", makeWeakPage },
    { "Global", "Global", valuesSection, "base_pages.cpp", makeGlobalPage },
    { "Class", "Class", valuesSection, "base_pages.cpp", makeClassPage },
    { "Selector", "Selector", valuesSection, "base_pages.cpp", makeSelectorPage },
    { "Hook", "Hook", valuesSection, "base_pages.cpp", makeHookPage },
    { "HookSource", "HookSource", valuesSection, "base_pages.cpp", makeHookSourcePage },
    { "ObjectValue", "ObjectValue", valuesSection, "base_pages.cpp", makeObjectValuePage },
    { "NSData", "NSData", valuesSection, "base_pages.cpp", makeNSDataPage },
    { "NSDate", "NSDate", valuesSection, "base_pages.cpp", makeNSDatePage },
    { "Clock", "Clock", valuesSection, "base_pages.cpp", makeClockPage },
    { "NSIndexSet", "NSIndexSet", valuesSection, "base_pages.cpp", makeNSIndexSetPage },
    { "NSRange", "NSRange", valuesSection, "base_pages.cpp", makeNSRangePage },
    { "utf16", "UTF-16 units", valuesSection, "base_pages.cpp", makeUtf16Page },
    { "NSRangeException", "NSRangeException", valuesSection, "base_pages.cpp", makeNSRangeExceptionPage },
    { "NSLog", "NSLog", eventsSection, "base_pages.cpp", makeNSLogPage },
};

}

std::span<Page const> basePages()
{
    return all;
}

}
