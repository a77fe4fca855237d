#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/SystemVersion.h>
#include <tests/support/TestFolder.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/windows/PLIXWindow.h>
#include <plix/windows/background_plan.h>
#include <plix/windows/classes.h>
#include <plix/windows/window_background.h>

#include <cstring>

namespace plix {
namespace {

constexpr float titleBar = 22;

/// Opaque, 10 wide; each row tells its distance from the image's lower edge.
Ref<NSImage> imageOfRows(int height)
{
    constexpr int width = 10;
    auto rep = make<NSBitmapImageRep>(width, height);
    auto const pixels = rep->mutablePixels();
    for (int row = 0; row < height; ++row) {
        auto const fromBelow = static_cast<std::uint32_t>(height - 1 - row);
        std::uint32_t const pixel = 0xFF000000U | fromBelow << 8U;
        for (int x = 0; x < width; ++x)
            std::memcpy(pixels.pixels + static_cast<std::ptrdiff_t>(row) * pixels.stride + 4L * x, &pixel, 4);
    }
    auto image = make<NSImage>();
    image->addRepresentation(rep);
    return image;
}

class PLIXWindowTest : public HeadlessTest {
protected:
    PLIXWindowTest() { PLIXWindow_BackgroundImage = imageOfRows(400); }
    ~PLIXWindowTest() override { PLIXWindow_BackgroundImage = nullptr; }

