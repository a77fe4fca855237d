#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSImageCell.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/NSImage.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <vector>

namespace plix {
namespace {

class ImageTarget : public NSObject {
    PLIX_CLASS(ImageTarget, NSObject);

public:
    void act(NSObject*) { ++calls; }
    int calls { 0 };
};

PLIX_DESCRIBE(ImageTarget)
{
    description.action("act:", &ImageTarget::act);
}

class BoxesTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 100, 300, 200 });
    }
    template <typename View> Ref<View> add(Rect frame)
    {
        auto view = make<View>(frame);
        window->contentView()->addSubview(*view);
        return view;
    }
    Pixels drawn()
    {
        pump();
        return window->snapshot();
    }

    Ref<NSWindow> window;
};

// MARK: image views

TEST_F(BoxesTest, AnImageViewShowsItsImage)
{
    auto const view = add<NSImageView>({ 0, 100, 100, 100 });
    view->setImage(imageOfColor({ 20, 20 }, colors::red));
    auto const pixels = drawn();
    EXPECT_EQ(pixels.colorAt(50, 50), colors::red);
    EXPECT_NE(pixels.colorAt(35, 50), colors::red);
    view->setImageScaling(NSScaleToFit);
    EXPECT_EQ(drawn().colorAt(3, 3), colors::red);
    view->setImage(nullptr);
    EXPECT_NE(drawn().colorAt(50, 50), colors::red);
}

TEST_F(BoxesTest, AnImageViewsValueIsItsImage)
{
    auto const view = add<NSImageView>({ 0, 0, 100, 100 });
    auto const image = imageOfColor({ 4, 4 }, colors::blue);
    view->setObjectValue(ObjectValue(image));
    EXPECT_EQ(view->image(), image.get());
    view->setObjectValue("no image");
    EXPECT_EQ(view->image(), nullptr);
}

TEST_F(BoxesTest, AFrameTakesItsRoom)
{
    auto const cell = make<NSImageCell>(imageOfColor({ 20, 10 }, colors::red));
    EXPECT_EQ(cell->cellSize(), (Size { 20, 10 }));
    cell->setImageFrameStyle(NSImageFramePhoto);
    EXPECT_EQ(cell->cellSize(), (Size { 26, 16 }));
    EXPECT_EQ(cell->drawingRectForBounds({ 0, 0, 100, 50 }), (Rect { 3, 3, 94, 44 }));
}

TEST_F(BoxesTest, AnEditableImageViewCutsAndPastes)
{
    auto const view = add<NSImageView>({ 0, 0, 100, 100 });
    auto const target = make<ImageTarget>();
    view->setTarget(Ref<NSObject>(target));
    view->setAction(Selector("act:"));
    view->setEditable(true);
    view->setImage(imageOfColor({ 20, 20 }, colors::red));
    clickCenter(*view);
    EXPECT_EQ(window->firstResponder(), view.get());
    key(U'x', NSControlKeyMask);
    EXPECT_EQ(view->image(), nullptr);
    EXPECT_EQ(target->calls, 1);
    key(U'v', NSControlKeyMask);
    ASSERT_NE(view->image(), nullptr);
    EXPECT_EQ(view->image()->size(), (Size { 20, 20 }));
    EXPECT_EQ(target->calls, 2);
    key(NSDeleteCharacter);
    EXPECT_EQ(view->image(), nullptr);
    EXPECT_EQ(target->calls, 3);
}

TEST_F(BoxesTest, AnImageViewCallsTheFunctionThatIsItsAction)
{
    auto const view = add<NSImageView>({ 0, 0, 100, 100 });
    view->setEditable(true);
    view->setImage(imageOfColor({ 20, 20 }, colors::red));
    std::vector<NSObject*> senders;
    view->setActionFunction([&](NSObject* sender) { senders.push_back(sender); });
    view->cut(nullptr);
    view->paste(nullptr);
    EXPECT_EQ(senders, (std::vector<NSObject*> { view.get(), view.get() }));
}

TEST_F(BoxesTest, AnImageViewThatIsNotEditableLeavesItsImageAlone)
{
    auto const view = add<NSImageView>({ 0, 0, 100, 100 });
    view->setImage(imageOfColor({ 20, 20 }, colors::red));
    clickCenter(*view);
    EXPECT_NE(window->firstResponder(), view.get());
    view->deleteImage(nullptr);
    view->paste(nullptr);
    EXPECT_EQ(view->image()->size(), (Size { 20, 20 }));
}

