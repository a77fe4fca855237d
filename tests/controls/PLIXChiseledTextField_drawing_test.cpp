#include <tests/support/ChiseledTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSTextAttachment.h>
#include <plix/platform/appkit/NSTextAttachmentCell.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>

#include <cmath>

namespace plix {
namespace {

/// A white ground.
class Paper : public NSView {
public:
    using NSView::init;
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::whiteColor()->set();
        NSRectFill(dirty);
    }
};

/// How many pixels of the one are not those of the other so many rows further down.
int differencesBelow(Pixels const& above, Pixels const& below, int rows)
{
    int count = 0;
    for (int y = rows; y < above.height(); ++y) {
        for (int x = 0; x < above.width(); ++x)
            count += above.at(x, y - rows) != below.at(x, y);
    }
    return count;
}

template <typename Machine> class EngravedDrawing : public ChiseledTestOn<Machine> {
protected:
    static constexpr Size paperSize { 160, 50 };

    void SetUp() override
    {
        ChiseledTestOn<Machine>::SetUp();
        made = this->label("Engraved gyp", { 10, 12, 140, 24 });
        made->setFont(NSFont::boldSystemFontOfSize(13));
    }
    /// In a window of its own, with text and shadow in these colours.
    Pixels drawn(Ref<NSColor> const& text, Ref<NSColor> const& shadow)
    {
        made->setActiveColor(text);
        made->setShadowActiveColor(shadow);
        made->activate(nullptr);
        return drawn();
    }
    Pixels drawn()
    {
        auto const paper = make<Paper>(rectWith({}, paperSize));
        paper->addSubview(*made);
        auto const window = this->showWindowWith(paper, rectWith({ 100, 100 }, paperSize));
        auto const bitmap = window->snapshot();
        window->close();
        return bitmap;
    }

    void expectShadowBelow(int rows)
    {
        auto const text = drawn(NSColor::blackColor(), NSColor::clearColor());
        auto const shadow = drawn(NSColor::clearColor(), NSColor::blackColor());
        EXPECT_TRUE(hasInk(text, text.all(), colors::white));
        EXPECT_EQ(differencesBelow(text, shadow, rows), 0);
        EXPECT_GT(countDifferences(text, shadow), 0);
    }

    Ref<PLIXChiseledTextField> made;
};

using EngravedAtOne = EngravedDrawing<HeadlessTest>;
using EngravedAtTwo = EngravedDrawing<RetinaTest>;

TEST_F(EngravedAtOne, TheShadowIsTheTextOnePixelBelow)
{
    expectShadowBelow(1);
}

TEST_F(EngravedAtTwo, TheShadowIsTheTextTwoPixelsBelow)
{
    expectShadowBelow(2);
}

TEST_F(EngravedAtOne, TheShadowKeepsItsPlaceForEveryAlignmentAndBoundsOrigin)
{
    for (auto const alignment : { NSLeftTextAlignment, NSCenterTextAlignment, NSRightTextAlignment }) {
        made->setAlignment(alignment);
        expectShadowBelow(1);
    }
    made->setFrame({ 12, 4, 120, 40 });
    made->setStringValue("Two lines of text in one label");
    expectShadowBelow(1);
}

TEST_F(EngravedAtOne, TheTextStandsOverItsShadow)
{
    auto const alone = drawn(NSColor::redColor(), NSColor::clearColor());
    auto const both = drawn(NSColor::redColor(), NSColor::greenColor());
    int covered = 0;
    for (int y = 0; y < alone.height(); ++y) {
        for (int x = 0; x < alone.width(); ++x) {
            if (alone.colorAt(x, y) != colors::red)
                continue;
            ++covered;
            EXPECT_EQ(both.colorAt(x, y), colors::red) << x << ' ' << y;
        }
    }
    EXPECT_GT(covered, 50);
    EXPECT_GT(countPixels(both, colors::green), 0);
}

template <typename Test> void expectGreysOnly(Test const& pixels)
{
    int const colored = countPixels(pixels, [](std::uint32_t pixel) {
        auto const red = (pixel >> 16) & 255;
        return red != ((pixel >> 8) & 255) || red != (pixel & 255);
    });
    int const between = countPixels(pixels, [](std::uint32_t pixel) { return (pixel & 255) > 60 && (pixel & 255) < 200; });
    EXPECT_EQ(colored, 0);
    EXPECT_GT(between, 20);
}

TEST_F(EngravedAtOne, TextIsSmoothedInGreysOnly)
{
    expectGreysOnly(drawn(NSColor::blackColor(), NSColor::clearColor()));
    expectGreysOnly(drawn(NSColor::clearColor(), NSColor::blackColor()));
}

TEST_F(EngravedAtTwo, TextIsSmoothedInGreysOnly)
{
    expectGreysOnly(drawn(NSColor::blackColor(), NSColor::lightGrayColor()));
}

/// Notes how the context stands when it draws.
class WatchingCell : public NSTextFieldCell {
    PLIX_CLASS(WatchingCell, NSTextFieldCell);

public:
    void drawWithFrame(Rect frame, NSView& controlView) override
    {
        auto const context = NSGraphicsContext::currentContext();
        smoothing.push_back(context->shouldSmoothFonts());
        frames.push_back(frame);
        views.push_back(&controlView);
        NSTextFieldCell::drawWithFrame(frame, controlView);
    }
    static void forget()
    {
        smoothing.clear();
        frames.clear();
        views.clear();
    }
    static inline std::vector<bool> smoothing;
    static inline std::vector<Rect> frames;
    static inline std::vector<NSView*> views;
};

PLIX_DESCRIBE(WatchingCell)
{
}

/// Draws a label as a subclass would, and looks at the context around.
class AroundLabel : public PLIXChiseledTextField {
public:
    using PLIXChiseledTextField::init;
    void drawRect(Rect rect) override
    {
        auto const context = NSGraphicsContext::currentContext();
        auto const depth = context->stateDepth();
        context->setShouldSmoothFonts(true);
        WatchingCell::forget();
        PLIXChiseledTextField::drawRect(rect);
        wasRestored = context->shouldSmoothFonts() && context->stateDepth() == depth;
    }
    bool wasRestored { false };
};

TEST_F(EngravedAtOne, SmoothingIsOffWhileBothTextsAreDrawnAndBackAfterwards)
{
    NSTextField::setCellClass(WatchingCell::staticClass());
    auto const around = make<AroundLabel>(Rect { 10, 12, 140, 24 });
    NSTextField::setCellClass(NSTextFieldCell::staticClass());
    around->setStringValue("Watched");
    made = around;
    drawn();
    EXPECT_TRUE(around->wasRestored);
    EXPECT_EQ(WatchingCell::smoothing, (std::vector { false, false }));
    EXPECT_EQ(WatchingCell::frames, (std::vector { Rect { 0, 1, 140, 24 }, Rect { 0, 0, 140, 24 } }));
    EXPECT_EQ(WatchingCell::views, (std::vector<NSView*> { around.get(), around.get() }));
    EXPECT_EQ(around->cell()->controlView(), around.get());
}

TEST_F(EngravedAtOne, ADisabledLabelDrawsItsOwnTextOnly)
{
    made->setActiveColor(NSColor::blackColor());
    made->setShadowActiveColor(NSColor::greenColor());
    made->setShadowInactiveColor(NSColor::greenColor());
    made->setDisabledColor(NSColor::redColor());
    made->setEnabled(false);
    auto const disabled = drawn();
    EXPECT_GT(countPixels(disabled, colors::red), 20);
    EXPECT_EQ(countPixels(disabled, [](std::uint32_t pixel) { return ((pixel >> 16) & 255) < 250; }), 0);
    made->setEnabled(true);
    auto const enabled = drawn();
    EXPECT_GT(countPixels(enabled, colors::green), 0);
    EXPECT_EQ(countPixels(enabled, colors::red), 0);
}

TEST_F(EngravedAtOne, ALabelWithoutShadowDrawsItsText)
{
    auto const plain = make<PLIXChiseledTextField>();
    plain->setFrame({ 10, 12, 140, 24 });
    plain->setFont(made->font());
    plain->setStringValue(made->stringValue());
    plain->activate(nullptr);
    auto const shadowless = drawn(NSColor::blackColor(), NSColor::clearColor());
    made = plain;
    EXPECT_EQ(countDifferences(drawn(NSColor::blackColor(), NSColor::greenColor()), shadowless), 0);
}

TEST_F(EngravedAtOne, AnImageInTheTextIsDrawnOnce)
{
    auto const text = make<NSMutableAttributedString>("A  B", Attributes { { NSFontAttributeName, made->font() } });
    auto const attachment = make<NSTextAttachment>();
    attachment->attachmentCell()->setImage(imageOfColor({ 12, 8 }, { 0, 0, 1, 1 }));
    text->insertAttributedString(*NSTextAttachment::attributedStringWithAttachment(*attachment), 2);
    auto const drawnWith = [&](Ref<NSColor> const& color, Ref<NSColor> const& shadowColor) {
        made->setActiveColor(color);
        made->setShadowActiveColor(shadowColor);
        made->activate(nullptr);
        made->setAttributedStringValue(text);
        return drawn();
    };
    auto const both = drawnWith(NSColor::blackColor(), NSColor::redColor());
    EXPECT_EQ(countPixels(both, colors::blue), 12 * 8);
    EXPECT_GT(countPixels(both, [](std::uint32_t pixel) { return ((pixel >> 16) & 255) > ((pixel >> 8) & 255) + 40; }), 0);
    // The blank one takes as much room in the shadow.
    auto const textInk = inkBounds(drawnWith(NSColor::blackColor(), NSColor::clearColor()), colors::white);
    auto const shadowInk = inkBounds(drawnWith(NSColor::clearColor(), NSColor::blackColor()), colors::white);
    EXPECT_EQ(shadowInk.x, textInk.x);
    EXPECT_EQ(shadowInk.width, textInk.width);
}

TEST_F(EngravedAtOne, AnEmptyTextAndAnEmptyFrameDrawNothing)
{
    made->setStringValue("");
    EXPECT_FALSE(hasInk(drawn(NSColor::blackColor(), NSColor::blackColor()), { 0, 0, 160, 50 }, colors::white));
    made->setStringValue("Text");
    made->setFrameSize({});
    EXPECT_FALSE(hasInk(drawn(NSColor::blackColor(), NSColor::blackColor()), { 0, 0, 160, 50 }, colors::white));
}

TEST_F(EngravedAtOne, DisplayDrawsAtOnce)
{
    auto const paper = make<Paper>(rectWith({}, paperSize));
    paper->addSubview(*made);
    auto const window = showWindowWith(paper, rectWith({ 100, 100 }, paperSize));
    made->deactivate(nullptr);
    ASSERT_TRUE(made->needsDisplay());
    made->display();
    EXPECT_FALSE(made->needsDisplay());
}

TEST_F(EngravedAtOne, AnotherKeyWindowIsSeenInTheLabelsPixels)
{
    made->setActiveColor(NSColor::blackColor());
    made->setInactiveColor(NSColor::blueColor());
    made->activate(nullptr);
    auto const paper = make<Paper>(rectWith({}, paperSize));
    paper->addSubview(*made);
    auto const window = showWindowWith(paper, rectWith({ 100, 100 }, paperSize));
    EXPECT_EQ(countPixels(window->snapshot(), colors::blue, 0.1F), 0);
    auto const other = showWindow({ 600, 200, 100, 100 });
    EXPECT_GT(countPixels(window->snapshot(), colors::blue, 0.1F), 0);
    window->makeKeyWindow();
    pump();
    EXPECT_EQ(countPixels(window->snapshot(), colors::blue, 0.1F), 0);
}

}
}
