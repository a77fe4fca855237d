#include <tests/support/NibTest.h>

#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/graphics/NSFont.h>

namespace plix {
namespace {

constexpr std::string_view tabViewDocument = R"(
<tabView type="leftTabsBezelBorder" controlSize="small" allowsTruncatedLabels="YES" drawsBackground="NO" initialItem="11" id="1">
    <rect key="frame" x="13" y="10" width="300" height="200"/>
    <autoresizingMask key="autoresizingMask" widthSizable="YES"/>
    <font key="font" metaFont="smallSystem"/>
    <tabViewItems>
        <tabViewItem label="One" identifier="first" id="10">
            <view key="view" id="20">
                <rect key="frame" x="29" y="10" width="258" height="180"/>
                <subviews>
                    <textField verticalHuggingPriority="750" id="21">
                        <rect key="frame" x="20" y="20" width="100" height="22"/>
                        <textFieldCell key="cell" editable="YES" selectable="YES" title="text" id="22"/>
                    </textField>
                </subviews>
            </view>
            <connections>
                <outlet property="initialFirstResponder" destination="21" id="30"/>
            </connections>
        </tabViewItem>
        <tabViewItem label="Two" identifier="" id="11">
            <view key="view" id="23">
                <rect key="frame" x="29" y="10" width="258" height="180"/>
            </view>
        </tabViewItem>
    </tabViewItems>
</tabView>)";

TEST_F(NibTest, TabViewsAreMadeAsWritten)
{
    auto const tabs = loadFirst<NSTabView>(document(tabViewDocument));
    ASSERT_TRUE(tabs);
    EXPECT_EQ(tabs->frame(), (Rect { 13, 10, 300, 200 }));
    EXPECT_EQ(tabs->tabViewType(), NSLeftTabsBezelBorder);
    EXPECT_EQ(tabs->controlSize(), NSSmallControlSize);
    EXPECT_TRUE(tabs->allowsTruncatedLabels());
    EXPECT_FALSE(tabs->drawsBackground());
    EXPECT_EQ(tabs->font(), NSFont::systemFontOfSize(11));
    ASSERT_EQ(tabs->numberOfTabViewItems(), 2);
    EXPECT_EQ(tabs->selectedTabViewItem()->label(), "Two");
    auto const* first = tabs->tabViewItemAtIndex(0);
    EXPECT_EQ(first->label(), "One");
    EXPECT_EQ(first->identifier(), "first");
    ASSERT_EQ(first->view()->subviews().size(), 1U);
    EXPECT_EQ(first->initialFirstResponder(), first->view()->subviews()[0].get());
    EXPECT_EQ(first->view()->subviews()[0]->frame(), (Rect { 20, 20, 100, 22 }));
    EXPECT_EQ(tabs->selectedTabViewItem()->view()->frame(), tabs->contentRect());
    EXPECT_EQ(log, std::vector<std::string> {});
}

TEST_F(NibTest, AnInitialTabThatIsMissingIsNamed)
{
    std::string text(tabViewDocument);
    text.replace(text.find("initialItem=\"11\""), 16, "initialItem=\"99\"");
    auto const objects = load(document(text));
    EXPECT_TRUE(objects.empty());
    EXPECT_EQ(log.size(), 1U);
}

}
}