    static Ref<PLIXWindow> windowOfHeight(float frameHeight, unsigned style = usualStyle)
    {
        float const contentHeight = frameHeight - (style & NSTitledWindowMask ? titleBar : 0);
        return make<PLIXWindow>(Rect { 100, 100, 200, contentHeight }, style, NSBackingStoreBuffered, false);
    }
    static NSImage* patternOf(NSWindow const& window)
    {
        return window.backgroundColor() ? window.backgroundColor()->patternImage() : nullptr;
    }
    static Pixels pixelsOf(NSWindow const& window) { return patternOf(window)->bitmapAtScale(1); }
    /// The row of the background image that is at a height of the pattern, -1 for none.
    static int rowAt(NSWindow const& window, int y)
    {
        auto const pixels = pixelsOf(window);
        auto const pixel = pixels.at(0, pixels.height() - 1 - y);
        return pixel >> 24U ? static_cast<int>(pixel >> 8U & 0xFFFFU) : -1;
    }
};

// Background.

TEST_F(PLIXWindowTest, TakesThePictureThatTheHostAssigned)
{
    EXPECT_EQ(PLIXWindow::backgroundImage(), PLIXWindow_BackgroundImage.ref());
    PLIXWindow_BackgroundImage = nullptr;
    auto const named = PLIXWindow::backgroundImage();
    EXPECT_EQ(named, NSImage::imageNamed("windowbackground"));
    EXPECT_EQ(PLIXWindow_BackgroundImage.ref(), named);
}

TEST_F(PLIXWindowTest, ComposesThePatternForItsFrame)
{
    struct Row {
        float height;
        int y;
        int expected;
    };
    for (auto const& row : {
             Row { 150, 0, 250 },
             Row { 150, 149, 399 },
             Row { 200, 0, 200 },
             Row { 200, 199, 399 },
             Row { 300, 299, 399 },
             Row { 300, 100, 200 },
             Row { 300, 99, 201 },
             Row { 300, 0, 200 },
             Row { 400, 399, 399 },
             Row { 400, 200, 200 },
             Row { 400, 199, 199 },
             Row { 400, 0, 0 },
             Row { 450, 449, 399 },
             Row { 450, 250, 200 },
             Row { 450, 249, 201 },
             Row { 450, 200, 201 }, // two rows over 250
             Row { 450, 199, 199 },
             Row { 450, 0, 0 },
         }) {
        auto const window = windowOfHeight(row.height);
        EXPECT_EQ(patternOf(*window)->size(), (Size { 10, row.height }));
        EXPECT_EQ(rowAt(*window, row.y), row.expected) << row.height << " " << row.y;
    }
}

TEST_F(PLIXWindowTest, IsLightWhileItsBackgroundIsAPicture)
{
    setCurrentAppearance(Appearance::dark);
    auto const window = windowOfHeight(300);
    EXPECT_EQ(window->effectiveAppearance(), Appearance::light);
    EXPECT_EQ(window->contentView()->effectiveAppearance(), Appearance::light);
    window->setAppearance(Appearance::dark);
    EXPECT_EQ(window->effectiveAppearance(), Appearance::dark);
    window->setAppearance(std::nullopt);
    window->setBackgroundMode(PLIXBackgroundNone);
    EXPECT_EQ(window->effectiveAppearance(), Appearance::dark);
    {
        SystemVersion const later(0x1050);
        EXPECT_EQ(windowOfHeight(300)->effectiveAppearance(), Appearance::dark);
    }
    setCurrentAppearance(Appearance::light);
}

TEST_F(PLIXWindowTest, StretchesTheUpperHalfInModeTwo)
{
    auto const window = windowOfHeight(300);
    EXPECT_EQ(window->backgroundMode(), 1);
    window->setBackgroundMode(2);
    EXPECT_EQ(patternOf(*window)->size(), (Size { 10, 300 }));
    EXPECT_EQ(rowAt(*window, 299), 399);
    EXPECT_NEAR(rowAt(*window, 150), 300, 1);
    EXPECT_EQ(rowAt(*window, 0), 200);
}

TEST_F(PLIXWindowTest, HasNoColourInModeZeroAndAClearPatternInUnknownOnes)
{
    auto const window = windowOfHeight(300);
    window->setBackgroundMode(0);
    EXPECT_EQ(window->backgroundColor(), nullptr);
    for (int const mode : { 3, -1, 1000 }) {
        window->setBackgroundMode(mode);
        EXPECT_EQ(patternOf(*window)->size(), (Size { 10, 300 }));
        EXPECT_EQ(rowAt(*window, 150), -1);
        EXPECT_EQ(window->backgroundMode(), mode);
    }
}

TEST_F(PLIXWindowTest, LeavesThePlatformsBackgroundOnLaterSystems)
{
    {
        SystemVersion const leopard(0x1050);
        auto const window = windowOfHeight(300);
        auto const plain = make<PLIXWindow>();
        plain->updateBackgroundColor();
        window->setBackgroundMode(2);
        window->setFrame({ 0, 0, 300, 300 }, true);
        window->updateBackgroundColorForSize2({ 100, 100 });
        EXPECT_EQ(window->backgroundColor(), nullptr);
        EXPECT_EQ(plain->backgroundColor(), nullptr);
        auto const red = NSColor::redColor();
        window->setBackgroundColor(red);
        window->setBackgroundMode(0);
        EXPECT_EQ(window->backgroundColor(), red.get());
    }
    SystemVersion const tiger(0x104F);
    EXPECT_NE(patternOf(*windowOfHeight(300)), nullptr);
}

TEST_F(PLIXWindowTest, StretchesTheNamedPictureWholeWhenMadeWithoutFrame)
{
    auto const window = make<PLIXWindow>();
    EXPECT_EQ(patternOf(*window)->size(), window->frame().size());
    EXPECT_EQ(window->backgroundMode(), 1);
    window->NSWindow::setFrame({ 0, 0, 50, 200 }, false);
    window->setBackgroundMode(0);
    window->updateBackgroundColor(); // whatever the mode
    auto const named = NSImage::imageNamed("windowbackground");
    EXPECT_EQ(patternOf(*window)->size(), (Size { 50, 200 }));
    auto const whole = Pixels(named->bitmapAtScale(1));
    EXPECT_TRUE(pixelNear(pixelsOf(*window), 25, 199, whole.colorAt(0, whole.height() - 1)));
    EXPECT_TRUE(pixelNear(pixelsOf(*window), 25, 100, whole.colorAt(0, whole.height() / 2)));
}

TEST_F(PLIXWindowTest, StretchesTheNamedPictureOverAWidth)
{
    auto const window = windowOfHeight(300);
    window->updateBackgroundColorForSize2({ 120, 70 });
    auto const named = NSImage::imageNamed("windowbackground");
    EXPECT_EQ(patternOf(*window)->size(), (Size { 120, named->size().height }));
    EXPECT_TRUE(pixelNear(pixelsOf(*window), 60, 10, Pixels(named->bitmapAtScale(1)).colorAt(0, 10)));
}

TEST_F(PLIXWindowTest, EachPatternIsAnObjectOfItsOwn)
{
    auto const one = windowOfHeight(300);
    auto const two = windowOfHeight(300);
    ASSERT_NE(patternOf(*one), patternOf(*two));
    {
        FocusLock const focus(Ref<NSImage>(patternOf(*one)));
        NSColor::redColor()->set();
        NSRectFill({ 0, 0, 10, 300 });
    }
    EXPECT_TRUE(pixelNear(pixelsOf(*one), 0, 0, colors::red));
    EXPECT_EQ(rowAt(*two, 299), 399);
    EXPECT_EQ(rowAt(*windowOfHeight(300), 299), 399);
}

TEST_F(PLIXWindowTest, FollowsAPictureThatIsDrawnInto)
{
    auto const before = windowOfHeight(300);
    {
        FocusLock const focus(PLIXWindow_BackgroundImage.ref());
        NSColor::redColor()->set();
        NSRectFill({ 0, 0, 10, 400 });
    }
    EXPECT_TRUE(areaNear(pixelsOf(*windowOfHeight(300)), { 0, 0, 10, 300 }, colors::red));
    EXPECT_EQ(rowAt(*before, 299), 399);
}

TEST_F(PLIXWindowTest, LeavesTheRepresentationsOfThePictureAlone)
{
    auto const count = PLIXWindow_BackgroundImage->representations().size();
    auto const stamp = PLIXWindow_BackgroundImage->contentStamp();
    auto const window = windowOfHeight(450);
    EXPECT_EQ(PLIXWindow_BackgroundImage->representations().size(), count);
    EXPECT_EQ(PLIXWindow_BackgroundImage->contentStamp(), stamp);
}

TEST_F(PLIXWindowTest, WithoutPictureThePatternIsEmpty)
{
    PLIXWindow_BackgroundImage = make<NSImage>(Size {});
    auto const window = windowOfHeight(300);
    EXPECT_EQ(patternOf(*window)->size().width, 0);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(PLIXWindowTest, WithoutAnyImageThePatternIsEmptyToo)
{
    EXPECT_EQ(backgroundPattern(nullptr, PLIXBackgroundHalves, 300)->size(), (Size { 0, 300 }));
    EXPECT_EQ(stretchedBackground(nullptr, { 200, 300 })->size(), (Size { 200, 300 }));
    EXPECT_EQ(Pixels(stretchedBackground(nullptr, { 200, 300 })->bitmapAtScale(1)).at(100, 150), 0U);
}

TEST_F(PLIXWindowTest, NoModeHasThePatternOfAWholeImage)
{
    auto const image = imageOfRows(400);
    for (int const mode : { -1, 0, 3 }) {
        auto const whole = stretchedBackground(image.get(), { 10, 300 });
        EXPECT_NE(Pixels(whole->bitmapAtScale(1)).at(0, 150), 0U) << mode;
        EXPECT_EQ(Pixels(backgroundPattern(image.get(), mode, 300)->bitmapAtScale(1)).at(0, 150), 0U) << mode;
    }
}

TEST_F(PLIXWindowTest, WholeImagesDoNotPushPatternsOut)
{
    auto const image = imageOfRows(400);
    auto const pattern = backgroundPattern(image.get(), PLIXBackgroundHalves, 300);
    for (int i = 0; i < 8; ++i)
        stretchedBackground(image.get(), { 1000 + static_cast<float>(i), 1000 });
    auto const again = backgroundPattern(image.get(), PLIXBackgroundHalves, 300);
    EXPECT_NE(again, pattern);
    EXPECT_EQ(again->contentStamp(), pattern->contentStamp());
}

TEST_F(PLIXWindowTest, AnotherModeIsDrawnAtOnce)
{
    auto const window = windowOfHeight(300);
    auto const view = make<CountingView>(Rect { 0, 0, 50, 50 });
    window->contentView()->addSubview(*view);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    auto const before = view->drawCount;
    window->setBackgroundMode(PLIXBackgroundUpperHalf);
    EXPECT_EQ(view->drawCount, before + 1);
    window->setBackgroundMode(PLIXBackgroundUpperHalf);
    EXPECT_EQ(view->drawCount, before + 2) << "an equal mode is drawn as well";
}

TEST_F(PLIXWindowTest, IsMadeOnAScreenAsWell)
{
    Rect const content { 100, 100, 200, 278 };
    auto const window
        = make<PLIXWindow>(content, usualStyle, NSBackingStoreBuffered, false, const_cast<NSScreen*>(&NSScreen::mainScreen()));
    EXPECT_EQ(window->frame().size(), (Size { 200, 300 }));
    EXPECT_EQ(window->backgroundMode(), PLIXBackgroundHalves);
    EXPECT_EQ(patternOf(*window)->size(), (Size { 10, 300 }));
    EXPECT_FALSE(window->worksWhenModal());
    ASSERT_TRUE(window->resizeIndicatorView());
    window->display();
    EXPECT_EQ(window->resizeIndicatorView()->superview(), window->contentView());
}

TEST_F(PLIXWindowTest, TilesThePatternFromSideToSide)
{
    auto const window = windowOfHeight(300);
    window->setShowsResizeIndicator(false);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    Pixels const shown = window->snapshot();
    ASSERT_EQ(shown.height(), 278);
    for (int const x : { 0, 9, 10, 105, 199 }) {
        EXPECT_EQ(shown.at(x, 277), 0xFF000000U | 200U << 8U);
        EXPECT_EQ(shown.at(x, 0), 0xFF000000U | 377U << 8U);
    }
}

// Frames.

/// Notes what its background was when the platform was told a new frame.
class OrderedWindow : public PLIXWindow {
    PLIX_CLASS(OrderedWindow, PLIXWindow);

public:
    using PLIXWindow::init;
    void setBackgroundColor(Ref<NSColor> const& color) override
    {
        heights.push_back(frame().height);
        PLIXWindow::setBackgroundColor(color);
    }
    void display() override
    {
        ++displays;
        PLIXWindow::display();
    }
    /// The frame's, at each change of the background.
    std::vector<float> heights;
    int displays { 0 };
};

PLIX_DESCRIBE(OrderedWindow)
{
}

TEST_F(PLIXWindowTest, MakesTheBackgroundBeforeThePlainSetterAndAfterTheAnimatedOne)
{
    auto const window = make<OrderedWindow>(Rect { 0, 0, 200, 278 }, usualStyle, NSBackingStoreBuffered, false);
    window->heights.clear();
    window->setFrame({ 0, 0, 200, 150 }, false);
    EXPECT_EQ(window->heights, std::vector { 300.0F });
    EXPECT_EQ(window->displays, 1);
    EXPECT_EQ(patternOf(*window)->size().height, 150);
    window->heights.clear();
    window->displays = 0;
    window->setFrame({ 0, 0, 200, 250 }, false, false);
    EXPECT_EQ(window->heights, std::vector { 250.0F });
    EXPECT_EQ(window->displays, 1);
    EXPECT_EQ(patternOf(*window)->size().height, 250);
}

TEST_F(PLIXWindowTest, AnAnimatedFrameArrivesWithItsBackground)
{
    auto const window = make<OrderedWindow>(Rect { 100, 100, 200, 278 }, usualStyle, NSBackingStoreBuffered, false);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    window->heights.clear();
    window->displays = 0;
    window->setFrame({ 50, 60, 260, 420 }, true, true);
    EXPECT_EQ(window->frame(), (Rect { 50, 60, 260, 420 }));
    EXPECT_EQ(window->heights, std::vector { 420.0F });
    EXPECT_EQ(window->displays, 1);
    EXPECT_EQ(patternOf(*window)->size().height, 420);
}

TEST_F(PLIXWindowTest, MovingMakesNoBackground)
{
    auto const window = make<OrderedWindow>(Rect { 100, 100, 200, 278 }, usualStyle, NSBackingStoreBuffered, false);
    window->heights.clear();
    window->setFrameOrigin({ 3, 4 });
    EXPECT_EQ(window->frame(), (Rect { 3, 4, 200, 300 }));
    window->setFrameTopLeftPoint({ 5, 400 });
    EXPECT_EQ(window->frame(), (Rect { 5, 100, 200, 300 }));
    window->center();
    EXPECT_NE(window->frame().x, 5);
    EXPECT_TRUE(window->heights.empty());
    EXPECT_EQ(window->displays, 0);
}

TEST_F(PLIXWindowTest, AsItsOwnDelegateFollowsAResizeByHand)
{
    auto const window = windowOfHeight(300);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    hostWindow(*window)->resizeByPerson({ 100, 100, 220, 300 });
    EXPECT_EQ(window->frame().height, 322);
    EXPECT_EQ(patternOf(*window)->size().height, 300);

    window->setDelegate(window);
    hostWindow(*window)->resizeByPerson({ 100, 100, 230, 310 });
    EXPECT_EQ(patternOf(*window)->size().height, 332);
    // The frame was 322 high when that background was made, and is 332 now.
    hostWindow(*window)->resizeByPerson({ 100, 100, 240, 320 });
    EXPECT_EQ(patternOf(*window)->size().height, 342);
    EXPECT_EQ(window->frame(), (Rect { 100, 100, 240, 342 }));
}

TEST_F(PLIXWindowTest, AProposedSizeIsNeverChangedAndCountsOnlyAtAnotherHeight)
{
    auto const window = windowOfHeight(300);
    EXPECT_EQ(window->windowWillResize(*window, { 70, 80 }), (Size { 70, 80 }));
    EXPECT_EQ(patternOf(*window)->size().height, 80);
    // The frame is as high as at that call.
    EXPECT_EQ(window->windowWillResize(*window, { 70, 90 }), (Size { 70, 90 }));
    EXPECT_EQ(patternOf(*window)->size().height, 80);
}

TEST_F(PLIXWindowTest, TheOtherTwoFollowTheWidth)
{
    auto const window = windowOfHeight(300);
    window->windowDidResize2(NSNotification { NSWindowDidResizeNotification, window, {} });
    EXPECT_EQ(patternOf(*window)->size(), (Size { 200, 300 }));
    window->setBackgroundMode(1);
    window->orderFront2(nullptr); // the width was remembered
    EXPECT_EQ(patternOf(*window)->size(), (Size { 10, 300 }));
    window->setFrame({ 0, 0, 210, 300 }, false);
    window->orderFront2(nullptr);
    EXPECT_EQ(patternOf(*window)->size(), (Size { 210, 300 }));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(PLIXWindowTest, FramesTallerThanTheScreenHangBelowIt)
{
    display().setScreens({ { { 0, 0, 1000, 830 }, { 0, 0, 1000, 800 }, 1 } });
    auto const window = windowOfHeight(300);
    EXPECT_EQ(window->constrainFrameRect({ 20, 50, 400, 900 }, nullptr), (Rect { 20, -100, 400, 900 }));
    EXPECT_EQ(window->constrainFrameRect({ 20, 50, 400, 900 }, &NSScreen::mainScreen()), (Rect { 20, -100, 400, 900 }));
    EXPECT_EQ(window->constrainFrameRect({ 20, -500, 400, 801 }, nullptr), (Rect { 20, -1, 400, 801 }));
    // As high as the screen: the platform's business.
    EXPECT_EQ(window->constrainFrameRect({ 20, 50, 400, 800 }, nullptr), (Rect { 20, 0, 400, 800 }));
    EXPECT_EQ(window->constrainFrameRect({ 20, -50, 400, 100 }, nullptr), (Rect { 20, -50, 400, 100 }));
}

TEST_F(PLIXWindowTest, TheVisiblePartsUpperEdgeCountsWhereItBeginsHigherUp)
{
    display().setScreens({ { { 0, 0, 1000, 900 }, { 40, 70, 960, 800 }, 1 } });
    auto const window = windowOfHeight(300);
    EXPECT_EQ(window->constrainFrameRect({ 20, 50, 400, 900 }, nullptr), (Rect { 20, -30, 400, 900 }));
    EXPECT_EQ(window->constrainFrameRect({ 20, -400, 400, 801 }, nullptr), (Rect { 20, 69, 400, 801 }));
    EXPECT_EQ(window->constrainFrameRect({ 20, 90, 400, 800 }, nullptr), (Rect { 20, 70, 400, 800 }));
}

TEST_F(PLIXWindowTest, ComesOnScreenWithItsTopThere)
{
    display().setScreens({ { { 0, 0, 1000, 830 }, { 0, 0, 1000, 800 }, 1 } });
    auto const window = windowOfHeight(900);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    EXPECT_EQ(window->frame(), (Rect { 100, -100, 200, 900 }));
}

// Indicator.

TEST_F(PLIXWindowTest, ShowsItsIndicatorInTheCornerAboveAllOthers)
{
    auto const window = windowOfHeight(300);
    auto* const indicator = window->resizeIndicatorView();
    EXPECT_EQ(indicator->superview(), nullptr);
    EXPECT_EQ(indicator->frame(), (Rect { 200 - 17, 6, 12, 12 }));
    EXPECT_EQ(indicator->autoresizingMask(), 33U);
    EXPECT_NE(indicator->image(), nullptr);
    EXPECT_FALSE(window->showsResizeIndicator());
    auto const later = make<NSView>(Rect { 0, 0, 200, 278 });
    window->contentView()->addSubview(*indicator);
    window->contentView()->addSubview(*later);
    window->display();
    EXPECT_EQ(window->contentView()->subviews().back(), indicator);
    window->setFrame({ 0, 0, 400, 322 }, false);
    EXPECT_EQ(indicator->frame(), (Rect { 400 - 17, 6, 12, 12 }));
}

TEST_F(PLIXWindowTest, AnIndicatorMadeAnewIsInNoViewAndTakesTheOthersPlace)
{
    auto const window = windowOfHeight(300);
    Weak<NSImageView> const first(window->resizeIndicatorView());
    auto const made = window->initResizeIndicatorView();
    EXPECT_FALSE(first);
    EXPECT_EQ(window->resizeIndicatorView(), made.get());
    EXPECT_EQ(made->superview(), nullptr);
    EXPECT_EQ(made->frame(), (Rect { 200 - 17, 6, 12, 12 }));
}

TEST_F(PLIXWindowTest, IsShownWithTheFirstFrameOnScreen)
{
    auto const window = windowOfHeight(300);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    EXPECT_EQ(window->resizeIndicatorView()->superview(), window->contentView());
    auto const count = countPixels(window->snapshot(), { 183, 278 - 18, 12, 12 },
        [&](std::uint32_t pixel) { return (pixel & 0xFFU) != 0; }); // the background has no blue
    EXPECT_GT(count, 10);
}

TEST_F(PLIXWindowTest, PutsTheIndicatorIntoANewContentView)
{
    auto const window = windowOfHeight(300);
    window->display();
    auto const content = make<NSView>();
    window->setContentView(content);
    window->display();
    EXPECT_EQ(window->resizeIndicatorView()->superview(), content.get());
}

TEST_F(PLIXWindowTest, HidesItsIndicatorAtOnce)
{
    auto const window = windowOfHeight(300);
    window->display();
    window->setShowsResizeIndicator(false);
    EXPECT_EQ(window->resizeIndicatorView()->superview(), nullptr);
    window->display();
    EXPECT_EQ(window->resizeIndicatorView()->superview(), nullptr);
    window->setShowsResizeIndicator(true);
    EXPECT_EQ(window->resizeIndicatorView()->superview(), window->contentView());
    EXPECT_FALSE(window->showsResizeIndicator());
}

/// A window whose class has a bundle without pictures.
class BareWindow : public PLIXWindow {
    PLIX_CLASS(BareWindow, PLIXWindow);

public:
    using PLIXWindow::init;
};
PLIX_DESCRIBE(BareWindow)
{
    description.bundle("tests of windows without pictures");
}

TEST_F(PLIXWindowTest, WithoutItsPictureTheIndicatorHasNoSize)
{
    TestFolder const folder;
    NSBundle::registerBundle("tests of windows without pictures", *NSBundle::bundleWithPath(folder.path()));
    auto const window = make<BareWindow>(Rect { 100, 100, 200, 278 }, usualStyle, NSBackingStoreBuffered, false);
    ASSERT_TRUE(window->resizeIndicatorView());
    EXPECT_EQ(window->resizeIndicatorView()->image(), nullptr);
    EXPECT_EQ(window->resizeIndicatorView()->frame(), (Rect { 195, 6, 0, 0 }));
    window->makeKeyAndOrderFront(nullptr);
    pump();
    EXPECT_EQ(window->resizeIndicatorView()->frame(), (Rect { 195, 6, 0, 0 }));
    EXPECT_EQ(window->resizeIndicatorView()->superview(), window->contentView());
}

TEST_F(PLIXWindowTest, ShowsNoIndicatorThatDoesNothing)
{
    auto const window = windowOfHeight(300, NSTitledWindowMask);
    window->display();
    EXPECT_EQ(window->resizeIndicatorView()->superview(), nullptr);
    window->setShowsResizeIndicator(true);
    EXPECT_EQ(window->resizeIndicatorView()->superview(), nullptr);
}

TEST_F(PLIXWindowTest, AnIndicatorThatIsThereAlreadyMarksNothing)
{
    auto const window = windowOfHeight(300);
    auto const view = make<CountingView>(Rect { 0, 0, 200, 278 });
    window->contentView()->addSubview(*view);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    auto const before = view->drawCount;
    window->display();
    pump();
    EXPECT_EQ(view->drawCount, before + 1);
}

// Events.

class ClickView : public NSView {
public:
    void mouseDown(NSEvent& event) override { events.emplace_back(event); }
    void mouseDragged(NSEvent& event) override { events.emplace_back(event); }
    void mouseUp(NSEvent& event) override { events.emplace_back(event); }
    void rightMouseDown(NSEvent& event) override { events.emplace_back(event); }
    std::vector<NSEventType> types() const
    {
        std::vector<NSEventType> types;
        for (auto const& event : events)
            types.push_back(event->type());
        return types;
    }
    std::vector<Ref<NSEvent>> events;
};

class PLIXWindowClickTest : public PLIXWindowTest {
protected:
    void SetUp() override
    {
        PLIXWindowTest::SetUp();
        window = windowOfHeight(300);
        view = make<ClickView>(Rect { 0, 0, 200, 278 });
        window->contentView()->addSubview(*view);
        window->makeKeyAndOrderFront(nullptr);
        pump();
    }
    Ref<PLIXWindow> window;
    Ref<ClickView> view;
};

TEST_F(PLIXWindowClickTest, AControlClickIsARightClick)
{
    auto const sent = NSEvent::mouseEventWithType(
        NSLeftMouseDown, { 30, 40 }, NSControlKeyMask | NSShiftKeyMask, 12.5, window->windowNumber(), nullptr, 77, 2, 0.5F);
    window->sendEvent(*sent);
    ASSERT_EQ(view->events.size(), 1U);
    auto const& event = *view->events[0];
    EXPECT_EQ(event.type(), NSRightMouseDown);
    EXPECT_EQ(event.locationInWindow(), (Point { 30, 40 }));
    EXPECT_EQ(event.modifierFlags(), unsigned { NSControlKeyMask | NSShiftKeyMask });
    EXPECT_EQ(event.timestamp(), 12.5);
    EXPECT_EQ(event.windowNumber(), window->windowNumber());
    EXPECT_EQ(event.eventNumber(), 77);
    EXPECT_EQ(event.clickCount(), 2);
    EXPECT_EQ(event.pressure(), 0.5F);
    EXPECT_EQ(event.buttonNumber(), 1);
}

TEST_F(PLIXWindowClickTest, WhatFollowsAControlClickStaysAsItIs)
{
    drag(*view, { 10, 10 }, { 50, 50 }, { .modifiers = NSControlKeyMask });
    // Nothing was pressed with the left button as far as the view knows.
    EXPECT_EQ(view->types(), std::vector { NSRightMouseDown });
}

TEST_F(PLIXWindowClickTest, OtherClicksStayWhatTheyAre)
{
    click(*view, { 10, 10 });
    click(*view, { 10, 10 }, { .modifiers = NSShiftKeyMask });
    click(*view, { 10, 10 }, { .button = 1 });
    EXPECT_EQ(view->types(), (std::vector { NSLeftMouseDown, NSLeftMouseUp, NSLeftMouseDown, NSLeftMouseUp, NSRightMouseDown }));
}

TEST_F(PLIXWindowClickTest, AControlClickOpensTheContextMenu)
{
    auto const plain = make<NSView>(Rect { 0, 0, 200, 278 });
    window->contentView()->addSubview(*plain);
    auto const menu = make<NSMenu>("");
    bool isChosen = false;
    menu->addItemWithTitle("Do", Selector(), "")->setActionFunction([&](NSObject*) { isChosen = true; });
    plain->setMenu(menu);
    person().click(onScreen(*plain, { 50, 50 }), { .modifiers = NSControlKeyMask });
    person().key(NSDownArrowFunctionKey);
    person().key(NSCarriageReturnCharacter);
    pump();
    EXPECT_TRUE(isChosen);
}

TEST_F(PLIXWindowClickTest, WorksDuringAModalSessionWhereItMay)
{
    EXPECT_FALSE(window->worksWhenModal());
    auto const modal = make<NSWindow>(Rect { 500, 100, 100, 100 }, usualStyle, NSBackingStoreBuffered, false);
    auto const runModal = [&] {
        person().click(onScreen(*view, { 10, 10 }));
        person().then([&] { app().stopModal(); });
        app().runModalForWindow(*modal);
        return std::exchange(view->events, {}).size();
    };
    EXPECT_EQ(runModal(), 0U);
    window->setWorksWhenModal(true);
    EXPECT_TRUE(window->worksWhenModal());
    EXPECT_EQ(runModal(), 2U);
}

// Made otherwise.

TEST_F(PLIXWindowTest, AHandleThatTheHostDidNotGiveMakesNone)
{
    EXPECT_EQ(make<PLIXWindow>(static_cast<HostWindow*>(nullptr)), nullptr);
    int other = 0;
    EXPECT_EQ(make<PLIXWindow>(reinterpret_cast<HostWindow*>(&other)), nullptr);
    auto const plain = showWindow();
    auto* const handle = plain->hostWindow();
    plain->close();
    EXPECT_EQ(make<PLIXWindow>(handle), nullptr);
}

TEST_F(PLIXWindowTest, TakesAWindowOfTheHostsOver)
{
    auto const plain = showWindow();
    plain->setTitle("Taken");
    auto* const handle = plain->hostWindow();
    auto const window = make<PLIXWindow>(handle);
    ASSERT_TRUE(window);
    EXPECT_EQ(window->hostWindow(), handle);
    EXPECT_EQ(plain->hostWindow(), nullptr);
    EXPECT_EQ(window->frame(), plain->frame());
    EXPECT_EQ(window->title(), "Taken");
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_FALSE(plain->isVisible());
    EXPECT_EQ(patternOf(*window)->size().height, window->frame().height);
    pump();
    EXPECT_EQ(Pixels(window->snapshot()).at(0, 299), 0xFF000000U | 200U << 8U);
    auto const view = make<ClickView>(Rect { 0, 0, 400, 300 });
    window->contentView()->addSubview(*view);
    click(*view, { 10, 10 });
    EXPECT_EQ(view->events.size(), 2U);
    plain->makeKeyAndOrderFront(nullptr);
    EXPECT_NE(plain->hostWindow(), handle);
    EXPECT_NE(plain->hostWindow(), nullptr);
}

TEST_F(PLIXWindowTest, ComesBackFromAnArchive)
{
    registerWindowClasses();
    auto const window = windowOfHeight(300);
    window->setTitle("Kept");
    window->setBackgroundMode(2);
    window->contentView()->addSubview(*make<NSView>(Rect { 1, 2, 3, 4 }));
    window->display();
    auto const data = NSArchiver::archivedDataWithRootObject(window);
    auto const value = NSUnarchiver::unarchiveObjectWithData(*data);
    auto const read = value ? value->as<PLIXWindow>() : nullptr;
    ASSERT_TRUE(read);
    EXPECT_EQ(read->frame(), window->frame());
    EXPECT_EQ(read->styleMask(), usualStyle);
    EXPECT_EQ(read->title(), "Kept");
    EXPECT_EQ(read->backgroundMode(), 1);
    EXPECT_EQ(rowAt(*read, 299), 399);
    ASSERT_EQ(read->contentView()->subviews().size(), 1U); // without the indicator
    EXPECT_EQ(read->contentView()->subviews()[0]->frame(), (Rect { 1, 2, 3, 4 }));
    EXPECT_EQ(window->contentView()->subviews().back().get(), window->resizeIndicatorView());
    read->display();
    EXPECT_EQ(read->contentView()->subviews().size(), 2U);
}

TEST_F(PLIXWindowTest, IsFoundByItsName)
{
    registerWindowClasses();
    auto const* found = NSClassFromString("PLIXWindow");
    ASSERT_NE(found, nullptr);
    auto const made = as<PLIXWindow>(found->makeObject());
    ASSERT_TRUE(made);
    EXPECT_EQ(made->backgroundMode(), 1);
}

class PLIXWindowRetinaTest : public RetinaTest { };

TEST_F(PLIXWindowRetinaTest, ComposesAtTheScreensScale)
{
    auto const window = make<PLIXWindow>(Rect { 100, 100, 200, 300 }, usualStyle, NSBackingStoreBuffered, false);
    auto const* const rep = window->backgroundColor()->patternImage()->bestRepresentationForScale(2);
    EXPECT_EQ(rep->pixelsHigh(), 644);
    PLIXWindow_BackgroundImage = nullptr;
}

}
}
