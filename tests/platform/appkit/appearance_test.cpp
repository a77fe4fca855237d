#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/appearance.h>

namespace plix {
namespace {

/// A window of 40 by 20 points whose left half is a view of the colour that fields are filled with.
class AppearanceTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 0, 0, 40, 20 });
        outer = make<CountingView>(Rect { 0, 0, 20, 20 });
        inner = make<CountingView>(Rect { 0, 0, 10, 20 });
        outer->color = NSColor::textBackgroundColor();
        inner->color = NSColor::textBackgroundColor();
        outer->addSubview(*inner);
        window->contentView()->addSubview(*outer);
        pump();
    }
    void TearDown() override
    {
        setCurrentAppearance(Appearance::light);
        HeadlessTest::TearDown();
    }
    /// Light or dark from the inner view to the window's own ground.
    std::string looks()
    {
        pump();
        Pixels const shown(window->snapshot());
        std::string all;
        for (int x : { 5, 15, 30 })
            all += shown.colorAt(x, 10).green > 0.5F ? 'l' : 'd';
        return all;
    }

    Ref<NSWindow> window;
    Ref<CountingView> outer;
    Ref<CountingView> inner;
};

TEST_F(AppearanceTest, IsThatOfTheProcessAtFirst)
{
    EXPECT_EQ(looks(), "lll");
    EXPECT_EQ(inner->appearance(), std::nullopt);
    EXPECT_EQ(inner->effectiveAppearance(), Appearance::light);
    setCurrentAppearance(Appearance::dark);
    window->display();
    EXPECT_EQ(looks(), "ddd");
    EXPECT_EQ(inner->effectiveAppearance(), Appearance::dark);
}

TEST_F(AppearanceTest, OfAWindowHoldsForItsViews)
{
    window->setAppearance(Appearance::dark);
    EXPECT_EQ(looks(), "ddd");
    EXPECT_EQ(inner->effectiveAppearance(), Appearance::dark);
    EXPECT_EQ(currentAppearance(), Appearance::light);
    window->setAppearance(std::nullopt);
    EXPECT_EQ(looks(), "lll");
}

TEST_F(AppearanceTest, OfAViewHoldsForItsSubviews)
{
    outer->setAppearance(Appearance::dark);
    EXPECT_EQ(looks(), "ddl");
    inner->setAppearance(Appearance::light);
    EXPECT_EQ(looks(), "ldl");
    EXPECT_EQ(inner->effectiveAppearance(), Appearance::light);
    outer->setAppearance(std::nullopt);
    inner->setAppearance(Appearance::dark);
    EXPECT_EQ(looks(), "dll");
}

TEST_F(AppearanceTest, MarksTheViewOnceAndOnlyWhenItChanges)
{
    inner->setAppearance(Appearance::dark);
    EXPECT_TRUE(inner->needsDisplay());
    pump();
    inner->setAppearance(Appearance::dark);
    EXPECT_FALSE(inner->needsDisplay());
}

TEST_F(AppearanceTest, HoldsWhereAViewIsDrawnOutsideTheWindowsDrawing)
{
    window->setAppearance(Appearance::dark);
    pump();
    auto const rep = inner->bitmapImageRepForCachingDisplayInRect(inner->bounds(), 1);
    EXPECT_LT(Pixels(rep).colorAt(5, 10).green, 0.5F);
    outer->setAppearance(Appearance::light);
    pump();
    {
        FocusLock const focus(*outer);
        EXPECT_EQ(currentAppearance(), Appearance::light);
        NSColor::textBackgroundColor()->set();
        NSRectFill(inner->frame());
    }
    window->flushWindow();
    EXPECT_EQ(looks(), "lld");
}

TEST_F(AppearanceTest, OfAWindowIsNotThatOfOneThatIsDrawnMeanwhile)
{
    auto const other = showWindow({ 100, 0, 40, 20 });
    pump();
    window->setAppearance(Appearance::dark);
    inner->whenDrawn = [&](Rect) { other->display(); };
    pump();
    EXPECT_GT(Pixels(other->snapshot()).colorAt(5, 5).green, 0.5F);
}

}
}
