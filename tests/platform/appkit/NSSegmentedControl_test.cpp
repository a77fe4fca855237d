#include <tests/support/MenuTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSSegmentedCell.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/foundation/NSArchiver.h>

namespace plix {
namespace {

class SegmentTarget : public NSObject {
    PLIX_CLASS(SegmentTarget, NSObject);

public:
    void act(NSObject* sender)
    {
        auto const* control = dynamic_cast<NSSegmentedControl*>(sender);
        selections.push_back(control ? control->selectedSegment() : -2);
    }
    std::vector<long> selections;
};

PLIX_DESCRIBE(SegmentTarget)
{
    description.action("act:", &SegmentTarget::act);
}

class SegmentTest : public MenuTest {
protected:
    void SetUp() override
    {
        MenuTest::SetUp();
        control = make<NSSegmentedControl>(Rect { 20, 100, 300, 24 });
        control->setSegmentCount(3);
        control->setLabel("Day", 0);
        control->setLabel("Week", 1);
        control->setLabel("Month", 2);
        target = make<SegmentTarget>();
        control->setTarget(Ref<NSObject>(target));
        control->setAction(Selector("act:"));
        view->addSubview(*control);
        pump();
    }
    NSSegmentedCell& cell() { return *static_cast<NSSegmentedCell*>(control->cell()); }
    Point middleOf(long index)
    {
        auto const rect = cell().rectForSegment(index, control->bounds());
        return { rect.midX(), rect.midY() };
    }
    std::vector<bool> selected()
    {
        std::vector<bool> all;
        for (long i = 0; i < control->segmentCount(); ++i)
            all.push_back(control->isSelectedForSegment(i));
        return all;
    }
    using Bools = std::vector<bool>;

