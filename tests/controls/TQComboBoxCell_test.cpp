#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <plix/controls/TQComboBoxCell.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/appearance.h>

namespace plix {
namespace {

class ComboCellView : public NSView {
public:
    bool init(Rect frame, bool isFlipped)
    {
        m_isFlipped = isFlipped;
        return NSView::init(frame);
    }
    bool isFlipped() const override { return m_isFlipped; }
    void drawRect(Rect) override
    {
        ground->set();
        NSRectFill(bounds());
        cell->drawWithFrame(bounds(), *this);
    }
    Ref<TQComboBoxCell> cell;
    Ref<NSColor> ground { NSColor::whiteColor() };

private:
    bool m_isFlipped { false };
};

class TQComboBoxCellTest : public HeadlessTest {
protected:
    Pixels drawn(bool isFlipped, std::string_view text)
    {
        auto const view = make<ComboCellView>(Rect { 0, 0, 80, 20 }, isFlipped);
        view->cell = make<TQComboBoxCell>(text);
        view->cell->setBezeled(true);
        view->cell->setFont(NSFont::systemFontOfSize(11));
        return showWindowWith(view, { 100, 100, 80, 20 })->snapshot();
    }
};

TEST_F(TQComboBoxCellTest, DrawsTheKnobInTheLastTenPoints)
{
    auto const pixels = drawn(true, "");
    auto const ink = inkBounds(pixels, colors::white);
    EXPECT_GE(ink.x, 70);
    EXPECT_LE(ink.x + ink.width, 80);
    EXPECT_GT(ink.height, 3);
    // In the middle of the slice.
    EXPECT_NEAR(static_cast<float>(ink.x) + static_cast<float>(ink.width) / 2, 75, 1);
    EXPECT_NEAR(static_cast<float>(ink.y) + static_cast<float>(ink.height) / 2, 10, 1.5F);
}

TEST_F(TQComboBoxCellTest, TheKnobIsLightInTheDark)
{
    setCurrentAppearance(Appearance::dark);
    auto const view = make<ComboCellView>(Rect { 0, 0, 80, 20 }, true);
    view->cell = make<TQComboBoxCell>("");
    view->ground = NSColor::blackColor();
    auto const pixels = Pixels(showWindowWith(view, { 100, 100, 80, 20 })->snapshot());
    setCurrentAppearance(Appearance::light);
    EXPECT_GT(countPixels(pixels, { 70, 0, 10, 20 }, [](std::uint32_t pixel) { return (pixel & 0xFF) > 0x90; }), 3);
}

TEST_F(TQComboBoxCellTest, TheKnobIsUprightInFlippedViewsToo)
{
    auto const flipped = drawn(true, "");
    auto const plain = drawn(false, "");
    EXPECT_EQ(countDifferences(flipped, plain), 0);
}

TEST_F(TQComboBoxCellTest, DrawsItsTextWithoutBezelBeforeTheKnob)
{
    auto const pixels = drawn(true, "MMMMMMMMMMMMMMMMMMMMMMM");
    EXPECT_FALSE(hasInk(pixels, { 0, 0, 70, 1 }, colors::white));
    EXPECT_TRUE(hasInk(pixels, { 4, 4, 60, 12 }, colors::white));
    EXPECT_EQ(countDifferences(drawn(true, ""), drawn(true, "")), 0);
    auto const knobOnly = drawn(true, "");
    for (int x = 71; x < 80; ++x) {
        for (int y = 0; y < 20; ++y)
            EXPECT_EQ(pixels.at(x, y), knobOnly.at(x, y)) << x << ' ' << y;
    }
}

TEST_F(TQComboBoxCellTest, TheKnobIsItsButton)
{
    auto const cell = make<TQComboBoxCell>();
    EXPECT_EQ(cell->buttonRectForBounds({ 5, 5, 80, 20 }), (Rect { 75, 5, 10, 20 }));
}

}
}
