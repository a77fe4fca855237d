#include "foundation_pages.h"
#include "FixedWorld.h"
#include "Transcript.h"

#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/platform/foundation/NSCharacterSet.h>
#include <plix/platform/foundation/NSDateFormatter.h>
#include <plix/platform/foundation/NSFormatter.h>
#include <plix/platform/foundation/NSScanner.h>
#include <plix/platform/foundation/NSTimeZone.h>
#include <plix/platform/foundation/collation.h>
#include <plix/platform/foundation/date_text.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/string_comparison.h>

#include <algorithm>
#include <cctype>

namespace gallery {

using namespace plix;

namespace {

constexpr char viennaRule[] = "CET-1CEST,M3.5.0,M10.5.0/3";

// MARK: dates

Ref<NSView> makeNSCalendarDatePage()
{
    auto const transcript = make<Transcript>();
    RUN(FixedWorld const world("en_US", "UTC"));
    RUN(auto const date = NSCalendarDate::dateWithYear(2008, 2, 29, 23, 30, 0));
    SHOW(date.description());
    SHOW(date.descriptionWithCalendarFormat("%A, %e %B %Y"));
    SHOW(date.descriptionWithCalendarFormat("%I:%M %p, day %j"));
    SHOW(date.dayOfWeek());
    SHOW(date.dayOfCommonEra());
    transcript->addHeading("On the clock and the calendar");
    SHOW(date.dateByAddingYears(1, 0, 0, 0, 0, 0));
    SHOW(date.dateByAddingYears(0, 0, 1, 0, 30, 0));
    SHOW(NSCalendarDate::dateWithYear(2008, 13, 32, 0, 0, 0));
    transcript->addHeading("Read");
    SHOW(NSCalendarDate::dateWithString("12.7.1968", "%d.%m.%Y"));
    SHOW(NSCalendarDate::dateWithString("30.2.1968", "%d.%m.%Y"));
    SHOW(NSCalendarDate::dateWithNaturalLanguageString("next friday at 5 pm"));
    SHOW(NSCalendarDate::dateWithNaturalLanguageString("when pigs fly"));
    return transcript;
}

Ref<NSView> makeCalendarFieldsPage()
{
    auto const transcript = make<Transcript>();
    SHOW(isLeapYear(2000));
    SHOW(isLeapYear(1900));
    SHOW(daysInMonth(2008, 2));
    SHOW(dayNumber(2001, 1, 1));
    SHOW(dayNumber(2001, 14, 1) == dayNumber(2002, 2, 1));
    RUN(CalendarFields const moon { 1969, 7, 20, 20, 17, 40 });
    SHOW(dayOfWeek(moon));
    SHOW(dayOfYear(moon));
    SHOW(clockSeconds(moon));
    SHOW(fieldsFromClockSeconds(clockSeconds(moon)) == moon);
    RUN(CalendarFields const end { 2024, 1, 31 });
    SHOW(fieldsByAdding(end, { 0, 1, 0, 0, 0, 0 }).day);
    SHOW(fieldsByAdding(end, { 1, 1, 0, 0, 0, 0 }).day);
    SHOW(fieldsByAdding(end, { 0, 0, 0, 0, 0, -1 }).hour);
    SHOW(fieldsFromClockSeconds(1e30).year > 30'000'000);
    transcript->addNote(
        "A calendar on the wall with a clock beside it, without a zone. A day that the month lacks becomes its last.");
    return transcript;
}

Ref<NSView> makeDateTextPage()
{
    auto const transcript = make<Transcript>();
    RUN(CalendarFields const now { 2008, 7, 12, 15, 23, 45 });
    RUN(auto const& names = DateNames::english());
    SHOW(formatDate(now, {}, "%a %d %b %y, %H:%M", names));
    SHOW(formatDate(now, {}, "%1m/%e/%Y %1I %p", names));
    SHOW(formatDate(now, { 7200, "CEST" }, "%X %Z (%z)", names));
    SHOW(formatDate(now, {}, "100%% of %Q", names));
    transcript->addHeading("Read by a format");
    SHOW(parseDate("July 4, 76", "%B %d, %y", names, now)->fields.year);
    SHOW(parseDate("4 Smarch", "%d %B", names, now).has_value());
    transcript->addHeading("As people write it");
    auto const day = [&](std::string_view text) {
        auto const fields = parseNaturalDate(text, names, now);
        transcript->show("parseNaturalDate(" + quotedText(text) + ", names, now)",
            fields ? std::optional(formatDate(*fields, {}, "%a %d %b %Y %H:%M", names)) : std::nullopt);
    };
    for (auto const* text : { "tomorrow", "last week", "in 3 days", "march 14th at noon", "3/14/09", "17:30", "soon" })
        day(text);
    return transcript;
}

Ref<NSView> makeNSTimeZonePage()
{
    auto const transcript = make<Transcript>();
    SHOW(NSTimeZone().name());
    transcript->run("// What Vienna’s clocks do, as POSIX writes it; “Europe/Vienna” works as well.");
    RUN(auto const vienna = NSTimeZone::timeZoneWithName(viennaRule).value());
    RUN(auto const winter = NSDate::dateWithTimeIntervalSince1970(1200000000));
    RUN(auto const summer = winter.addTimeInterval(180 * 86400.0));
    SHOW(summer);
    SHOW(vienna.fieldsForDate(summer).hour);
    SHOW(vienna.abbreviationForDate(summer));
    SHOW(vienna.secondsFromGMTForDate(summer));
    SHOW(vienna.isDaylightSavingTimeForDate(winter));
    SHOW(vienna.secondsFromGMTForAbbreviation("CET"));
    SHOW(vienna.secondsFromGMTForAbbreviation("PST"));
    transcript->addHeading("When clocks are changed");
    SHOW(vienna.dateForFields({ 2008, 3, 30, 2, 30 }));
    SHOW(vienna.dateForFields({ 2008, 10, 26, 2, 30 }));
    SHOW(NSTimeZone::timeZoneForSecondsFromGMT(-12600).name());
    SHOW(NSTimeZone::timeZoneWithName("Middle/Earth").has_value());
    return transcript;
}

Ref<NSView> makeNSDateFormatterPage()
{
    auto const transcript = make<Transcript>();
    RUN(FixedWorld const world("en_US", "UTC"));
    RUN(auto const formatter = make<NSDateFormatter>("%d/%m/%Y", false));
    SHOW(formatter->stringForObjectValue(NSDate::date()));
    SHOW(formatter->stringForObjectValue("a text"));
    RUN(ObjectValue value);
    RUN(std::string error);
    SHOW(formatter->getObjectValue(value, "31/12/1999", error));
    SHOW(value);
    SHOW(formatter->getObjectValue(value, "31/13/1999", error));
    SHOW(error);
    SHOW(formatter->getObjectValue(value, "   ", error));
    SHOW(value);
    transcript->addHeading("With natural language");
    RUN(auto const lenient = make<NSDateFormatter>("%d/%m/%Y", true));
    SHOW(lenient->getObjectValue(value, "yesterday", error));
    SHOW(value);
    SHOW(lenient->stringForObjectValue(value));
    return transcript;
}

Ref<NSView> makeNSFormatterPage()
{
    class Shouting : public NSFormatter {
    public:
        std::optional<std::string> stringForObjectValue(ObjectValue const& value) const override
        {
            auto text = value.description();
            std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
            return text + "!";
        }
        bool getObjectValue(ObjectValue& value, std::optional<std::string_view> string, std::string& error) const override
        {
            error = string && string->ends_with('!') ? "" : "It is not loud enough.";
            if (error.empty())
                value = string->substr(0, string->size() - 1);
            return error.empty();
        }
    };
    auto const transcript = make<Transcript>();
    RUN(auto const formatter = make<Shouting>());
    SHOW(formatter->stringForObjectValue("tea"));
    SHOW(formatter->stringForObjectValue(42));
    SHOW(formatter->editingStringForObjectValue("tea"));
    RUN(ObjectValue value);
    RUN(std::string error);
    SHOW(formatter->getObjectValue(value, "MILK!", error));
    SHOW(value);
    SHOW(formatter->getObjectValue(value, "milk", error));
    SHOW(error);
    SHOW(formatter->isPartialStringValid("mil", error, error));
    transcript->addHeading("The class itself formats nothing");
    SHOW(make<NSFormatter>()->stringForObjectValue("tea"));
    return transcript;
}

// MARK: text

Ref<NSView> makeNSScannerPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const scanner = NSScanner::scannerWithString("  12 apples, 0xFF pears: 3.5 kg"));
    RUN(int count = 0);
    SHOW(scanner->scanInt(count));
    SHOW(count);
    SHOW(scanner->scanLocation());
    SHOW(scanner->scanInt(count));
    SHOW(scanner->scanLocation());
    transcript->addNote("Where nothing is found, nothing moves.");
    RUN(std::string word);
    SHOW(scanner->scanUpToString(",", word));
    SHOW(word);
    SHOW(scanner->scanString(","));
    RUN(unsigned hex = 0);
    SHOW(scanner->scanHexInt(hex));
    SHOW(hex);
    SHOW(scanner->scanUpToCharactersFromSet(NSCharacterSet::decimalDigitCharacterSet()));
    RUN(double weight = 0);
    SHOW(scanner->scanDouble(weight));
    SHOW(weight);
    SHOW(scanner->scanString("KG"));
    SHOW(scanner->isAtEnd());
    return transcript;
}