    Ref<NSSegmentedControl> control;
    Ref<SegmentTarget> target;
};

TEST_F(SegmentTest, AClickSelectsOne)
{
    click(*control, middleOf(1));
    EXPECT_EQ(control->selectedSegment(), 1);
    click(*control, middleOf(2));
    EXPECT_EQ(selected(), (Bools { false, false, true }));
    EXPECT_EQ(target->selections, (std::vector<long> { 1, 2 }));
}

TEST_F(SegmentTest, AnyNumberMayBeSelected)
{
    cell().setTrackingMode(NSSegmentSwitchTrackingSelectAny);
    click(*control, middleOf(0));
    click(*control, middleOf(2));
    EXPECT_EQ(selected(), (Bools { true, false, true }));
    click(*control, middleOf(0));
    EXPECT_EQ(selected(), (Bools { false, false, true }));
    EXPECT_EQ(target->selections, (std::vector<long> { 0, 2, 0 }));
}

TEST_F(SegmentTest, MomentaryOnesAreSelectedWhileTheyAct)
{
    cell().setTrackingMode(NSSegmentSwitchTrackingMomentary);
    click(*control, middleOf(1));
    EXPECT_EQ(target->selections, (std::vector<long> { 1 }));
    EXPECT_EQ(selected(), (Bools { false, false, false }));
    EXPECT_EQ(control->selectedSegment(), -1);
}

TEST_F(SegmentTest, AReleaseElsewhereDoesNothing)
{
    drag(*control, middleOf(0), middleOf(2));
    EXPECT_TRUE(target->selections.empty());
    drag(*control, middleOf(0), { 10, 90 });
    EXPECT_TRUE(target->selections.empty());
    person().press(onScreen(*control, middleOf(0)));
    person().dragTo(onScreen(*control, middleOf(2)));
    person().dragTo(onScreen(*control, middleOf(0)));
    person().release(onScreen(*control, middleOf(0)));
    pump();
    EXPECT_EQ(target->selections, (std::vector<long> { 0 }));
}

TEST_F(SegmentTest, DisabledSegmentsAndControlsAreNotPressed)
{
    control->setEnabled(false, 1);
    click(*control, middleOf(1));
    control->setEnabled(false);
    click(*control, middleOf(0));
    EXPECT_TRUE(target->selections.empty());
    EXPECT_FALSE(control->isEnabledForSegment(1));
}

TEST_F(SegmentTest, KeysGoFromSegmentToSegmentAndPress)
{
    control->setEnabled(false, 1);
    window->makeFirstResponder(control.get());
    key(U' ');
    key(NSRightArrowFunctionKey);
    key(NSRightArrowFunctionKey);
    key(U' ');
    key(NSLeftArrowFunctionKey);
    EXPECT_EQ(target->selections, (std::vector<long> { 0, 2 }));
    EXPECT_EQ(cell().keySegment(), 0);
}

TEST_F(SegmentTest, SelectsByTag)
{
    cell().setTag(40, 2);
    EXPECT_TRUE(cell().selectSegmentWithTag(40));
    EXPECT_EQ(control->selectedSegment(), 2);
    EXPECT_EQ(control->selectedTag(), 40);
    EXPECT_FALSE(cell().selectSegmentWithTag(41));
    EXPECT_EQ(control->selectedSegment(), 2);
    control->setSelectedSegment(-1);
    EXPECT_EQ(control->selectedTag(), -1);
}

TEST_F(SegmentTest, IndexesOutsideRaise)
{
    EXPECT_THROW(control->setLabel("x", 3), NSRangeException);
    EXPECT_THROW(control->setSelectedSegment(3), NSRangeException);
    EXPECT_THROW((void)control->widthForSegment(-1), NSRangeException);
    EXPECT_THROW(control->setSegmentCount(-1), NSRangeException);
    EXPECT_EQ(control->segmentCount(), 3);
}

TEST_F(SegmentTest, FewerSegmentsForgetTheSelection)
{
    control->setSelectedSegment(2);
    control->setSegmentCount(2);
    EXPECT_EQ(control->selectedSegment(), -1);
    control->setSegmentCount(0);
    click(*control, { 10, 10 });
    key(U' ');
    EXPECT_TRUE(target->selections.empty());
}

TEST_F(SegmentTest, SegmentsFillTheControl)
{
    EXPECT_EQ(cell().rectForSegment(0, control->bounds()).x, 0);
    EXPECT_EQ(cell().rectForSegment(2, control->bounds()).maxX(), 300);
    control->setWidth(50, 0);
    EXPECT_EQ(cell().rectForSegment(0, control->bounds()).width, 50);
    EXPECT_EQ(cell().rectForSegment(2, control->bounds()).maxX(), 300);
    control->sizeToFit();
    EXPECT_LT(control->frame().width, 300);
    EXPECT_EQ(control->frame().height, 24);
}

TEST_F(SegmentTest, AMenuShowsWhenASegmentIsHeld)
{
    control->setMenu(menu, 1);
    person().press(onScreen(*control, middleOf(1)));
    later(1, [this] {
        seen.push_back(menu->isTracking() ? "open" : "closed");
        auto const place = placeOf(*menu, 2);
        person().dragTo(place);
        person().release(place);
    });
    pass(2);
    EXPECT_EQ(seen, Strings { "open" });
    EXPECT_EQ(receiver->chosen, Strings { "Cherry" });
    EXPECT_TRUE(target->selections.empty());
    click(*control, middleOf(1));
    EXPECT_EQ(target->selections, (std::vector<long> { 1 }));
}

TEST_F(SegmentTest, AMomentarySegmentShowsItsMenuAtOnce)
{
    cell().setTrackingMode(NSSegmentSwitchTrackingMomentary);
    control->setMenu(menu, 0);
    person().press(onScreen(*control, middleOf(0)));
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, Strings { "-" });
}

TEST_F(SegmentTest, SurvivesAnActionThatTakesSegmentsAway)
{
    control->setActionFunction([this](NSObject*) { control->setSegmentCount(1); });
    click(*control, middleOf(2));
    EXPECT_EQ(control->segmentCount(), 1);
    EXPECT_EQ(control->selectedSegment(), -1);
}

TEST_F(SegmentTest, SubclassesDrawEachSegment)
{
    class Counting : public NSSegmentedCell {
    public:
        void drawSegment(int segment, Rect frame, NSView& controlView) override
        {
            frames.push_back(frame);
            segments.push_back(segment);
            NSSegmentedCell::drawSegment(segment, frame, controlView);
        }
        std::vector<Rect> frames;
        std::vector<int> segments;
    };
    auto const counting = make<Counting>();
    counting->setSegmentCount(3);
    control->setCell(counting);
    pump();
    ASSERT_EQ(counting->segments, (std::vector<int> { 0, 1, 2 }));
    EXPECT_EQ(counting->frames[1], (Rect { 100, 0, 100, 24 }));
}

TEST_F(SegmentTest, SelectedSegmentsLookDifferent)
{
    control->setSelectedSegment(1);
    pump();
    Pixels const pixels(window->snapshot());
    auto const at = [&](long index) {
        auto const rect = cell().rectForSegment(index, control->bounds());
        auto const place = control->convertPointToView({ rect.x + 4, rect.y + 12 }, nullptr);
        return pixels.at(static_cast<int>(place.x), pixels.height() - 1 - static_cast<int>(place.y));
    };
    EXPECT_EQ(at(0), at(2));
    EXPECT_NE(at(0), at(1));
}

TEST_F(SegmentTest, IsArchived)
{
    cell().setTag(5, 1);
    control->setWidth(70, 2);
    control->setImage(imageOfColor({ 4, 4 }, colors::red), 0);
    control->setSelectedSegment(1);
    auto const data = NSArchiver::archivedDataWithRootObject(control);
    auto const again = NSUnarchiver::unarchiveObjectWithData(*data)->as<NSSegmentedControl>();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->segmentCount(), 3);
    EXPECT_EQ(again->labelForSegment(2), "Month");
    EXPECT_EQ(again->widthForSegment(2), 70);
    EXPECT_EQ(again->selectedTag(), 5);
    ASSERT_NE(again->imageForSegment(0), nullptr);
}

}
}