TEST_F(BoxesTest, ABrokenImageIsNotPasted)
{
    auto& board = NSPasteboard::generalPasteboard();
    board.declareTypes({ NSTIFFPboardType });
    board.setData(make<NSData>(std::vector<std::uint8_t>(17, 0x4e)), NSTIFFPboardType);
    auto const view = add<NSImageView>({ 0, 0, 100, 100 });
    view->setEditable(true);
    view->paste(nullptr);
    EXPECT_EQ(view->image(), nullptr);
}

// MARK: boxes

TEST_F(BoxesTest, ABoxKeepsWhatIsAddedInItsContent)
{
    auto const box = add<NSBox>({ 10, 10, 200, 150 });
    auto const inside = make<NSView>(Rect { 5, 5, 20, 20 });
    box->addSubview(*inside);
    EXPECT_EQ(inside->superview(), box->contentView());
    EXPECT_TRUE(NSContainsRect(box->borderRect(), box->contentView()->frame()));
    EXPECT_GT(box->titleRect().width, 10);
}

TEST_F(BoxesTest, TheContentFollowsTheBox)
{
    auto const box = add<NSBox>({ 10, 10, 200, 150 });
    auto const before = box->contentView()->frame();
    box->setFrameSize({ 250, 170 });
    EXPECT_EQ(box->contentView()->frame(), (Rect { before.x, before.y, before.width + 50, before.height + 20 }));
    box->setTitlePosition(NSNoTitle);
    EXPECT_GT(box->contentView()->frame().height, before.height + 20);
    box->setContentViewMargins({ 0, 0 });
    box->setBorderType(NSNoBorder);
    EXPECT_EQ(box->contentView()->frame(), (Rect { 0, 0, 250, 170 }));
}

TEST_F(BoxesTest, ABoxFitsAroundWhatIsInside)
{
    auto const box = add<NSBox>({ 10, 10, 200, 150 });
    auto const first = make<NSView>(Rect { 30, 40, 50, 20 });
    auto const second = make<NSView>(Rect { 60, 70, 40, 30 });
    box->addSubview(*first);
    box->addSubview(*second);
    box->sizeToFit();
    EXPECT_EQ(box->contentView()->frame().size(), (Size { 70, 60 }));
    EXPECT_EQ(first->frame(), (Rect { 0, 0, 50, 20 }));
    EXPECT_EQ(second->frame(), (Rect { 30, 30, 40, 30 }));
    box->setFrameFromContentFrame({ 40, 40, 100, 80 });
    auto const content = box->contentView()->frame();
    EXPECT_EQ(box->frame().x + content.x, 40);
    EXPECT_EQ(box->frame().y + content.y, 40);
    EXPECT_EQ(content.size(), (Size { 100, 80 }));
}

TEST_F(BoxesTest, ASeparatorIsALineAlongItsLongerSide)
{
    auto const across = add<NSBox>({ 20, 100, 100, 5 });
    across->setBoxType(NSBoxSeparator);
    auto const down = add<NSBox>({ 200, 20, 5, 100 });
    down->setBoxType(NSBoxSeparator);
    auto const pixels = drawn();
    auto const ground = pixels.at(60, 150);
    EXPECT_NE(pixels.at(60, 200 - 103), ground);
    EXPECT_EQ(pixels.at(60, 200 - 101), ground);
    EXPECT_NE(pixels.at(202, 150), ground);
    EXPECT_EQ(pixels.at(204, 150), ground);
}

TEST_F(BoxesTest, ABoxCanBeEmptied)
{
    auto const box = add<NSBox>({ 10, 10, 200, 150 });
    box->setContentView(nullptr);
    EXPECT_TRUE(box->subviews().empty());
    box->sizeToFit();
    EXPECT_EQ(box->frame(), (Rect { 10, 10, 200, 150 }));
    auto const view = make<NSView>(Rect {});
    box->addSubview(*view);
    EXPECT_EQ(box->contentView(), view.get());
}

// MARK: progress

class CountedIndicator : public NSProgressIndicator {
public:
    using NSProgressIndicator::init;
    void drawRect(Rect dirty) override
    {
        ++draws;
        NSProgressIndicator::drawRect(dirty);
    }
    int draws { 0 };
};

