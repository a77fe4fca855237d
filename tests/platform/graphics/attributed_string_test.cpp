#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

Attributes marked(int value)
{
    return { { "mark", value } };
}

/// The runs as "length:mark", for comparing.
std::string runsOf(NSAttributedString const& string)
{
    std::string text;
    for (auto const& run : string.runs()) {
        auto const mark = run.attributes->find("mark");
        text += (text.empty() ? "" : " ") + std::to_string(run.length) + ":";
        text += mark == run.attributes->end() ? "-" : mark->second.description();
    }
    return text;
}

TEST(NSAttributedString, CountsUnitsAndKeepsValidText)
{
    EXPECT_EQ(make<NSAttributedString>("")->length(), 0);
    EXPECT_EQ(make<NSAttributedString>("añ😀")->length(), 4);
    auto const repaired = make<NSAttributedString>("a\xFF\xC3z");
    EXPECT_EQ(repaired->string(), "a\xEF\xBF\xBD\xEF\xBF\xBDz");
    EXPECT_EQ(repaired->length(), 4);
    EXPECT_EQ(make<NSAttributedString>(std::string_view("a\0b", 3))->length(), 3);
}

TEST(NSAttributedString, AnswersAttributesWithTheirRange)
{
    auto const string = make<NSMutableAttributedString>("abcdef", marked(1));
    string->setAttributes(marked(2), { 2, 2 });
    NSRange range;
    EXPECT_EQ(string->attributesAtIndex(3, range).at("mark"), ObjectValue(2));
    EXPECT_EQ(range, NSMakeRange(2, 2));
    EXPECT_EQ(string->attribute("mark", 5, range), ObjectValue(1));
    EXPECT_EQ(range, NSMakeRange(4, 2));
    EXPECT_TRUE(string->attribute("other", 0).isNil());
    string->attributesAtIndex(5, range, { 5, 1 });
    EXPECT_EQ(range, NSMakeRange(5, 1));
}

TEST(NSAttributedString, OutsidePositionsRaise)
{
    auto const string = make<NSMutableAttributedString>("abc");
    EXPECT_THROW(string->attributesAtIndex(3), NSRangeException);
    EXPECT_THROW(string->attributesAtIndex(-1), NSRangeException);
    EXPECT_THROW(make<NSAttributedString>()->attributesAtIndex(0), NSRangeException);
    EXPECT_THROW(string->attributedSubstringFromRange({ 2, 2 }), NSRangeException);
    EXPECT_THROW(string->attributedSubstringFromRange({ 4, 0 }), NSRangeException);
    EXPECT_THROW(string->replaceCharactersInRange({ 1, NSNotFound }, "x"), NSRangeException);
    EXPECT_THROW(string->setAttributes({}, { 0, -1 }), NSRangeException);
    EXPECT_EQ(string->attributedSubstringFromRange({ 3, 0 })->length(), 0);
    EXPECT_EQ(string->string(), "abc");
}

TEST(NSAttributedString, LongestRangeLooksAtOneAttributeOnly)
{
    auto const string = make<NSMutableAttributedString>("abcdefgh", marked(1));
    string->addAttribute("color", "red", { 2, 2 });
    string->addAttribute("mark", 2, { 6, 2 });
    NSRange range;
    EXPECT_EQ(string->attribute("mark", 3, range, { 1, 7 }), ObjectValue(1));
    EXPECT_EQ(range, NSMakeRange(1, 5));
    EXPECT_TRUE(string->attribute("color", 0, range, { 0, 8 }).isNil());
    EXPECT_EQ(range, NSMakeRange(0, 2));
}

TEST(NSAttributedString, SubstringsKeepTheirAttributes)
{
    auto const string = make<NSMutableAttributedString>("ab😀cd", marked(1));
    string->setAttributes(marked(2), { 2, 3 });
    auto const part = string->attributedSubstringFromRange({ 1, 4 });
    EXPECT_EQ(part->string(), "b😀c");
    EXPECT_EQ(runsOf(*part), "1:1 3:2");
}

TEST(NSAttributedString, IsEqualByTextAndAttributes)
{
    auto const a = make<NSMutableAttributedString>("text", marked(1));
    auto const b = make<NSAttributedString>("text", marked(1));
    EXPECT_TRUE(a->isEqual(b.get()));
    EXPECT_EQ(a->hash(), b->hash());
    EXPECT_FALSE(a->isEqual(make<NSAttributedString>("text").get()));
    a->setAttributes(marked(2), { 0, 1 });
    EXPECT_FALSE(a->isEqual(b.get()));
    EXPECT_FALSE(a->isEqual(nullptr));
    EXPECT_TRUE(a->isEqual(a->mutableCopy().get()));
}

