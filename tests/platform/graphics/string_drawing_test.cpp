#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/NSShadow.h>
#include <plix/platform/graphics/ShapedTextCache.h>
#include <plix/platform/graphics/inline_object.h>
#include <plix/platform/graphics/paragraph_setter.h>
#include <plix/platform/graphics/string_drawing.h>
#include <plix/platform/graphics/text_line.h>

#include <tests/support/pixels.h>

#include <cmath>

namespace plix {
namespace {

Attributes font(float size)
{
    return { { NSFontAttributeName, NSFont::systemFontOfSize(size) } };
}

Attributes withStyle(NSLineBreakMode mode, NSTextAlignment alignment = NSLeftTextAlignment)
{
    auto const style = make<NSMutableParagraphStyle>();
    style->setLineBreakMode(mode);
    style->setAlignment(alignment);
    auto attributes = font(13);
    attributes[NSParagraphStyleAttributeName] = style;
    return attributes;
}

/// Draws on white, flipped or not.
Ref<NSBitmapImageRep> drawn(Size size, float scale, bool isFlipped, FunctionRef<void()> draw)
{
    return renderBitmap(
        size, scale,
        [&] {
            auto const context = NSGraphicsContext::currentContext();
            if (isFlipped) {
                context->translateBy(0, static_cast<double>(size.height));
                context->scaleBy(1, -1);
                context->setFlipped(true);
            }
            draw();
        },
        colors::white);
}

TEST(StringDrawing, MeasuresExactlyUnderThePrivateFonts)
{
    struct Row {
        char const* text;
        float size;
        Size extent;
    };
    constexpr Row rows[] {
        { "Hello", 13, { 32, 16 } },
        { "Hello, world!", 13, { 78, 16 } },
        { "Hello", 11, { 27, 14 } },
        { "Hello\nHello", 13, { 32, 32 } },
        { "Hello\n", 13, { 32, 32 } },
        { "a  ", 13, { 15, 16 } },
        { "", 13, { 0, 0 } },
        { "שלום", 13, { 29, 16 } },
        { "مرحبا", 13, { 30, 16 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(sizeWithAttributes(row.text, font(row.size)), row.extent) << row.text;
    EXPECT_EQ(sizeWithAttributes("Hello", {}).height, NSFont::userFontOfSize(12)->defaultLineHeightForFont());
}

TEST(StringDrawing, BothKindsOfContextGiveTheSamePicture)
{
    for (float const scale : { 1.0F, 2.0F }) {
        for (char const* const text : { "Simple text", "Two\nlines", "שלום Ärger" }) {
            auto const size = sizeWithAttributes(text, font(13));
            auto const flipped = drawn({ 120, 50 }, scale, true, [&] { drawAtPoint(text, { 10, 5 }, font(13)); });
            auto const upright = drawn({ 120, 50 }, scale, false, [&] { drawAtPoint(text, { 10, 45 - size.height }, font(13)); });
            EXPECT_EQ(countDifferences(flipped, upright, 0), 0) << text;
            EXPECT_TRUE(hasInk(flipped, flipped->pixels().width > 0 ? Pixels(flipped).all() : PixelRect {}, colors::white));
        }
    }
}

TEST(StringDrawing, ThePointIsTheCornerOfTheExtent)
{
    auto const bitmap = drawn({ 60, 40 }, 1, true, [] { drawAtPoint("Hf", { 10, 10 }, font(13)); });
    auto const ink = inkBounds(bitmap, colors::white);
    // The baseline is 13 below the corner, a capital 9.45 high.
    EXPECT_EQ(ink.y + ink.height, 23);
    EXPECT_NEAR(ink.y, 13, 1);
    EXPECT_NEAR(ink.x, 11, 1);
}

TEST(StringDrawing, WidthsAreTheSameAtEveryScale)
{
    auto const inkWidth = [](float scale) {
        auto const bitmap = drawn({ 400, 20 }, scale, true, [] {
            drawAtPoint("The quick brown fox jumps over it", { 0, 0 }, font(13));
        });
        auto const ink = inkBounds(bitmap, colors::white);
        return static_cast<float>(ink.x + ink.width) / scale;
    };
    EXPECT_NEAR(inkWidth(1), inkWidth(2), 1);
    EXPECT_NEAR(inkWidth(1), inkWidth(3), 1);
}

TEST(StringDrawing, TextIsGreyOnly)
{
    auto const bitmap = drawn({ 200, 20 }, 1, true, [] { drawAtPoint("WAVE mm ill", { 0.3F, 0 }, font(13)); });
    auto const isColored
        = [](std::uint32_t pixel) { return (pixel & 0xFF) != (pixel >> 8 & 0xFF) || (pixel & 0xFF) != (pixel >> 16 & 0xFF); };
    EXPECT_EQ(countPixels(bitmap, isColored), 0);
}

TEST(StringDrawing, BlendsAsCairoPaints)
{
    // A clip that is no rectangle, though all is inside, goes the other way.
    for (char const* const text : { "Quick fox, 17%", "שלום", "tab\there" }) {
        for (float const scale : { 1.0F, 2.0F, 1.5F }) {
            auto attributes = font(13);
            attributes[NSForegroundColorAttributeName] = NSColor::colorWithCalibratedRed(0.8F, 0.1F, 0.3F, 0.7F);
            auto const blended = drawn({ 130, 40 }, scale, true, [&] { drawAtPoint(text, { 3.4F, 5.6F }, attributes); });
            auto const painted = drawn({ 130, 40 }, scale, true, [&] {
                Rect const whole[] { { 0, 0, 130, 39 }, { 0, 39, 129, 1 } };
                NSGraphicsContext::currentContext()->clipToRects(whole);
                drawAtPoint(text, { 3.4F, 5.6F }, attributes);
            });
            EXPECT_EQ(countDifferences(blended, painted, 1.5F / 255), 0) << text << scale;
            EXPECT_GT(countPixels(blended, [](std::uint32_t pixel) { return pixel != 0xFFFFFFFF; }), 100);
        }
    }
}

TEST(StringDrawing, StaysInsideTheClip)
{
    auto const whole = drawn({ 100, 20 }, 1, true, [] { drawAtPoint("Mwwwwwwwww", { 0, 0 }, font(13)); });
    auto const part = drawn({ 100, 20 }, 1, true, [] {
        NSGraphicsContext::currentContext()->clipToRect({ 7, 4, 30, 7 });
        drawAtPoint("Mwwwwwwwww", { 0, 0 }, font(13));
    });
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 100; ++x) {
            bool const isInside = x >= 7 && x < 37 && y >= 4 && y < 11;
            ASSERT_EQ(Pixels(part).at(x, y), isInside ? Pixels(whole).at(x, y) : 0xFFFFFFFF) << x << "," << y;
        }
    }
}

TEST(StringDrawing, AlignsInTheRectangle)
{
    struct Row {
        NSTextAlignment alignment;
        int left;
    };
    constexpr Row rows[] { { NSLeftTextAlignment, 10 }, { NSRightTextAlignment, 78 }, { NSCenterTextAlignment, 44 },
        { NSNaturalTextAlignment, 10 } };
    for (auto const& row : rows) {
        for (char const* const text : { "Hello", "Hello\nHello" }) {
            auto const bitmap = drawn({ 120, 40 }, 1, false, [&] {
                drawInRect(text, { 10, 0, 100, 40 }, withStyle(NSLineBreakByWordWrapping, row.alignment));
            });
            EXPECT_NEAR(inkBounds(bitmap, colors::white).x, row.left + 1, 1) << row.alignment << text;
        }
    }
}

TEST(StringDrawing, WrapsInTheRectangleAndLeavesOutWhatHasNoRoom)
{
    auto const linesOfInk = [](float height) {
        auto const bitmap = drawn({ 60, 80 }, 1, true, [&] {
            drawInRect("one two six ten", { 0, 0, 30, height }, withStyle(NSLineBreakByWordWrapping));
        });
        int lines = 0;
        for (int line = 0; line < 5; ++line)
            lines += hasInk(bitmap, { 0, line * 16, 60, 16 }, colors::white) ? 1 : 0;
        return lines;
    };
    EXPECT_EQ(linesOfInk(80), 4);
    EXPECT_EQ(linesOfInk(48), 3);
    EXPECT_EQ(linesOfInk(47), 2);
    EXPECT_EQ(linesOfInk(10), 1);
}

TEST(StringDrawing, TruncatesToTheWidth)
{
    constexpr char text[] = "A rather long file name.txt";
    auto const full = sizeWithAttributes(text, font(13)).width;
    for (auto const mode : { NSLineBreakByTruncatingHead, NSLineBreakByTruncatingTail, NSLineBreakByTruncatingMiddle }) {
        EXPECT_EQ(sizeForWidth(text, full, withStyle(mode)), (Size { full, 16 }));
        auto const cut = sizeForWidth(text, 80, withStyle(mode));
        EXPECT_LE(cut.width, 80) << mode;
        EXPECT_GT(cut.width, 60) << mode;
        EXPECT_EQ(cut.height, 16);
    }
    EXPECT_EQ(sizeForWidth(text, 80, withStyle(NSLineBreakByClipping)).width, full);
    auto const bitmap = drawn({ 200, 20 }, 1, true, [&] { drawInRect(text, { 10, 0, 80, 16 }, withStyle(NSLineBreakByClipping)); });
    auto const ink = inkBounds(bitmap, colors::white);
    EXPECT_LE(ink.x + ink.width, 90);
    EXPECT_GT(ink.x + ink.width, 84);
}

TEST(StringDrawing, TruncationKeepsTheRightEnd)
{
    auto const picture = [](char const* text, NSLineBreakMode mode, float width) {
        return drawn({ 200, 20 }, 1, true, [&] { drawInRect(text, { 0, 0, width, 16 }, withStyle(mode)); });
    };
    // The first letters are those of the whole text where the tail is cut, and others where the head is.
    auto const whole = picture("Wide text that is cut", NSLineBreakByTruncatingTail, 200);
    auto const tail = picture("Wide text that is cut", NSLineBreakByTruncatingTail, 90);
    auto const head = picture("Wide text that is cut", NSLineBreakByTruncatingHead, 90);
    auto const middle = picture("Wide text that is cut", NSLineBreakByTruncatingMiddle, 90);
    auto const sameStart = [&](auto const& other) {
        int differences = 0;
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 25; ++x)
                differences += Pixels(whole).at(x, y) != Pixels(other).at(x, y) ? 1 : 0;
        }
        return differences == 0;
    };
    EXPECT_TRUE(sameStart(tail));
    EXPECT_TRUE(sameStart(middle));
    EXPECT_FALSE(sameStart(head));
}

TEST(StringDrawing, AnEllipsisKeepsTheLooksAroundIt)
{
    auto const string = make<NSMutableAttributedString>("MMMMMMMMMMMM", withStyle(NSLineBreakByTruncatingMiddle));
    string->addAttribute(NSForegroundColorAttributeName, NSColor::redColor(), { 0, 3 });
    string->addAttribute(NSForegroundColorAttributeName, NSColor::blueColor(), { 9, 3 });
    auto const bitmap = drawn({ 120, 20 }, 1, true, [&] { string->drawInRect({ 0, 0, 80, 16 }); });
    auto const isReddish = [](std::uint32_t pixel) { return (pixel >> 16 & 0xFF) > (pixel & 0xFF) + 20; };
    auto const isBluish = [](std::uint32_t pixel) { return (pixel & 0xFF) > (pixel >> 16 & 0xFF) + 20; };
    EXPECT_GT(countPixels(bitmap, { 24, 0, 14, 20 }, isReddish), 2);
    EXPECT_EQ(countPixels(bitmap, { 40, 0, 80, 20 }, isReddish), 0);
    EXPECT_GT(countPixels(bitmap, { 50, 0, 70, 20 }, isBluish), 20);
    EXPECT_EQ(countPixels(bitmap, { 0, 0, 36, 20 }, isBluish), 0);
}

TEST(TextLineDrawing, DrawsWhatDrawInRectDraws)
{
    auto const systemFont = NSFont::systemFontOfSize(13);
    auto const color = NSColor::colorWithCalibratedRed(0.2F, 0.4F, 0.1F, 1);
    for (char const* const text :
        { "Plain", "A rather long file name.txt", "Ein (langer) Dateiname 12:30.txt", "שלום עולם שלום עולם" }) {
        for (auto const alignment : { NSLeftTextAlignment, NSRightTextAlignment, NSCenterTextAlignment }) {
            for (auto const mode : { NSLineBreakByTruncatingTail, NSLineBreakByTruncatingMiddle, NSLineBreakByClipping }) {
                auto attributes = withStyle(mode, alignment);
                attributes[NSForegroundColorAttributeName] = color;
                auto const expected = drawn({ 110, 20 }, 2, true, [&] { drawInRect(text, { 5, 2, 100, 16 }, attributes); });
                auto const line = drawn({ 110, 20 }, 2, true, [&] {
                    drawTextLine(text, { 5, 2, 100, 16 }, { *systemFont, color.get(), alignment, mode });
                });
                EXPECT_EQ(countDifferences(expected, line, 0), 0) << text << alignment << mode;
            }
        }
        EXPECT_EQ(widthOfTextLine(text, *systemFont), sizeWithAttributes(text, font(13)).width);
    }
}

TEST(StringDrawing, DrawsEachRunInItsOwnLook)
{
    auto const string = make<NSMutableAttributedString>("MMMMMM", font(20));
    string->addAttribute(NSForegroundColorAttributeName, NSColor::redColor(), { 0, 2 });
    string->addAttribute(NSBackgroundColorAttributeName, NSColor::greenColor(), { 2, 2 });
    string->addAttribute(NSUnderlineStyleAttributeName, NSUnderlineStyleSingle, { 4, 2 });
    string->addAttribute(NSUnderlineColorAttributeName, NSColor::blueColor(), { 4, 2 });
    auto const third = static_cast<int>(string->size().width / 3);
    auto const bitmap = drawn({ 160, 40 }, 1, true, [&] { string->drawAtPoint({ 0, 0 }); });
    EXPECT_GT(countPixels(bitmap, { 0, 0, third, 40 }, colors::red), 40);
    EXPECT_EQ(countPixels(bitmap, { third, 0, 160, 40 }, colors::red), 0);
    EXPECT_EQ(countPixels(bitmap, { 0, 0, third, 40 }, colors::green), 0);
    EXPECT_GT(countPixels(bitmap, { third, 0, third, 24 }, colors::green), 200);
    EXPECT_NEAR(countPixels(bitmap, { 2 * third, 0, 160, 40 }, colors::blue), third, 3);
    EXPECT_GT(countPixels(bitmap, { 2 * third, 0, 160, 40 }, colors::black), 40);
}

TEST(StringDrawing, RunsInOtherFontsAndPositionsShareTheBaseline)
{
    auto const string = make<NSMutableAttributedString>("xX", font(13));
    string->addAttribute(NSFontAttributeName, NSFont::systemFontOfSize(26), { 1, 1 });
    EXPECT_EQ(string->size().height, NSFont::systemFontOfSize(26)->defaultLineHeightForFont());
    auto const bottomOf = [&](PixelRect area) {
        auto const bitmap = drawn({ 60, 50 }, 1, true, [&] { string->drawAtPoint({ 0, 0 }); });
        int bottom = 0;
        for (int y = 0; y < area.height; ++y)
            bottom = hasInk(bitmap, { area.x, y, area.width, 1 }, colors::white) ? y + 1 : bottom;
        return bottom;
    };
    int const baseline = bottomOf({ 8, 0, 40, 50 });
    EXPECT_EQ(bottomOf({ 0, 0, 7, 50 }), baseline);
    string->addAttribute(NSBaselineOffsetAttributeName, 5, { 0, 1 });
    EXPECT_EQ(bottomOf({ 0, 0, 7, 50 }), baseline - 5);
}

TEST(StringDrawing, ShadowsFallBelowTheirRunOnly)
{
    auto const shadow = make<NSShadow>();
    shadow->setShadowOffset({ 0, -2 });
    shadow->setShadowBlurRadius(2);
    shadow->setShadowColor(NSColor::colorWithCalibratedRed(0, 0, 1, 1));
    auto const string = make<NSMutableAttributedString>("HHHH", font(20));
    auto const isBluish = [](std::uint32_t pixel) { return (pixel & 0xFF) > (pixel >> 16 & 0xFF) + 20; };
    string->addAttribute(NSShadowAttributeName, shadow, { 2, 2 });
    int const half = static_cast<int>(string->size().width / 2);
    for (bool const isFlipped : { true, false }) {
        auto const bitmap = drawn({ 80, 40 }, 1, isFlipped, [&] { string->drawAtPoint({ 0, 10 }); });
        EXPECT_EQ(countPixels(bitmap, { 0, 0, half - 4, 40 }, isBluish), 0);
        EXPECT_GT(countPixels(bitmap, { half, 0, 80, 40 }, isBluish), 30) << isFlipped;
        auto const plainBottom = drawn({ 80, 40 }, 1, isFlipped, [&] { drawAtPoint("HH", { 0, 10 }, font(20)); });
        auto const shadowed = inkBounds(bitmap, colors::white);
        auto const plain = inkBounds(plainBottom, colors::white);
        EXPECT_GT(shadowed.y + shadowed.height, plain.y + plain.height + 1);
    }
}

class Badge : public NSObject, public InlineObject {
public:
    Size inlineSize() const override { return size; }
    Point inlineBaselineOffset() const override { return { 0, below }; }
    void drawInline(Rect frame) override
    {
        frames.push_back(frame);
        NSColor::redColor()->set();
        NSRectFill(frame);
    }
    Size size { 20, 30 };
    float below { -4 };
    std::vector<Rect> frames;
};

TEST(StringDrawing, AttachmentsTakeTheirRoomInTheLine)
{
    auto const badge = make<Badge>();
    auto const string = make<NSMutableAttributedString>("ab", font(13));
    string->insertAttributedString(*attributedStringWithAttachment(badge), 1);
    EXPECT_TRUE(string->containsAttachments());
    float const letter = sizeWithAttributes("a", font(13)).width;
    EXPECT_EQ(string->size().height, 30);
    EXPECT_EQ(string->size().width, sizeWithAttributes("a", font(13)).width + sizeWithAttributes("b", font(13)).width + 20);
    auto const flipped = drawn({ 60, 40 }, 1, true, [&] { string->drawAtPoint({ 5, 2 }); });
    auto const upright = drawn({ 60, 40 }, 1, false, [&] { string->drawAtPoint({ 5, 8 }); });
    ASSERT_EQ(badge->frames.size(), 2U);
    EXPECT_EQ(badge->frames[0], (Rect { 5 + letter, 2, 20, 30 }));
    EXPECT_EQ(badge->frames[1], (Rect { 5 + letter, 8, 20, 30 }));
    EXPECT_EQ(countDifferences(flipped, upright, 0), 0);
    EXPECT_EQ(countPixels(flipped, colors::red), 600);
}

TEST(StringDrawing, AttachmentsOfAnySizeAreHarmless)
{
    for (Size const size : { Size { 0, 0 }, Size { -5, -5 }, Size { NAN, INFINITY }, Size { 1e30F, 1 } }) {
        auto const badge = make<Badge>();
        badge->size = size;
        auto const string = make<NSMutableAttributedString>("ab", font(13));
        string->insertAttributedString(*attributedStringWithAttachment(badge), 1);
        drawn({ 60, 40 }, 1, true, [&] { string->drawInRect({ 5, 2, 50, 30 }); });
        EXPECT_GE(string->size().height, 16);
        EXPECT_EQ(badge->frames.size(), 1U);
    }
    auto const string = make<NSAttributedString>("\xEF\xBF\xBC", Attributes { { NSAttachmentAttributeName, "no object" } });
    EXPECT_GT(string->size().height, 0);
}

TEST(StringDrawing, KerningAndLigaturesChangeTheWidth)
{
    auto wide = font(13);
    wide[NSKernAttributeName] = 2;
    EXPECT_EQ(sizeWithAttributes("Hello", wide).width, 32 + 4 * 2);
    Attributes serif { { NSFontAttributeName, NSFont::fontWithName("DejaVuSans", 20) } };
    auto const joined = make<NSAttributedString>("fi", serif);
    serif[NSLigatureAttributeName] = 0;
    auto const apart = make<NSAttributedString>("fi", serif);
    auto const first = drawn({ 30, 30 }, 2, true, [&] { joined->drawAtPoint({ 2, 2 }); });
    auto const second = drawn({ 30, 30 }, 2, true, [&] { apart->drawAtPoint({ 2, 2 }); });
    EXPECT_GT(countDifferences(first, second), 0);
}

TEST(StringDrawing, WithoutAContextNothingHappens)
{
    ASSERT_FALSE(NSGraphicsContext::currentContext());
    drawAtPoint("text", { 0, 0 }, {});
    drawInRect("text", { 0, 0, 10, 10 }, {});
    make<NSAttributedString>("text")->drawAtPoint({ 0, 0 });
    make<NSAttributedString>("text")->drawInRect({ 0, 0, 10, 10 });
    EXPECT_GT(sizeWithAttributes("text", {}).width, 0);
}

TEST(StringDrawing, TakesHostileText)
{
    std::string const texts[] { std::string("a\0b\0", 4), "\xFF\xFE\xC0\x80", utf8FromUTF16(u"\xD800x\xDC00"),
        std::string(50'000, 'w'), "😀👨‍👩‍👧‍👦🇩🇪", "a\u0301\u0302\u0303\u0304\u0305",
        std::string("\x1B[31m\x7F\t\r\n\v\f"), "\u202E\u2066abc\u2069\u200F", "\u2028\u2029\u0085", std::string(300, '\n'),
        "\uFEFF\u200B\u00AD" };
    for (auto const& text : texts) {
        auto const size = sizeWithAttributes(text, font(13));
        EXPECT_TRUE(std::isfinite(size.width) && size.width >= 0) << text.substr(0, 10);
        EXPECT_TRUE(std::isfinite(size.height) && size.height >= 16) << text.substr(0, 10);
        drawn({ 50, 30 }, 1, true, [&] {
            drawAtPoint(text, { 0, 0 }, font(13));
            for (float const width : { 40.0F, 0.0F, -3.0F, NAN, INFINITY }) {
                drawInRect(text, { 0, 0, width, 30 }, withStyle(NSLineBreakByTruncatingTail));
                if (text.size() < 1000)
                    drawInRect(text, { 0, 0, width, 30 }, font(13));
            }
            drawAtPoint(text, { NAN, INFINITY }, font(13));
            drawAtPoint(text, { 1e30F, -1e30F }, font(13));
        });
    }
}

TEST(StringDrawing, TakesFontsOfAnySize)
{
    for (float const size : { 0.01F, 0.5F, 100.0F, 1e9F }) {
        auto const extent = sizeWithAttributes("Wq", font(size));
        EXPECT_TRUE(std::isfinite(extent.width)) << size;
        drawn({ 50, 50 }, 1, true, [&] { drawAtPoint("Wq", { 0, 0 }, font(size)); });
    }
    auto const bitmap = drawn({ 400, 260 }, 1, true, [&] { drawAtPoint("W", { 0, 0 }, font(200)); });
    EXPECT_GT(countPixels(bitmap, colors::black), 5000);
}

TEST(ShapedTextCache, WhatWasMeasuredIsNotShapedAgain)
{
    constexpr char text[] = "שלום עולם, three times";
    auto& cache = ShapedTextCache::shared();
    cache.clear();
    sizeWithAttributes(text, font(13));
    auto const shapings = settingCounts().shapings;
    auto const counts = cache.counts();
    sizeWithAttributes(text, font(13));
    auto colored = font(13);
    colored[NSForegroundColorAttributeName] = NSColor::redColor();
    drawn({ 200, 20 }, 1, true, [&] { drawAtPoint(text, { 0, 0 }, colored); });
    drawn({ 200, 20 }, 2, false, [&] { drawAtPoint(text, { 0, 0 }, font(13)); });
    EXPECT_EQ(settingCounts().shapings, shapings);
    EXPECT_EQ(cache.counts().misses, counts.misses);
    EXPECT_EQ(cache.counts().hits - counts.hits, 5);
    sizeWithAttributes(text, font(14));
    EXPECT_EQ(cache.counts().misses, counts.misses + 1);
}

TEST(ShapedTextCache, SimpleTextSettlesInTables)
{
    auto const measureAll = [](std::string const& words) {
        for (int i = 0; i < 100; ++i)
            sizeWithAttributes(words + std::to_string(i), font(15));
    };
    for (char const* const words : { "Some plain label ", "plain label Some ", "label Some plain " })
        measureAll(words);
    auto const shapings = settingCounts().shapings;
    measureAll("plain Some label ");
    EXPECT_EQ(settingCounts().shapings, shapings);
}

TEST(ShapedTextCache, ForgetsWhatWasLeastRecentlyUsed)
{
    ShapedTextCache cache;
    TextStyle style;
    auto const systemFont = NSFont::systemFontOfSize(13);
    style.font = systemFont.get();
    auto const look = [&](std::string const& text) {
        StyleSpan const span { static_cast<std::uint32_t>(text.size()), style };
        cache.block(text, { &span, 1 }, -1);
    };
    look("first");
    std::size_t const one = cache.memory();
    cache.setLargestMemory(one * 3 + one / 2);
    for (char const* const text : { "other", "third", "first", "again" })
        look(text);
    EXPECT_EQ(cache.size(), 3U);
    EXPECT_LE(cache.memory(), one * 3 + one / 2);
    auto const misses = cache.counts().misses;
    look("first");
    look("third");
    EXPECT_EQ(cache.counts().misses, misses);
    look("other");
    EXPECT_EQ(cache.counts().misses, misses + 1);
    cache.setLargestMemory(0);
    EXPECT_EQ(cache.size(), 1U);
}

}
}
