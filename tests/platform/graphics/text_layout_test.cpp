#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSLayoutManager.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/NSTextContainer.h>
#include <plix/platform/graphics/NSTextStorage.h>
#include <plix/platform/graphics/TextLayout.h>
#include <plix/platform/graphics/paragraph_setter.h>
#include <plix/platform/graphics/string_drawing.h>

#include <tests/support/pixels.h>

#include <cmath>

namespace plix {
namespace {

Attributes font(float size = 13)
{
    return { { NSFontAttributeName, NSFont::systemFontOfSize(size) } };
}

/// A string that is laid out.
struct LaidOut {
    Ref<NSMutableAttributedString> string;
    TextLayout layout;

    explicit LaidOut(std::string_view text, float width = 1e7F, Attributes const& attributes = font())
        : string(make<NSMutableAttributedString>(text, attributes))
    {
        layout.setWidth(width);
        layout.setString(string.get());
    }
    std::vector<std::string> lines()
    {
        std::vector<std::string> lines;
        for (long i = 0; i < layout.numberOfLines(); ++i)
            lines.emplace_back(substringWithRange(string->string(), layout.line(i).range));
        return lines;
    }
};

float widthOf(std::string_view text)
{
    return sizeWithAttributes(text, font()).width;
}

using Lines = std::vector<std::string>;

TEST(TextLayout, WrapsByWordsAndByCharactersWhereAWordIsTooLong)
{
    EXPECT_EQ(LaidOut("one two three four", 60).lines(), (Lines { "one two ", "three ", "four" }));
    EXPECT_EQ(LaidOut("a\nb\r\n\nc", 60).lines(), (Lines { "a\n", "b\r\n", "\n", "c" }));
    EXPECT_EQ(LaidOut("tail\n", 60).lines(), (Lines { "tail\n", "" }));
    EXPECT_EQ(LaidOut("wwwwww", 35).lines(), (Lines { "www", "www" }));
    EXPECT_EQ(LaidOut("a wwwwww", 35).lines(), (Lines { "a ", "www", "www" }));
    EXPECT_EQ(LaidOut("abc", 0).lines(), (Lines { "a", "b", "c" }));
    EXPECT_EQ(LaidOut("", 60).lines(), (Lines { "" }));
}

TEST(TextLayout, TheUsedRectangleHoldsAllLines)
{
    LaidOut text("one two three four", 60);
    EXPECT_EQ(text.layout.usedRect(), (Rect { 0, 0, widthOf("one two"), 48 }));
    text.layout.setLineFragmentPadding(5);
    EXPECT_EQ(text.layout.usedRect().height, 64);
    text.layout.setLineFragmentPadding(0);
    text.layout.setWidth(1000);
    EXPECT_EQ(text.layout.usedRect(), (Rect { 0, 0, widthOf("one two three four"), 16 }));
    EXPECT_EQ(LaidOut("").layout.usedRect(), Rect {});
    EXPECT_EQ(LaidOut("a\n").layout.usedRect().height, 32);
    EXPECT_EQ(LaidOut("a\nb\nc").layout.usedRectWithin(47).height, 32);
    EXPECT_EQ(LaidOut("a\nb\nc").layout.usedRectWithin(15), Rect {});
    EXPECT_EQ(LaidOut("a\nb\nc").layout.linesWithin(48), 3);
}

TEST(TextLayout, KnowsItsLines)
{
    LaidOut text("one two\nthree", 1000);
    auto const second = text.layout.line(1);
    EXPECT_EQ(second.range, NSMakeRange(8, 5));
    EXPECT_EQ(second.fragment, (Rect { 0, 16, 1000, 16 }));
    EXPECT_EQ(second.used, (Rect { 0, 16, widthOf("three"), 16 }));
    EXPECT_EQ(second.baseline, 29);
    EXPECT_EQ(text.layout.lineOfIndex(7), 0);
    EXPECT_EQ(text.layout.lineOfIndex(8), 1);
    EXPECT_EQ(text.layout.lineOfIndex(99), 1);
    EXPECT_EQ(text.layout.lineAtY(-50), 0);
    EXPECT_EQ(text.layout.lineAtY(15.9F), 0);
    EXPECT_EQ(text.layout.lineAtY(16), 1);
    EXPECT_EQ(text.layout.lineAtY(1e9F), 1);
    EXPECT_EQ(text.layout.lineAtY(NAN), 0);
}

TEST(TextLayout, FindsThePlaceUnderAPoint)
{
    LaidOut text("Hé😀!\nsecond");
    float x = 0;
    long index = 0;
    for (char const* const character : { "H", "é", "😀", "!" }) {
        float const width = text.layout.caretRect(index + utf16Length(character)).x - x;
        auto const before = text.layout.positionAt({ x + width * 0.25F, 8 });
        auto const behind = text.layout.positionAt({ x + width * 0.75F, 8 });
        EXPECT_EQ(before.index, index);
        EXPECT_FALSE(before.isTrailing);
        EXPECT_EQ(before.insertionIndex, index);
        EXPECT_EQ(behind.index, index);
        EXPECT_TRUE(behind.isTrailing);
        EXPECT_TRUE(behind.isInsideText);
        index += utf16Length(character);
        EXPECT_EQ(behind.insertionIndex, index);
        x += width;
    }
    EXPECT_EQ(text.layout.positionAt({ 1000, 8 }).insertionIndex, 5);
    EXPECT_FALSE(text.layout.positionAt({ 1000, 8 }).isInsideText);
    EXPECT_EQ(text.layout.positionAt({ -10, 20 }).insertionIndex, 6);
    EXPECT_EQ(text.layout.positionAt({ 1000, 1000 }).insertionIndex, 12);
    EXPECT_EQ(text.layout.positionAt({ NAN, NAN }).insertionIndex, 0);
    EXPECT_EQ(LaidOut("").layout.positionAt({ 5, 5 }).insertionIndex, 0);
}

TEST(TextLayout, CaretsStandBetweenCharacters)
{
    LaidOut text("Hello\n");
    EXPECT_EQ(text.layout.caretRect(0), (Rect { 0, 0, 1, 16 }));
    EXPECT_EQ(text.layout.caretRect(5), (Rect { 32, 0, 1, 16 }));
    EXPECT_EQ(text.layout.caretRect(6), (Rect { 0, 16, 1, 16 }));
    EXPECT_EQ(text.layout.caretRect(99), text.layout.caretRect(6));
    LaidOut empty("");
    empty.layout.setTypingAttributes(font(26));
    EXPECT_EQ(empty.layout.caretRect(0).height, NSFont::systemFontOfSize(26)->defaultLineHeightForFont());
}

TEST(TextLayout, ACaretNeverSplitsACharacter)
{
    // An accent of its own, a family, a flag.
    LaidOut text("e\u0301x👨‍👩‍👧🇩🇪y");
    std::vector<long> stops { 0 };
    while (stops.back() < text.string->length()) {
        long const next = text.layout.indexMovedVisually(stops.back(), 1);
        ASSERT_GT(next, stops.back());
        stops.push_back(next);
    }
    EXPECT_EQ(stops, (std::vector<long> { 0, 2, 3, 11, 15, 16 }));
    for (auto stop = stops.rbegin(); stop + 1 != stops.rend(); ++stop)
        EXPECT_EQ(text.layout.indexMovedVisually(*stop, -1), *(stop + 1));
}

TEST(TextLayout, ALigatureIsDividedAmongItsCharacters)
{
    LaidOut text("fi", 1e7F, { { NSFontAttributeName, NSFont::fontWithName("DejaVuSans", 20) } });
    float const whole = text.layout.caretRect(2).x;
    EXPECT_EQ(text.layout.caretRect(1).x, whole / 2);
    EXPECT_EQ(text.layout.positionAt({ whole * 0.6F, 5 }).index, 1);
}

TEST(TextLayout, MovesOverLineEnds)
{
    LaidOut text("ab cd\nef", 20);
    ASSERT_EQ(text.lines(), (Lines { "ab ", "cd\n", "ef" }));
    std::vector<long> stops { 0 };
    for (int i = 0; i < 7; ++i)
        stops.push_back(text.layout.indexMovedVisually(stops.back(), 1));
    EXPECT_EQ(stops, (std::vector<long> { 0, 1, 2, 3, 4, 5, 6, 7 }));
    EXPECT_EQ(text.layout.indexMovedVisually(8, 1), 8);
    EXPECT_EQ(text.layout.indexMovedVisually(0, -1), 0);
    EXPECT_EQ(text.layout.indexMovedVisually(6, -1), 5);
    EXPECT_EQ(text.layout.indexMovedVisually(3, -1), 2);
    // A click behind a wrapped line stays on it.
    EXPECT_EQ(text.layout.positionAt({ 100, 8 }).insertionIndex, 2);
}

TEST(TextLayout, RightToLeftTextRunsTheOtherWay)
{
    LaidOut text("שלום", 200);
    auto const width = widthOf("שלום");
    EXPECT_EQ(text.layout.line(0).used, (Rect { 200 - width, 0, width, 16 }));
    EXPECT_EQ(text.layout.caretRect(0).x, 200);
    EXPECT_EQ(text.layout.caretRect(4).x, 200 - width);
    EXPECT_EQ(text.layout.positionAt({ 199, 8 }).index, 0);
    EXPECT_EQ(text.layout.positionAt({ 201 - width, 8 }).index, 3);
    EXPECT_EQ(text.layout.positionAt({ 201 - width, 8 }).insertionIndex, 4);
    EXPECT_EQ(text.layout.indexMovedVisually(0, -1), 1);
    EXPECT_EQ(text.layout.indexMovedVisually(4, 1), 3);
}

TEST(TextLayout, MixedDirectionsAreSelectedAsTheyAreSeen)
{
    // Seen as "abc" and then the four letters from right to left.
    LaidOut text("abc שלום");
    float const latin = widthOf("abc ");
    float const whole = latin + widthOf("שלום");
    EXPECT_EQ(text.layout.caretRect(4).x, whole);
    EXPECT_EQ(text.layout.caretRect(8).x, latin);
    auto const rects = text.layout.rectsOfRange({ 2, 4 });
    ASSERT_EQ(rects.size(), 2U);
    EXPECT_EQ(rects[0].x, text.layout.caretRect(2).x);
    EXPECT_EQ(rects[0].maxX(), latin);
    EXPECT_EQ(rects[1].x, text.layout.caretRect(6).x);
    EXPECT_EQ(rects[1].maxX(), whole);
    EXPECT_EQ(text.layout.rectsOfRange({ 0, 8 }).size(), 1U);
}

TEST(TextLayout, TheParagraphsDirectionMayBeGiven)
{
    auto const style = make<NSMutableParagraphStyle>();
    style->setBaseWritingDirection(NSWritingDirectionRightToLeft);
    auto attributes = font();
    attributes[NSParagraphStyleAttributeName] = style;
    LaidOut text("abc!", 100, attributes);
    EXPECT_EQ(text.layout.line(0).used.maxX(), 100);
    // The mark at the end stands left of the letters.
    EXPECT_LT(text.layout.caretRect(4).x, text.layout.caretRect(0).x);
}

TEST(TextLayout, SelectionsReachTheEdgeWhereTheyGoOn)
{
    LaidOut text("one\ntwo\nthree", 100);
    text.layout.setLineFragmentPadding(5);
    auto const rects = text.layout.selectionRects({ 1, 9 });
    ASSERT_EQ(rects.size(), 3U);
    EXPECT_EQ(rects[0].x, text.layout.caretRect(1).x);
    EXPECT_EQ(rects[0].maxX(), 95);
    EXPECT_EQ(rects[1], (Rect { 5, 16, 90, 16 }));
    EXPECT_EQ(rects[2].x, 5);
    EXPECT_EQ(rects[2].maxX(), text.layout.caretRect(10).x);
    EXPECT_EQ(text.layout.selectionRects({ 4, 4 }).size(), 1U);
    EXPECT_EQ(text.layout.selectionRects({ 4, 4 })[0].maxX(), 95);
    EXPECT_EQ(text.layout.selectionRects({ 4, 3 })[0].maxX(), text.layout.caretRect(7).x);
    EXPECT_TRUE(text.layout.selectionRects({ 4, 0 }).empty());
}

TEST(TextLayout, ParagraphStylesShapeTheLines)
{
    auto const style = make<NSMutableParagraphStyle>();
    style->setFirstLineHeadIndent(20);
    style->setHeadIndent(8);
    style->setLineSpacing(3);
    style->setParagraphSpacing(10);
    auto attributes = font();
    attributes[NSParagraphStyleAttributeName] = style;
    LaidOut text("one two three four five six\nend", 90, attributes);
    EXPECT_EQ(text.layout.line(0).used.x, 20);
    EXPECT_EQ(text.layout.line(1).used.x, 8);
    EXPECT_EQ(text.layout.line(1).fragment.y, 19);
    long const last = text.layout.numberOfLines() - 1;
    EXPECT_EQ(text.layout.line(last).fragment.y, text.layout.line(last - 1).fragment.maxY() + 10);
    for (long i = 0; i < last; ++i)
        EXPECT_LE(text.layout.line(i).used.maxX(), 90);
}

TEST(TextLayout, TabsLeadToTheirStops)
{
    auto const style = make<NSMutableParagraphStyle>();
    style->setTabStops({ { 50 }, { 120, NSRightTabStopType } });
    auto attributes = font();
    attributes[NSParagraphStyleAttributeName] = style;
    LaidOut text("a\tb\tcc", 300, attributes);
    EXPECT_EQ(text.layout.caretRect(2).x, 50);
    EXPECT_EQ(text.layout.caretRect(6).x, 120);
    EXPECT_EQ(LaidOut("a\tb").layout.caretRect(2).x, 28);
}

TEST(TextLayout, EditsGiveWhatANewLayoutGives)
{
    unsigned seed = 3;
    auto const random = [&seed](unsigned below) { return (seed = seed * 1664525U + 1013904223U) / 65536U % below; };
    constexpr char const* pieces[] { "word ", "\n", "\r", "longer words ", "é", "😀", "\r\n", "x", "שלום " };
    auto const storage = make<NSTextStorage>("first line\nsecond line\n", font());
    auto const manager = make<NSLayoutManager>();
    auto const container = make<NSTextContainer>(Size { 90, 1e7F });
    manager->addTextContainer(container);
    storage->addLayoutManager(manager);
    for (int step = 0; step < 400; ++step) {
        storage->beginEditing();
        for (unsigned edits = 1 + random(3); edits > 0; --edits) {
            auto const start = static_cast<long>(random(static_cast<unsigned>(storage->length()) + 1));
            auto const count = std::min<long>(storage->length() - start, random(7));
            if (random(4) == 0)
                storage->addAttribute(
                    NSFontAttributeName, NSFont::systemFontOfSize(9.0F + static_cast<float>(random(3)) * 6), { start, count });
            else
                storage->replaceCharactersInRange({ start, count }, pieces[random(9)]);
        }
        storage->endEditing();
        TextLayout fresh;
        fresh.setLineFragmentPadding(5);
        fresh.setWidth(90);
        fresh.setString(storage.get());
        ASSERT_EQ(manager->layout().numberOfLines(), fresh.numberOfLines()) << step;
        ASSERT_EQ(manager->layout().usedRect(), fresh.usedRect()) << step;
        for (long i = 0; i < fresh.numberOfLines(); ++i) {
            ASSERT_EQ(manager->layout().line(i).range, fresh.line(i).range) << step;
            ASSERT_EQ(manager->layout().line(i).used, fresh.line(i).used) << step;
        }
    }
}

TEST(TextLayout, AnEditLaysOutItsOwnParagraphOnly)
{
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += "Paragraph שלום\n";
    auto const storage = make<NSTextStorage>(text, font());
    auto const manager = make<NSLayoutManager>();
    manager->addTextContainer(make<NSTextContainer>(Size { 300, 1e7F }));
    storage->addLayoutManager(manager);
    manager->layout().usedRect();
    auto const before = settingCounts().shapings;
    storage->replaceCharactersInRange({ 800, 0 }, "typed");
    manager->layout().usedRect();
    EXPECT_GT(settingCounts().shapings, before);
    EXPECT_LT(settingCounts().shapings - before, 12);
}

TEST(TextLayout, DrawsTheSameInBothKindsOfContext)
{
    LaidOut text("Some words that wrap\nשלום", 80);
    auto const draw = [&](bool isFlipped) {
        return renderBitmap(
            { 100, 80 }, 2,
            [&] {
                auto const context = NSGraphicsContext::currentContext();
                if (isFlipped) {
                    context->translateBy(0, 80);
                    context->scaleBy(1, -1);
                    context->setFlipped(true);
                }
                float const height = text.layout.usedRect().height;
                text.layout.draw({ 5, isFlipped ? 3 : 80 - 3 - height }, height);
            },
            colors::white);
    };
    auto const flipped = draw(true);
    EXPECT_TRUE(hasInk(flipped, Pixels(flipped).all(), colors::white));
    EXPECT_EQ(countDifferences(flipped, draw(false), 0), 0);
}

TEST(TextLayout, AMegabyteStaysUsable)
{
    std::string text;
    while (text.size() < (1U << 20U))
        text += "A line of some words, with é and so on.\n";
    LaidOut laidOut(text, 200);
    auto const lines = laidOut.layout.numberOfLines();
    EXPECT_GT(lines, 25'000);
    auto const before = settingCounts().shapings + settingCounts().tableSettings;
    laidOut.layout.caretRect(500'000);
    laidOut.layout.positionAt({ 50, 200'000 });
    renderBitmap({ 200, 100 }, 1, [&] { laidOut.layout.draw({ 0, -200'000 }, laidOut.layout.usedRect().height); });
    EXPECT_LT(settingCounts().shapings + settingCounts().tableSettings - before, 200);
}

TEST(NSLayoutManager, MeasuresWhatFitsInItsContainer)
{
    auto const storage = make<NSTextStorage>("one\ntwo\nthree", font());
    auto const manager = make<NSLayoutManager>();
    auto const container = make<NSTextContainer>(Size { 100, 40 });
    EXPECT_EQ(container->lineFragmentPadding(), 5);
    manager->addTextContainer(container);
    storage->addLayoutManager(manager);
    EXPECT_EQ(manager->glyphRangeForTextContainer(*container), NSMakeRange(0, 8));
    EXPECT_EQ(manager->usedRectForTextContainer(*container).height, 32);
    container->setContainerSize({ 100, 1000 });
    EXPECT_EQ(manager->glyphRangeForTextContainer(*container), NSMakeRange(0, 13));
    EXPECT_EQ(manager->usedRectForTextContainer(*container), (Rect { 0, 0, widthOf("three") + 10, 48 }));
    EXPECT_EQ(manager->glyphRangeForBoundingRect({ 0, 20, 10, 5 }, *container), NSMakeRange(4, 4));
    NSRange range;
    EXPECT_EQ(manager->lineFragmentRectForGlyphAtIndex(5, range), (Rect { 0, 16, 100, 16 }));
    EXPECT_EQ(range, NSMakeRange(4, 4));
    EXPECT_EQ(manager->boundingRectForGlyphRange({ 4, 3 }, *container), (Rect { 5, 16, widthOf("two"), 16 }));
    float fraction = 0;
    EXPECT_EQ(manager->glyphIndexForPoint({ 6, 20 }, *container, fraction), 4);
    EXPECT_GT(fraction, 0);
    EXPECT_LT(fraction, 0.5F);
    EXPECT_EQ(manager->extraLineFragmentRect(), Rect {});
    storage->replaceCharactersInRange({ 13, 0 }, "\n");
    EXPECT_EQ(manager->extraLineFragmentRect(), (Rect { 0, 48, 100, 16 }));
}

TEST(NSLayoutManager, OutlivesItsStorage)
{
    auto storage = make<NSTextStorage>("text", font());
    auto const manager = make<NSLayoutManager>();
    auto const container = make<NSTextContainer>(Size { 100, 40 });
    manager->addTextContainer(container);
    storage->addLayoutManager(manager);
    EXPECT_EQ(manager->numberOfGlyphs(), 4);
    EXPECT_GT(manager->usedRectForTextContainer(*container).width, 0);
    storage = nullptr;
    EXPECT_EQ(manager->numberOfGlyphs(), 0);
    EXPECT_EQ(manager->usedRectForTextContainer(*container), Rect {});
    EXPECT_EQ(manager->glyphRangeForTextContainer(*container), NSRange {});
    auto const other = make<NSTextStorage>("new", font());
    other->addLayoutManager(manager);
    EXPECT_EQ(manager->textStorage(), other.get());
    EXPECT_EQ(manager->usedRectForTextContainer(*container).height, 16);
}

TEST(NSLayoutManager, DrawsBackgroundsBelowGlyphs)
{
    auto attributes = font();
    attributes[NSBackgroundColorAttributeName] = NSColor::greenColor();
    auto const storage = make<NSTextStorage>("MM\nMM", attributes);
    auto const manager = make<NSLayoutManager>();
    auto const container = make<NSTextContainer>(Size { 100, 1000 });
    manager->addTextContainer(container);
    storage->addLayoutManager(manager);
    auto const all = manager->glyphRangeForTextContainer(*container);
    auto const backgrounds = renderBitmap(
        { 60, 40 }, 1,
        [&] {
            manager->drawBackgroundForGlyphRange(all, { 0, 0 });
        },
        colors::white);
    auto const glyphs = renderBitmap(
        { 60, 40 }, 1,
        [&] {
            manager->drawGlyphsForGlyphRange({ 0, 1 }, { 0, 0 });
        },
        colors::white);
    EXPECT_EQ(countPixels(backgrounds, colors::green), static_cast<int>(widthOf("MM")) * 32);
    EXPECT_EQ(countPixels(glyphs, colors::green), 0);
    // Only the first of the two lines, which is the upper one.
    EXPECT_TRUE(hasInk(glyphs, { 0, 8, 60, 16 }, colors::white));
    EXPECT_FALSE(hasInk(glyphs, { 0, 24, 60, 16 }, colors::white));
}

TEST(NSLayoutManager, DrawsOnTheUsedRectOfAContainerThatIsTooLow)
{
    auto const storage = make<NSTextStorage>("MM\nMM\nMM\nMM", font());
    auto const manager = make<NSLayoutManager>();
    auto const container = make<NSTextContainer>(Size { 100, 20 });
    manager->addTextContainer(container);
    storage->addLayoutManager(manager);
    EXPECT_EQ(manager->usedRectForTextContainer(*container).height, 16);
    auto const glyphs = renderBitmap(
        { 60, 80 }, 1,
        [&] {
            manager->drawGlyphsForGlyphRange(manager->glyphRangeForTextContainer(*container), { 0, 10 });
        },
        colors::white);
    EXPECT_TRUE(hasInk(glyphs, { 0, 54, 60, 16 }, colors::white));
    EXPECT_FALSE(hasInk(glyphs, { 0, 0, 60, 54 }, colors::white));
}

}
}
