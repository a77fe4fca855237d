#include <tests/support/NibTest.h>

#include <plix/controls/PLIXTabView.h>
#include <plix/controls/PLIXTabViewItem.h>
#include <plix/controls/classes.h>

namespace plix {
namespace {

// Nothing is fitted while it is read.
TEST_F(NibTest, FittingTabViewsAreMadeAsWritten)
{
    registerControlClasses();
    auto const tabs = loadFirst<PLIXTabView>(document(R"(
<tabView customClass="PLIXTabView" id="1">
    <rect key="frame" x="13" y="10" width="300" height="200"/>
    <tabViewItems>
        <tabViewItem customClass="PLIXTabViewItem" label="One" id="10">
            <view key="view" id="20">
                <rect key="frame" x="10" y="33" width="280" height="154"/>
                <subviews>
                    <customView id="21">
                        <rect key="frame" x="5" y="7" width="100" height="22"/>
                    </customView>
                </subviews>
            </view>
        </tabViewItem>
    </tabViewItems>
</tabView>)"));
    ASSERT_TRUE(tabs);
    EXPECT_EQ(tabs->autoresizingMask(), 18U);
    EXPECT_EQ(tabs->windowResizeMode(), 17UL);
    ASSERT_EQ(tabs->numberOfTabViewItems(), 1);
    auto const* item = tabs->tabViewItemAtIndex(0);
    EXPECT_TRUE(item->isMemberOfClass(PLIXTabViewItem::staticClass()));
    EXPECT_EQ(item->view()->frame(), (Rect { 10, 33, 280, 154 }));
    EXPECT_EQ(item->view()->subviews()[0]->frame(), (Rect { 5, 7, 100, 22 }));
    EXPECT_EQ(log, std::vector<std::string> {});
}

}
}