TEST(NSMutableAttributedString, EqualNeighboursAreOneRun)
{
    auto const string = make<NSMutableAttributedString>("abcdef", marked(1));
    string->setAttributes(marked(2), { 1, 2 });
    string->setAttributes(marked(2), { 3, 1 });
    EXPECT_EQ(runsOf(*string), "1:1 3:2 2:1");
    string->setAttributes(marked(1), { 0, 4 });
    EXPECT_EQ(runsOf(*string), "6:1");
    string->deleteCharactersInRange({ 0, 6 });
    EXPECT_EQ(runsOf(*string), "");
    EXPECT_EQ(string->length(), 0);
}

TEST(NSMutableAttributedString, TextTakesTheAttributesOfWhatItReplaces)
{
    struct Row {
        NSRange range;
        char const* text;
        char const* result;
        char const* runs;
    };
    constexpr Row rows[] {
        { { 2, 2 }, "XYZ", "abXYZef", "2:1 3:2 2:3" },
        { { 2, 0 }, "X", "abXcdef", "3:1 2:2 2:3" },
        { { 0, 0 }, "X", "Xabcdef", "3:1 2:2 2:3" },
        { { 6, 0 }, "X", "abcdefX", "2:1 2:2 3:3" },
        { { 1, 4 }, "", "af", "1:1 1:3" },
        { { 3, 2 }, "😀", "abc😀f", "2:1 3:2 1:3" },
    };
    for (auto const& row : rows) {
        auto const string = make<NSMutableAttributedString>("abcdef", marked(1));
        string->setAttributes(marked(2), { 2, 2 });
        string->setAttributes(marked(3), { 4, 2 });
        string->replaceCharactersInRange(row.range, row.text);
        EXPECT_EQ(string->string(), row.result);
        EXPECT_EQ(runsOf(*string), row.runs) << row.result;
    }
}

TEST(NSMutableAttributedString, TakesInOtherAttributedStrings)
{
    auto const string = make<NSMutableAttributedString>("ad", marked(1));
    string->insertAttributedString(*make<NSAttributedString>("bc", marked(2)), 1);
    string->appendAttributedString(*make<NSAttributedString>("e", marked(1)));
    EXPECT_EQ(string->string(), "abcde");
    EXPECT_EQ(runsOf(*string), "1:1 2:2 2:1");
    string->appendAttributedString(*string);
    EXPECT_EQ(string->string(), "abcdeabcde");
    EXPECT_EQ(runsOf(*string), "1:1 2:2 3:1 2:2 2:1");
    string->setAttributedString(*make<NSAttributedString>("z"));
    EXPECT_EQ(runsOf(*string), "1:-");
}

TEST(NSMutableAttributedString, AddsAndRemovesOneAttributeAmongOthers)
{
    auto const string = make<NSMutableAttributedString>("abcd", marked(1));
    string->addAttribute("color", "red", { 1, 2 });
    EXPECT_EQ(string->runs().size(), 3U);
    EXPECT_EQ(string->attributesAtIndex(1), (Attributes { { "mark", 1 }, { "color", "red" } }));
    string->removeAttribute("mark", { 0, 4 });
    EXPECT_EQ(string->attributesAtIndex(1), (Attributes { { "color", "red" } }));
    string->removeAttribute("color", { 0, 4 });
    EXPECT_EQ(runsOf(*string), "4:-");
    string->addAttribute("mark", 5, { 2, 0 });
    EXPECT_EQ(runsOf(*string), "4:-");
}

TEST(NSMutableAttributedString, ARangeThatCutsACharacterStartsAtIt)
{
    auto const string = make<NSMutableAttributedString>("a😀b");
    string->setAttributes(marked(1), { 2, 2 });
    EXPECT_EQ(runsOf(*string), "1:- 3:1");
    string->deleteCharactersInRange({ 1, 1 });
    EXPECT_EQ(string->string(), "a😀b");
    string->deleteCharactersInRange({ 1, 2 });
    EXPECT_EQ(string->string(), "ab");
    EXPECT_EQ(runsOf(*string), "1:- 1:1");
}

