#include <plix/format/menu_additions.h>

#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>

#include <tests/support/HeadlessTest.h>

namespace plix {
namespace {

TEST(MenuAdditions, AppendsItemsInOrder)
{
    auto const menu = make<NSMenu>();
    menu->addItemWithTitle("First", {}, "");
    addItems(*menu, std::vector { make<NSMenuItem>("Second"), Ref<NSMenuItem>(), make<NSMenuItem>("Third") });
    ASSERT_EQ(menu->numberOfItems(), 3);
    EXPECT_EQ(menu->itemAtIndex(1)->title(), "Second");
    EXPECT_EQ(menu->itemAtIndex(2)->title(), "Third");
    addItems(*menu, std::nullopt);
    EXPECT_EQ(menu->numberOfItems(), 3);
}

TEST(MenuAdditions, TheLastItemOfAnEmptyMenuIsNil)
{
    auto const menu = make<NSMenu>();
    EXPECT_EQ(lastItem(*menu), nullptr);
    menu->addItemWithTitle("First", {}, "");
    auto const last = menu->addItemWithTitle("Last", {}, "");
    EXPECT_EQ(lastItem(*menu), last.get());
}

class PopUpAdditions : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        button = make<NSPopUpButton>(Rect { 0, 0, 100, 26 }, false);
        button->addItemsWithTitles({ "A", "B", "C" });
        for (long i = 0; i < 3; ++i)
            button->itemAtIndex(i)->setTag(static_cast<int>(10 + i));
    }
    Ref<NSPopUpButton> button;
};

TEST_F(PopUpAdditions, FindsItemsByTag)
{
    EXPECT_EQ(itemWithTag(*button, 11), button->itemAtIndex(1));
    EXPECT_EQ(itemWithTag(*button, 99), nullptr);
}

TEST_F(PopUpAdditions, SelectsByTagOrLeavesTheSelectionAlone)
{
    EXPECT_TRUE(selectItemWithTag(*button, 12));
    EXPECT_EQ(button->indexOfSelectedItem(), 2);
    EXPECT_FALSE(selectItemWithTag(*button, 99));
    EXPECT_EQ(button->indexOfSelectedItem(), 2);
}

TEST_F(PopUpAdditions, SelectsByTagOrClearsTheSelection)
{
    selectItemWithTagOrNone(*button, 11);
    EXPECT_EQ(button->indexOfSelectedItem(), 1);
    selectItemWithTagOrNone(*button, 99);
    EXPECT_EQ(button->indexOfSelectedItem(), -1);
}

}
}
