#include <tests/support/TabTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/graphics/NSFont.h>

#include <utility>

namespace plix {
namespace {

/// A tab of a given size, which counts how often it is measured and drawn.
class SizedItem : public NSTabViewItem {
public:
    using NSTabViewItem::init;
    Size sizeOfLabel(bool computeMin) const override
    {
        ++measured;
        return { computeMin ? least : full, 14 };
    }
    void drawLabel(bool, Rect) override { ++drawn; }
    void resize(float width)
    {
        full = width;
        labelChanged();
    }
    float full { 70 };
    float least { 30 };
    int drawn { 0 };
    mutable int measured { 0 };
};

TEST_F(TabTest, LabelsAreMeasuredWhenTheyChangeAndNotForEachFrame)
{
    auto const own = make<SizedItem>("own");
    tabs->addTabViewItem(*own);
    pump();
    own->measured = 0;
    tabs->setNeedsDisplay(true);
    pump();
    tabs->setFrameSize({ 450, 200 });
    pump();
    for (int i = 0; i < 3; ++i)
        moveMouse(*tabs, middleOf(i));
    tabs->tabViewItemAtPoint({ 5, 5 });
    tabs->minimumSize();
    pump();
    EXPECT_EQ(own->measured, 0);

    own->resize(90);
    EXPECT_EQ(tabs->rectForTabViewItem(*own).width, 90 + 24);
    tabs->setAllowsTruncatedLabels(true);
    tabs->setFrameSize({ tabs->minimumSize().width, 220 });
    EXPECT_EQ(tabs->rectForTabViewItem(*own).width, 30 + 24);
    tabs->setAllowsTruncatedLabels(false);
    tabs->setFrameSize({ 450, 220 });
    EXPECT_EQ(tabs->rectForTabViewItem(*own).width, 90 + 24);
    float const before = tabs->rectForTabViewItem(item(0)).width;
    tabs->setFont(NSFont::systemFontOfSize(20));
    EXPECT_GT(tabs->rectForTabViewItem(item(0)).width, before);
    tabs->setFont(nullptr);
    EXPECT_EQ(tabs->rectForTabViewItem(item(0)).width, before);
    tabs->setControlSize(NSSmallControlSize);
    EXPECT_LT(tabs->rectForTabViewItem(item(0)).width, before);
    tabs->setTabViewType(NSNoTabsBezelBorder);
    EXPECT_TRUE(tabs->rectForTabViewItem(*own).isEmpty());
    tabs->setTabViewType(NSTopTabsBezelBorder);
    tabs->removeTabViewItem(item(0));
    EXPECT_EQ(tabs->tabViewItemAtPoint({ NSInsetRect(tabs->rectForTabViewItem(*own), 5, 5).origin() }), own.get());
}

TEST_F(TabTest, OnlyTheTabThatIsLitOrPressedIsDrawnAnew)
{
    auto const first = make<SizedItem>("first");
    auto const second = make<SizedItem>("second");
    for (auto* each : { first.get(), second.get() })
        tabs->addTabViewItem(*each);
    tabs->removeTabViewItem(item(2));
    tabs->removeTabViewItem(item(1));
    tabs->removeTabViewItem(item(0));
    auto const third = make<SizedItem>("third");
    tabs->addTabViewItem(*third);
    moveMouse(*above, { 5, 5 });
    pump();
    auto const asItWas = window->snapshot();
    auto const drawn = [&] {
        std::vector<int> counts;
        for (auto* each : { first.get(), second.get(), third.get() })
            counts.push_back(std::exchange(each->drawn, 0));
        return counts;
    };
    drawn();
    auto const edge = [&](NSTabViewItem const& tab) {
        auto const rect = tabs->rectForTabViewItem(tab);
        return Point { rect.midX(), rect.midY() };
    };
    moveMouse(*tabs, edge(*third));
    pump();
    EXPECT_EQ(drawn(), (std::vector<int> { 0, 1, 1 })) << "and the one whose edge it shares";
    moveMouse(*above, { 5, 5 });
    pump();
    EXPECT_EQ(drawn(), (std::vector<int> { 0, 1, 1 }));
    moveMouse(*tabs, edge(*first));
    moveMouse(*tabs, edge(*third));
    pump();
    auto const lit = window->snapshot();
    tabs->setNeedsDisplay(true);
    pump();
    EXPECT_EQ(countDifferences(lit, window->snapshot()), 0);
    moveMouse(*above, { 5, 5 });
    pump();
    EXPECT_EQ(countDifferences(asItWas, window->snapshot()), 0);
}

}
}
