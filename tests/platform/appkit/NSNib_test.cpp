#include <tests/support/NibTest.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/test_data.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

namespace plix {
namespace {

/// The file Panel.xib among the tests' data.
class NSNibFiles : public NibTest {
protected:
    Ref<NSBundle> bundle { NSBundle::bundleWithPath(testDataPath("interface_files")) };

    Ref<NSNib> panel() { return make<NSNib>("Panel", bundle.get()); }
    NSButton& button(long tag) { return *dynamic_cast<NSButton*>(owner->window->contentView()->viewWithTag(tag)); }
};

TEST_F(NSNibFiles, MakesWindowsAsWritten)
{
    ASSERT_TRUE(panel()->instantiateNibWithOwner(owner.get()));
    auto const& window = *owner->window;
    EXPECT_TRUE(window.isMemberOfClass(NSPanel::staticClass()));
    EXPECT_EQ(window.title(), "Panel");
    EXPECT_EQ(window.contentRectForFrameRect(window.frame()), (Rect { 120, 140, 320, 180 }));
    EXPECT_EQ(window.styleMask(), NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask);
    EXPECT_EQ(window.contentMinSize(), (Size { 300, 160 }));
    EXPECT_FALSE(window.isReleasedWhenClosed());
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.initialFirstResponder(), owner->nameField);
}

TEST_F(NSNibFiles, MakesFieldsAndButtonsAsWritten)
{
    ASSERT_TRUE(panel()->instantiateNibWithOwner(owner.get()));
    auto const& field = *owner->nameField;
    EXPECT_EQ(field.frame(), (Rect { 20, 130, 280, 22 }));
    EXPECT_EQ(field.autoresizingMask(), NSViewWidthSizable | NSViewMinYMargin);
    EXPECT_EQ(field.stringValue(), "Ada");
    EXPECT_EQ(field.toolTip(), "Who it is for");
    EXPECT_TRUE(field.isEditable());
    EXPECT_TRUE(field.isBezeled());
    EXPECT_EQ(field.font(), NSFont::boldSystemFontOfSize(13));
    EXPECT_EQ(field.textColor()->redComponent(), 0.5F);
    EXPECT_EQ(static_cast<NSTextFieldCell*>(field.cell())->placeholderString(), "Nobody");
    auto const& choose = button(7);
    EXPECT_EQ(choose.title(), "Choose");
    EXPECT_EQ(choose.keyEquivalent(), "\r");
    EXPECT_EQ(choose.bezelStyle(), NSRoundedBezelStyle);
    auto const& remember = button(8);
    EXPECT_EQ(remember.title(), "Remember");
    EXPECT_EQ(remember.state(), NSOnState);
    EXPECT_EQ(remember.imagePosition(), NSImageLeft);
}

TEST_F(NSNibFiles, ConnectsOutletsAndActionsBeforeAnybodyAwakes)
{
    ASSERT_TRUE(panel()->instantiateNibWithOwner(owner.get()));
    EXPECT_EQ(owner->awakenings, 1);
    EXPECT_TRUE(owner->wasConnectedWhenAwakened);
    EXPECT_TRUE(owner->helper->isAwake);
    EXPECT_EQ(owner->nameField->delegate(), owner.get());
    EXPECT_EQ(owner->nameField->nextKeyView(), &button(8));
    EXPECT_EQ(button(8).target(), nullptr);
    EXPECT_EQ(button(8).action(), Selector("remember:"));
    button(7).performClick(nullptr);
    EXPECT_EQ(owner->chosenBy, &button(7));
    EXPECT_EQ(log, std::vector<std::string> {});
}

TEST_F(NSNibFiles, KeepsTopLevelObjectsAsLongAsTheOwner)
{
    ASSERT_TRUE(panel()->instantiateNibWithOwner(owner.get()));
    EXPECT_EQ(NibHelper::alive, 1);
    owner = nullptr;
    EXPECT_EQ(NibHelper::alive, 0);
}

TEST_F(NSNibFiles, HandsTopLevelObjectsToACallerWhoAsks)
{
    std::vector<Ref<NSObject>> objects;
    ASSERT_TRUE(panel()->instantiateNibWithOwner(owner.get(), &objects));
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0], owner->window);
    EXPECT_EQ(objects[1].get(), owner->helper.get());
    objects.clear();
    EXPECT_EQ(NibHelper::alive, 0);
}

TEST_F(NSNibFiles, SpeaksTheUsersLanguageAtEachLoad)
{
    TestSurroundings surroundings;
    auto const loaded = panel();
    surroundings.languages = { "de_DE" };
    ASSERT_TRUE(loaded->instantiateNibWithOwner(owner.get()));
    EXPECT_EQ(owner->window->title(), "Feld");
    EXPECT_EQ(owner->nameField->toolTip(), "Für wen es ist");
    EXPECT_EQ(static_cast<NSTextFieldCell*>(owner->nameField->cell())->placeholderString(), "Niemand");
    EXPECT_EQ(button(7).title(), "Wählen");
    EXPECT_EQ(button(8).title(), "Remember");
    surroundings.languages = { "en_US" };
    ASSERT_TRUE(loaded->instantiateNibWithOwner(owner.get()));
    EXPECT_EQ(owner->window->title(), "Panel");
}

}
}
