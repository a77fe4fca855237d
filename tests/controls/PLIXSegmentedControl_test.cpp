#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <plix/controls/PLIXSegmentedControl.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

namespace plix {
namespace {

using Strings = std::vector<std::string>;

/// Segments that draw nothing, so that the lines are seen.
class BareCell : public PLIXSegmentedCell {
public:
    void drawSegment(int segment, Rect frame, NSView& controlView) override
    {
        PLIXSegmentedCell::drawSegment(segment, frame, controlView);
        NSColor::whiteColor()->set();
        NSRectFill(frame);
    }
};

class PLIXSegmentsTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 100, 200, 60 });
        control = make<PLIXSegmentedControl>(Rect { 0, 20, 200, 20 });
        control->setCell(make<BareCell>());
        setCount(4);
        window->contentView()->addSubview(*control);
        pump();
    }
    void setCount(long count)
    {
        control->setSegmentCount(count);
        for (long i = 0; i < count; ++i)
            control->setWidth(200 / static_cast<float>(count), i);
    }
    Strings separators()
    {
        pump();
        return PLIXSegmentedControl::separatorsForSegmentedControl(control.get());
    }
    static std::string rectAt(float x) { return NSStringFromRect({ x, 0, 1, 20 }); }

    Ref<NSWindow> window;
    Ref<PLIXSegmentedControl> control;
};

TEST_F(PLIXSegmentsTest, LinesGoBehindAllSegmentsButTheLast)
{
    EXPECT_EQ(separators(), (Strings { rectAt(50), rectAt(100), rectAt(150) }));
}

TEST_F(PLIXSegmentsTest, NoLineBordersTheSelection)
{
    control->setSelectedSegment(2);
    EXPECT_EQ(separators(), Strings { rectAt(50) });
    control->setSelectedSegment(0);
    EXPECT_EQ(separators(), (Strings { rectAt(100), rectAt(150) }));
    control->setSelectedSegment(3);
    EXPECT_EQ(separators(), (Strings { rectAt(50), rectAt(100) }));
}

TEST_F(PLIXSegmentsTest, OneSegmentHasNoLine)
{
    setCount(1);
    EXPECT_EQ(separators(), Strings {});
}

TEST_F(PLIXSegmentsTest, EachDrawingBeginsAnew)
{
    control->setNeedsDisplay(true);
    EXPECT_EQ(separators().size(), 3U);
    control->setNeedsDisplay(true);
    EXPECT_EQ(separators().size(), 3U);
}

TEST_F(PLIXSegmentsTest, OtherCellsHaveNoLines)
{
    auto const plain = make<NSSegmentedCell>();
    plain->setSegmentCount(3);
    control->setCell(plain);
    EXPECT_EQ(separators(), Strings {});
}

TEST_F(PLIXSegmentsTest, LinesAreDrawnWhileTheWindowIsKey)
{
    auto const lineAt = [&](int x) {
        pump();
        return Pixels(window->snapshot()).colorAt(x, 30);
    };
    EXPECT_NEAR(lineAt(50).red, 0.67F, 0.02F);
    EXPECT_EQ(lineAt(49), colors::white);
    EXPECT_EQ(lineAt(51), colors::white);
    auto const other = showWindow({ 400, 400, 100, 100 });
    control->setNeedsDisplay(true);
    EXPECT_EQ(lineAt(50), colors::white);
    // Noted all the same.
    EXPECT_EQ(separators().size(), 3U);
}