Ref<NSView> makeNSCharacterSetPage()
{
    auto const transcript = make<Transcript>();
    RUN(using Set = NSCharacterSet);
    RUN(auto const vowels = Set::characterSetWithCharactersInString("aeiou"));
    SHOW(vowels.characterIsMember(U'e'));
    SHOW(vowels.invertedSet().characterIsMember(U'e'));
    SHOW(vowels.ranges().size());
    RUN(auto const letters = Set::characterSetWithRange(U'a', U'e'));
    SHOW(letters.setByUniting(vowels).ranges().size());
    SHOW(Set::letterCharacterSet().characterIsMember(U'ж'));
    SHOW(Set::uppercaseLetterCharacterSet().characterIsMember(U'ß'));
    SHOW(Set::decimalDigitCharacterSet().characterIsMember(U'٣'));
    SHOW(Set().characterIsMember(U'a'));
    transcript->addHeading("In texts");
    SHOW(findCharacterInSet("rhythm and blues", vowels));
    SHOW(findCharacterInSet("rhythm", vowels));
    SHOW(findCharacterNotInSet("eerie", vowels));
    RUN(auto const& blanks = Set::whitespaceAndNewlineCharacterSet());
    SHOW(stringByTrimmingCharactersInSet("  a cup \n", blanks));
    SHOW(stringByTrimmingCharactersInSet(" \t ", blanks));
    return transcript;
}

