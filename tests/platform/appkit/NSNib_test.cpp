#include <tests/support/NibTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/test_data.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

namespace plix {
namespace {

/// An owner whose class has a bundle of its own.
class PanelOwner : public NibOwner {
    PLIX_CLASS(PanelOwner, NibOwner);
};

PLIX_DESCRIBE(PanelOwner)
{
    description.bundle("tests of interface files");
}

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

TEST_F(NSNibFiles, AreFoundInTheBundleOfTheOwnersClass)
{
    NSBundle::registerBundle("tests of interface files", *bundle);
    EXPECT_FALSE(loadNibNamed("Panel", owner.get()));
    EXPECT_EQ(lines("interface file \"Panel\" is not there"), 1);
    for (auto const* name : { "Panel", "Panel.nib", "Panel.xib" }) {
        auto const panelOwner = make<PanelOwner>();
        EXPECT_TRUE(loadNibNamed(name, panelOwner.get())) << name;
        EXPECT_TRUE(panelOwner->window) << name;
    }
}

TEST_F(NibTest, ImagesMayBeInTheFilesOwnBundle)
{
    TestFolder const folder;
    auto const picture = *readFileBytes(testDataPath("pictures/gray.png"), 1 << 20);
    folder.write("nib dot.png", std::string(picture.begin(), picture.end()));
    folder.write("nib text.png", "this is no picture");
    folder.write("Pictures.xib", document(R"(<imageView id="1"><imageCell key="cell" image="nib dot" id="2"/></imageView>
        <button id="3"><buttonCell key="cell" image="nib text" id="4"/></button>)"));
    auto const bundle = make<NSBundle>(std::vector<std::string> { folder.path() });
    std::vector<Ref<NSObject>> objects;
    ASSERT_TRUE(make<NSNib>("Pictures", bundle.get())->instantiateNibWithOwner(nullptr, &objects));
    EXPECT_TRUE(static_cast<NSImageView&>(*objects[0]).image());
    EXPECT_EQ(static_cast<NSButton&>(*objects[1]).image(), nullptr);
    EXPECT_EQ(lines("the image \"nib text\" is not there"), 1);
    EXPECT_EQ(lines("the image"), 1);
}

TEST_F(NSNibFiles, AreMadeAnyNumberOfTimes)
{
    auto const loaded = panel();
    auto const other = make<NibOwner>();
    ASSERT_TRUE(loaded->instantiateNibWithOwner(owner.get()));
    ASSERT_TRUE(loaded->instantiateNibWithOwner(other.get()));
    EXPECT_NE(owner->window, other->window);
    EXPECT_NE(owner->nameField, other->nameField);
    EXPECT_EQ(NibHelper::alive, 2);
}

/// What is said of texts without an attribute of their own.
TEST_F(NibTest, TextsOfColumnsAndSegmentsAreTranslatedToo)
{
    TestFolder const folder;
    folder.write("Parts.xib", document(R"(<tableColumn id="1"><tableHeaderCell key="headerCell" title="Name"/></tableColumn>
        <segmentedControl id="2"><segmentedCell key="cell" id="3"><segments><segment label="One"/><segment label="Two" toolTip="Tip"/>
        </segments></segmentedCell></segmentedControl><tabViewItem label="Tab" id="4"/><menuItem title="" id="5"/>)"));
    folder.write("Parts.strings", R"("1.headerCell.title" = "Nom"; "3.segments[1].label" = "Deux"; "3.segments[1].toolTip" = "Mot";
        "4.label" = "Onglet";)");
    auto const bundle = make<NSBundle>(std::vector<std::string> { folder.path() });
    std::vector<Ref<NSObject>> objects;
    ASSERT_TRUE(make<NSNib>("Parts", bundle.get())->instantiateNibWithOwner(nullptr, &objects));
    EXPECT_EQ(static_cast<NSTableColumn&>(*objects[0]).headerCell()->stringValue(), "Nom");
    auto const& segments = static_cast<NSSegmentedControl&>(*objects[1]);
    EXPECT_EQ(segments.labelForSegment(0), "One");
    EXPECT_EQ(segments.labelForSegment(1), "Deux");
    EXPECT_EQ(static_cast<NSTabViewItem&>(*objects[2]).label(), "Onglet");
    EXPECT_EQ(static_cast<NSMenuItem&>(*objects[3]).title(), "");
}

}
}