TEST(NSMutableAttributedString, AgreesWithPlainStringsUnderManyEdits)
{
    unsigned seed = 7;
    auto const random = [&seed](unsigned below) { return (seed = seed * 1664525U + 1013904223U) / 65536U % below; };
    std::u32string model;
    std::vector<int> marks;
    auto const string = make<NSMutableAttributedString>();
    for (int step = 0; step < 2000; ++step) {
        auto const start = random(static_cast<unsigned>(model.size()) + 1);
        auto const count = random(static_cast<unsigned>(model.size() - start) + 1) % 5;
        int const mark = static_cast<int>(random(3));
        std::u32string added(random(5), static_cast<char32_t>(random(2) ? 0x61 + random(26) : 0xE9));
        std::string text;
        for (char32_t const character : added)
            text += character < 0x80 ? std::string(1, static_cast<char>(character)) : "é";
        string->replaceCharactersInRange({ start, count }, *make<NSAttributedString>(text, marked(mark)));
        model.replace(start, count, added);
        marks.erase(marks.begin() + start, marks.begin() + start + count);
        marks.insert(marks.begin() + start, added.size(), mark);
    }
    ASSERT_EQ(string->length(), static_cast<long>(model.size()));
    long total = 0;
    for (std::size_t i = 0; i < string->runs().size(); ++i) {
        total += string->runs()[i].length;
        if (i > 0) {
            EXPECT_NE(*string->runs()[i].attributes, *string->runs()[i - 1].attributes);
        }
    }
    EXPECT_EQ(total, string->length());
    for (std::size_t i = 0; i < marks.size(); ++i)
        EXPECT_EQ(string->attribute("mark", static_cast<long>(i)).intValue(), marks[i]);
}

TEST(Utf16Index, AgreesWithWalkingTheText)
{
    std::string text;
    for (int i = 0; i < 3000; ++i)
        text += i % 7 == 0 ? "😀" : i % 3 == 0 ? "é" : "ab";
    Utf16Index index;
    EXPECT_EQ(index.length(text), utf16Length(text));
    for (long unit = -1; unit <= index.length(text) + 1; unit += 13)
        EXPECT_EQ(index.byteOfUnit(text, unit), byteOffsetOfUnit(text, unit));
    for (std::size_t byte = 0; byte <= text.size() + 1; byte += 17)
        EXPECT_EQ(index.unitOfByte(text, byte), unitAtByteOffset(text, byte));
    text.replace(2000, 4, "\xF0\x9F\x98\x80!");
    index.textChangedFrom(2000);
    EXPECT_EQ(index.length(text), utf16Length(text));
    EXPECT_EQ(index.byteOfUnit(text, 4000), byteOffsetOfUnit(text, 4000));
}

TEST(NSParagraphStyle, DefaultsAreThePlatforms)
{
    auto const style = NSParagraphStyle::defaultParagraphStyle();
    EXPECT_EQ(style->alignment(), NSNaturalTextAlignment);
    EXPECT_EQ(style->lineBreakMode(), NSLineBreakByWordWrapping);
    EXPECT_EQ(style->baseWritingDirection(), NSWritingDirectionNatural);
    ASSERT_EQ(style->tabStops().size(), 12U);
    EXPECT_EQ(style->tabStops().front().location, 28);
    EXPECT_EQ(style->tabStops().back().location, 336);
}

TEST(NSParagraphStyle, AMutableCopyChangesAlone)
{
    auto const changed = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    EXPECT_TRUE(changed->isEqual(NSParagraphStyle::defaultParagraphStyle().get()));
    changed->setAlignment(NSCenterTextAlignment);
    changed->setTabStops({ { 50 }, { 20, NSRightTabStopType } });
    changed->addTabStop({ 30 });
    EXPECT_FALSE(changed->isEqual(NSParagraphStyle::defaultParagraphStyle().get()));
    EXPECT_EQ(NSParagraphStyle::defaultParagraphStyle()->alignment(), NSNaturalTextAlignment);
    EXPECT_EQ(changed->tabStops(), (std::vector<NSTextTab> { { 20, NSRightTabStopType }, { 30 }, { 50 } }));
    EXPECT_TRUE(changed->copy()->isEqual(changed.get()));
    EXPECT_EQ(static_cast<int>(NSCenterTextAlignment), 2);
}

}
}
