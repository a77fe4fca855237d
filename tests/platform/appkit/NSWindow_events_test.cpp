#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;


class NSWindowEvents : public HeadlessTest { };

TEST_F(NSWindowEvents, AClickReachesTheViewUnderThePointer)
{
    auto const window = showWindow();
    auto const lower = make<CountingView>(Rect { 0, 0, 100, 100 });
    auto const upper = make<CountingView>(Rect { 50, 50, 100, 100 });
    window->contentView()->addSubview(*lower);
    window->contentView()->addSubview(*upper);
    lower->forget();
    upper->forget();
    click(*upper, { 10, 10 });
    EXPECT_THAT(upper->log, ElementsAre("mouseDown", "mouseUp"));
    EXPECT_TRUE(lower->log.empty());
    EXPECT_EQ(upper->lastEvent->locationInWindow(), (Point { 60, 60 }));
}

TEST_F(NSWindowEvents, ADrawnViewShows)
{
    auto const view = make<CountingView>(Rect {});
    view->color = NSColor::redColor();
    auto const window = showWindowWith(view);
    EXPECT_TRUE(areaNear(window->snapshot(), { 0, 0, 400, 300 }, colors::red));
}

}
}