TEST_F(PLIXSegmentsTest, TheTableAnswersAndForgets)
{
    auto const unknown = make<PLIXSegmentedControl>(Rect { 0, 0, 10, 10 });
    auto const before = separatorsForSegmentedControls ? separatorsForSegmentedControls->size() : 0;
    EXPECT_EQ(PLIXSegmentedControl::separatorsForSegmentedControl(unknown.get()), Strings {});
    EXPECT_EQ(PLIXSegmentedControl::separatorsForSegmentedControl(nullptr), Strings {});
    PLIXSegmentedControl::addSeparator(std::nullopt, unknown.get());
    PLIXSegmentedControl::addSeparator("{{0, 0}, {1, 1}}", nullptr);
    PLIXSegmentedControl::removeSeparatorsForSegmentedControl(unknown.get());
    PLIXSegmentedControl::removeSeparatorsForSegmentedControl(nullptr);
    ASSERT_NE(separatorsForSegmentedControls, nullptr);
    EXPECT_EQ(separatorsForSegmentedControls->size(), before);
    PLIXSegmentedControl::addSeparator("first", unknown.get());
    PLIXSegmentedControl::addSeparator("second", unknown.get());
    EXPECT_EQ(PLIXSegmentedControl::separatorsForSegmentedControl(unknown.get()), (Strings { "first", "second" }));
    auto const key = std::to_string(reinterpret_cast<std::uintptr_t>(unknown.get()));
    EXPECT_EQ(separatorsForSegmentedControls->count(key), 1U);
    PLIXSegmentedControl::removeSeparatorsForSegmentedControl(unknown.get());
    EXPECT_EQ(PLIXSegmentedControl::separatorsForSegmentedControl(unknown.get()), Strings {});
    EXPECT_EQ(separatorsForSegmentedControls->count(key), 1U);
}

// MARK: tags

TEST_F(PLIXSegmentsTest, FindsAndSelectsByTag)
{
    auto& cell = static_cast<NSSegmentedCell&>(*control->cell());
    for (long i = 0; i < 4; ++i)
        cell.setTag(10 * (i / 2), i);
    EXPECT_EQ(selectedSegmentTag(*control), -1);
    EXPECT_EQ(segmentWithTag(*control, 10), 2);
    EXPECT_EQ(segmentWithTag(*control, 11), -1);
    EXPECT_TRUE(selectSegmentWithTag(*control, 10));
    EXPECT_EQ(control->selectedSegment(), 2);
    EXPECT_EQ(selectedSegmentTag(*control), 10);
    EXPECT_FALSE(selectSegmentWithTag(*control, 11));
    EXPECT_EQ(control->selectedSegment(), 2);
}

// MARK: the button

class PLIXSegmentedButtonTest : public HeadlessTest {
protected:
    Pixels drawn(Size image)
    {
        button = make<PLIXSegmentedControlButton>(Rect { 0, 0, 61, 25 });
        button->setCell(make<BareCell>());
        button->setSegmentCount(1);
        button->setWidth(61, 0);
        button->setImage(imageOfDistinctPixels(static_cast<int>(image.width), static_cast<int>(image.height)));
        return showWindowWith(button, { 100, 100, 61, 25 })->snapshot();
    }
    Ref<PLIXSegmentedControlButton> button;
};

TEST_F(PLIXSegmentedButtonTest, DrawsItsPictureUprightInTheMiddle)
{
    auto const pixels = drawn({ 4, 6 });
    Pixels const source(imageOfDistinctPixels(4, 6));
    // (61 - 4) / 2 from the left, (25 - 6) / 2 from below, both cut off.
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(pixels.at(28 + x, 25 - 9 - 6 + y), source.at(x, y)) << x << ' ' << y;
    }
    EXPECT_EQ(pixels.colorAt(27, 12), colors::white);
    EXPECT_EQ(pixels.colorAt(32, 12), colors::white);
}

TEST_F(PLIXSegmentedButtonTest, HasNoPictureAtFirst)
{
    auto const fresh = make<PLIXSegmentedControlButton>(Rect { 0, 0, 60, 24 });
    EXPECT_EQ(fresh->image(), nullptr);
    EXPECT_EQ(make<PLIXSegmentedControlButton>()->image(), nullptr);
    auto const image = imageOfColor({ 2, 2 }, colors::red);
    fresh->setImage(image);
    EXPECT_EQ(fresh->image(), image.get());
    auto const data = NSArchiver::archivedDataWithRootObject(fresh);
    auto const again = NSUnarchiver::unarchiveObjectWithData(*data)->as<PLIXSegmentedControlButton>();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->image(), nullptr);
    fresh->setImage(nullptr);
    EXPECT_EQ(fresh->image(), nullptr);
}

}
}