TEST_F(BoxesTest, ABarShowsHowMuchIsDone)
{
    auto const bar = add<CountedIndicator>({ 10, 100, 102, 14 });
    bar->setIndeterminate(false);
    bar->setDoubleValue(50);
    auto const pixels = drawn();
    auto const done = pixels.at(30, 200 - 107);
    EXPECT_EQ(pixels.at(50, 200 - 107), done);
    EXPECT_NE(pixels.at(80, 200 - 107), done);
    bar->incrementBy(40);
    EXPECT_EQ(drawn().at(80, 200 - 107), done);
    bar->setDoubleValue(1e9);
    EXPECT_EQ(drawn().at(105, 200 - 107), done);
}

TEST_F(BoxesTest, ABarIsDrawnOnlyWhereItsPixelsChange)
{
    auto const bar = add<CountedIndicator>({ 10, 100, 102, 14 });
    bar->setIndeterminate(false);
    bar->setMaxValue(1e6);
    pump();
    int const before = bar->draws;
    for (int i = 0; i <= 1000; ++i) {
        bar->setDoubleValue(500000 + i);
        pump();
    }
    EXPECT_LE(bar->draws - before, 2);
    EXPECT_GE(bar->draws - before, 1);
}

TEST_F(BoxesTest, AnIndicatorMovesWhileItIsSeen)
{
    auto const wheel = add<CountedIndicator>({ 10, 10, 32, 32 });
    wheel->setStyle(NSProgressIndicatorSpinningStyle);
    pump();
    int drawn = wheel->draws;
    pass(1);
    EXPECT_EQ(wheel->draws, drawn);
    wheel->startAnimation(nullptr);
    drawn = wheel->draws;
    pass(1.04);
    EXPECT_NEAR(wheel->draws - drawn, 12, 2);
    wheel->stopAnimation(nullptr);
    pump();
    drawn = wheel->draws;
    pass(1);
    EXPECT_EQ(wheel->draws, drawn);
}

TEST_F(BoxesTest, AnIndicatorThatIsNotSeenDoesNothing)
{
    auto const wheel = add<CountedIndicator>({ 10, 10, 32, 32 });
    wheel->setStyle(NSProgressIndicatorSpinningStyle);
    wheel->startAnimation(nullptr);
    pass(0.5);
    auto const isAsleep = [&] {
        pump();
        pass(0.2);
        int const before = wheel->draws;
        long const waits = machine().headlessEvents().waitCount();
        pass(2);
        return wheel->draws == before && machine().headlessEvents().waitCount() - waits <= 3;
    };
    EXPECT_FALSE(isAsleep());
    wheel->setHidden(true);
    EXPECT_TRUE(isAsleep());
    wheel->setHidden(false);
    EXPECT_FALSE(isAsleep());
    window->orderOut(nullptr);
    EXPECT_TRUE(isAsleep());
    window->orderFront(nullptr);
    EXPECT_FALSE(isAsleep());
    wheel->setFrameOrigin({ 1000, 1000 });
    EXPECT_TRUE(isAsleep());
    wheel->setFrameOrigin({ 10, 10 });
    EXPECT_FALSE(isAsleep());
    wheel->removeFromSuperview();
    EXPECT_TRUE(isAsleep());
}

TEST_F(BoxesTest, AStoppedWheelMayBeInvisible)
{
    auto const wheel = add<NSProgressIndicator>({ 10, 10, 32, 32 });
    wheel->setStyle(NSProgressIndicatorSpinningStyle);
    auto const ground = drawn().at(100, 100);
    EXPECT_NE(drawn().at(26, 200 - 38), ground);
    wheel->setDisplayedWhenStopped(false);
    EXPECT_EQ(drawn().at(26, 200 - 38), ground);
    wheel->startAnimation(nullptr);
    EXPECT_NE(drawn().at(26, 200 - 38), ground);
    wheel->stopAnimation(nullptr);
}

TEST_F(BoxesTest, IndicatorsHaveASizeForEachControlSize)
{
    auto const bar = add<NSProgressIndicator>({ 10, 10, 80, 40 });
    bar->sizeToFit();
    EXPECT_EQ(bar->frame().size(), (Size { 80, 14 }));
    bar->setControlSize(NSSmallControlSize);
    bar->sizeToFit();
    EXPECT_EQ(bar->frame().size(), (Size { 80, 10 }));
    bar->setStyle(NSProgressIndicatorSpinningStyle);
    bar->sizeToFit();
    EXPECT_EQ(bar->frame().size(), (Size { 16, 16 }));
}

}
}
