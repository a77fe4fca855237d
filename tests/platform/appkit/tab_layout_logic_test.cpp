#include <plix/platform/appkit/tab_layout.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace plix {
namespace {

constexpr Rect bounds { 0, 0, 200, 150 };

TEST(TabLayout, EachKindHasItsMargins)
{
    struct Row {
        NSTabViewType type;
        NSControlSize size;
        TabViewLayout expected;
    };
    for (auto const& row : {
             Row { NSTopTabsBezelBorder, NSRegularControlSize, { { 7, 17, 186, 123 }, { 10, 5, 180, 24 }, { 10, 33, 180, 104 } } },
             Row { NSTopTabsBezelBorder, NSSmallControlSize, { { 7, 15, 186, 125 }, { 10, 5, 180, 20 }, { 10, 29, 180, 108 } } },
             Row { NSTopTabsBezelBorder, NSMiniControlSize, { { 7, 13, 186, 127 }, { 10, 5, 180, 17 }, { 10, 26, 180, 111 } } },
             Row { NSBottomTabsBezelBorder, NSRegularControlSize,
                 { { 7, 10, 186, 123 }, { 10, 121, 180, 24 }, { 10, 13, 180, 104 } } },
             Row { NSLeftTabsBezelBorder, NSRegularControlSize, { { 17, 7, 173, 136 }, { 5, 10, 24, 130 }, { 33, 10, 154, 130 } } },
             Row { NSRightTabsBezelBorder, NSRegularControlSize,
                 { { 10, 7, 173, 136 }, { 171, 10, 24, 130 }, { 13, 10, 154, 130 } } },
             Row { NSNoTabsBezelBorder, NSRegularControlSize, { { 7, 4, 186, 136 }, {}, { 10, 7, 180, 130 } } },
             Row { NSNoTabsLineBorder, NSRegularControlSize, { { 0, 0, 200, 150 }, {}, { 1, 1, 198, 148 } } },
             Row { NSNoTabsNoBorder, NSRegularControlSize, { {}, {}, { 0, 0, 200, 150 } } },
         })
        EXPECT_EQ(tabViewLayout(bounds, row.type, row.size), row.expected) << row.type << " " << row.size;
}

TEST(TabLayout, ChromeIsWhatTheContentLeaves)
{
    for (int type = NSTopTabsBezelBorder; type <= NSNoTabsNoBorder; ++type) {
        for (auto const size : { NSRegularControlSize, NSSmallControlSize, NSMiniControlSize }) {
            auto const kind = static_cast<NSTabViewType>(type);
            auto const content = tabViewLayout(bounds, kind, size).content;
            EXPECT_EQ(tabViewChrome(kind, size), (Size { bounds.width - content.width, bounds.height - content.height })) << type;
        }
    }
}

TEST(TabLayout, MovesWithTheBounds)
{
    for (int type = NSTopTabsBezelBorder; type <= NSNoTabsLineBorder; ++type) {
        auto const kind = static_cast<NSTabViewType>(type);
        auto const here = tabViewLayout(bounds, kind, NSRegularControlSize);
        auto const there = tabViewLayout(NSOffsetRect(bounds, 30, -7), kind, NSRegularControlSize);
        EXPECT_EQ(there.content, NSOffsetRect(here.content, 30, -7)) << type;
        EXPECT_EQ(there.box, NSOffsetRect(here.box, 30, -7)) << type;
    }
}

TEST(TabLayout, TooSmallBoundsGiveNoNegativeSizes)
{
    for (int type = NSTopTabsBezelBorder; type <= NSNoTabsNoBorder; ++type) {
        for (Size const size : { Size {}, Size { 5, 5 }, Size { 400, 8 }, Size { 8, 400 } }) {
            auto const layout = tabViewLayout(rectWith({}, size), static_cast<NSTabViewType>(type), NSRegularControlSize);
            for (Rect const part : { layout.box, layout.strip, layout.content })
                EXPECT_TRUE(part.width >= 0 && part.height >= 0) << type;
        }
    }
}

// On the left labels run upwards, on the right downwards; their tops are to the left and to the right.
TEST(TabLayout, StripsRunAsTheirLabelsAreRead)
{
    struct Row {
        NSTabViewType type;
        Size size;
        Point start;
        Point end;
        Point bottomOfStart;
    };
    for (auto const& row : {
             Row { NSTopTabsBezelBorder, { 180, 24 }, { 10, 5 }, { 190, 5 }, { 10, 29 } },
             Row { NSBottomTabsBezelBorder, { 180, 24 }, { 10, 121 }, { 190, 121 }, { 10, 145 } },
             Row { NSLeftTabsBezelBorder, { 130, 24 }, { 5, 140 }, { 5, 10 }, { 29, 140 } },
             Row { NSRightTabsBezelBorder, { 130, 24 }, { 195, 10 }, { 195, 140 }, { 171, 10 } },
         }) {
        auto const space = tabStripSpace(tabViewLayout(bounds, row.type, NSRegularControlSize), row.type);
        EXPECT_EQ(space.size, row.size) << row.type;
        EXPECT_EQ(space.toView.apply(Point {}), row.start) << row.type;
        EXPECT_EQ(space.toView.apply(Point { space.size.width, 0 }), row.end) << row.type;
        EXPECT_EQ(space.toView.apply(Point { 0, space.size.height }), row.bottomOfStart) << row.type;
    }
}

// MARK: tabs

using Lengths = std::vector<TabLength>;

std::vector<Rect> tabsOf(Lengths const& lengths, float strip, long selected, NSTabViewType type = NSTopTabsBezelBorder)
{
    return tabStripPlan(lengths, { strip, 24 }, selected, type, NSRegularControlSize).tabs;
}

TEST(TabStrip, TabsStandInTheMiddle)
{
    Lengths const lengths { { 60, 40 }, { 80, 40 }, { 50, 40 } };
    auto const plan = tabStripPlan(lengths, { 301, 24 }, 0, NSTopTabsBezelBorder, NSRegularControlSize);
    EXPECT_EQ(plan.tabs, (std::vector<Rect> { { 55, 0, 60, 24 }, { 115, 0, 80, 24 }, { 195, 0, 50, 24 } }));
    EXPECT_EQ(plan.track, (Rect { 55, 0, 190, 24 }));
    EXPECT_TRUE(plan.overflow.isEmpty());
}

TEST(TabStrip, TheFirstTabOnTheLeftIsTopmost)
{
    Lengths const lengths { { 60, 40 }, { 80, 40 } };
    EXPECT_EQ(tabsOf(lengths, 200, 0, NSLeftTabsBezelBorder), (std::vector<Rect> { { 110, 0, 60, 24 }, { 30, 0, 80, 24 } }));
    EXPECT_EQ(tabsOf(lengths, 200, 0, NSRightTabsBezelBorder), (std::vector<Rect> { { 30, 0, 60, 24 }, { 90, 0, 80, 24 } }));
}

TEST(TabStrip, TheLongestLabelsAreShortenedFirst)
{
    Lengths const lengths { { 60, 40 }, { 120, 40 }, { 100, 40 } };
    EXPECT_EQ(tabsOf(lengths, 241, 0), (std::vector<Rect> { { 0, 0, 60, 24 }, { 60, 0, 91, 24 }, { 151, 0, 90, 24 } }));
    EXPECT_EQ(tabsOf(lengths, 120, 0), (std::vector<Rect> { { 0, 0, 40, 24 }, { 40, 0, 40, 24 }, { 80, 0, 40, 24 } }));
}

TEST(TabStrip, WhatDoesNotFitGoesIntoTheMenu)
{
    Lengths const lengths { { 60, 60 }, { 80, 80 }, { 50, 50 }, { 70, 70 } };
    auto const plan = tabStripPlan(lengths, { 200, 24 }, 0, NSTopTabsBezelBorder, NSRegularControlSize);
    EXPECT_EQ(plan.tabs, (std::vector<Rect> { { 16, 0, 60, 24 }, { 76, 0, 80, 24 }, {}, {} }));
    EXPECT_EQ(plan.overflow, (Rect { 156, 0, 28, 24 }));
    EXPECT_EQ(plan.track, (Rect { 16, 0, 168, 24 }));
}

TEST(TabStrip, TheSelectedTabIsNeverInTheMenu)
{
    Lengths const lengths { { 60, 60 }, { 80, 80 }, { 50, 50 }, { 70, 70 } };
    auto const tabs = tabsOf(lengths, 200, 3);
    EXPECT_EQ(tabs[0].width, 60);
    EXPECT_TRUE(tabs[1].isEmpty());
    EXPECT_TRUE(tabs[2].isEmpty());
    EXPECT_EQ(tabs[3], (Rect { tabs[0].maxX(), 0, 70, 24 }));
}

TEST(TabStrip, ATabThatIsAloneGivesWay)
{
    EXPECT_EQ(tabsOf({ { 300, 300 } }, 100, 0)[0].width, 72);
    auto const two = tabsOf({ { 300, 300 }, { 300, 300 } }, 100, 1);
    EXPECT_TRUE(two[0].isEmpty());
    EXPECT_EQ(two[1], (Rect { 0, 0, 72, 24 }));
}

TEST(TabStrip, NothingStandsOutsideAndNothingOverlaps)
{
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        Lengths lengths(random() % 12);
        for (auto& each : lengths) {
            each.full = static_cast<float>(20 + random() % 150);
            each.least = random() % 2 ? each.full : std::min(each.full, 40.F);
        }
        auto const strip = static_cast<float>(random() % 700);
        long const selected = static_cast<long>(random() % (lengths.size() + 1)) - 1;
        auto const plan = tabStripPlan(lengths, { strip, 24 }, selected, NSTopTabsBezelBorder, NSRegularControlSize);
        ASSERT_EQ(plan.tabs.size(), lengths.size());
        float end = plan.track.x;
        std::size_t missing = 0;
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            auto const& tab = plan.tabs[i];
            bool const isSelected = static_cast<long>(i) == selected;
            missing += tab.isEmpty() ? 1 : 0;
            if (tab.isEmpty()) {
                ASSERT_FALSE(isSelected && strip > 28) << round;
                continue;
            }
            ASSERT_EQ(tab.x, end) << round;
            ASSERT_EQ(tab.width, std::floor(tab.width)) << round;
            ASSERT_LE(tab.width, lengths[i].full) << round;
            end = tab.maxX();
        }
        ASSERT_LE(end + plan.overflow.width, std::max(strip, 28.F)) << round;
        ASSERT_TRUE(missing == 0 || !plan.overflow.isEmpty() || strip == 0) << round;
    }
}

TEST(TabStrip, LabelsStandInTheMiddleOfTheirTabs)
{
    Rect const tab { 100, 0, 90, 24 };
    EXPECT_EQ(tabLabelRect(tab, { 40, 16 }, NSRegularControlSize), (Rect { 125, 4, 40, 16 }));
    EXPECT_EQ(tabLabelRect(tab, { 400, 16 }, NSRegularControlSize), (Rect { 112, 4, 66, 16 }));
    EXPECT_EQ(tabLabelRect({ 0, 0, 10, 24 }, { 40, 16 }, NSRegularControlSize).width, 0);
}

}
}