Ref<NSView> makeComparisonPage()
{
    auto const transcript = make<Transcript>();
    SHOW(compare("apple", "banana") == NSOrderedAscending);
    SHOW(compare("File 10", "File 9"));
    SHOW(compare("File 10", "File 9", NSNumericSearch));
    SHOW(compare("file 007", "FILE 7", NSNumericSearch | NSCaseInsensitiveSearch));
    SHOW(caseInsensitiveCompare("STRASSE", "strasse"));
    SHOW(compare("e\u0301", "\u00E9"));
    SHOW(compare("e\u0301", "\u00E9", NSLiteralSearch));
    SHOW(compare("", "a"));
    transcript->addHeading("As a dictionary sorts");
    RUN(std::vector<std::string> words { "zebra", "\u00E4rgern", "Apfel", "\u00C4pfel", "apfel 10", "apfel 9" });
    RUN(FixedWorld const world("de_DE"));
    RUN(std::sort(
        words.begin(), words.end(), [](auto const& a, auto const& b) { return localizedCompare(a, b) == NSOrderedAscending; }));
    SHOW(words);
    SHOW(collateFileNames(u"r\u00E9sum\u00E9 9", u"R\u00C9SUM\u00C9 10"));
    SHOW(collateFileNames(u"readme", u"README"));
    return transcript;
}

Ref<NSView> makePathsPage()
{
    auto const transcript = make<Transcript>();
    SHOW(pathComponents("/usr//share/tea.txt"));
    SHOW(pathWithComponents({ "/", "usr", "share" }));
    SHOW(lastPathComponent("/usr/share/"));
    SHOW(lastPathComponent("/"));
    SHOW(stringByDeletingLastPathComponent("/usr/share/tea.txt"));
    SHOW(stringByDeletingLastPathComponent("tea.txt"));
    SHOW(stringByAppendingPathComponent("/usr/", "share"));
    SHOW(stringByAppendingPathComponent("", "share"));
    transcript->addHeading("Extensions");
    SHOW(pathExtension("archive.tar.gz"));
    SHOW(pathExtension(".profile"));
    SHOW(stringByDeletingPathExtension("/tmp/tea.txt"));
    SHOW(stringByAppendingPathExtension("tea", "txt"));
    SHOW(stringByAppendingPathExtension("/", "txt"));
    SHOW(pathsMatchingExtensions({ "a.png", "b.PNG", "c.jpg", "d" }, { "png", "jpg" }));
    SHOW(isAbsolutePath("share/tea.txt"));
    return transcript;
}

constexpr Page all[] {
    { "NSCalendarDate", "NSCalendarDate", valuesSection, "foundation_pages.cpp", makeNSCalendarDatePage },
    { "CalendarFields", "CalendarFields", valuesSection, "foundation_pages.cpp", makeCalendarFieldsPage },
    { "date_text", "Dates as text", valuesSection, "foundation_pages.cpp", makeDateTextPage },
    { "NSTimeZone", "NSTimeZone", valuesSection, "foundation_pages.cpp", makeNSTimeZonePage },
    { "NSDateFormatter", "NSDateFormatter", valuesSection, "foundation_pages.cpp", makeNSDateFormatterPage },
    { "NSFormatter", "NSFormatter", valuesSection, "foundation_pages.cpp", makeNSFormatterPage },
    { "NSScanner", "NSScanner", valuesSection, "foundation_pages.cpp", makeNSScannerPage },
    { "NSCharacterSet", "NSCharacterSet", valuesSection, "foundation_pages.cpp", makeNSCharacterSetPage },
    { "comparison", "Comparing texts", valuesSection, "foundation_pages.cpp", makeComparisonPage },
    { "paths", "Paths", filesSection, "foundation_pages.cpp", makePathsPage },
};

}

std::span<Page const> foundationPages()
{
    return all;
}

}
