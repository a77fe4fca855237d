#include <tests/support/TextTest.h>

#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/MenuView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>

namespace plix {
namespace {

class TextMenuTest : public TextTest {
protected:
    void SetUp() override
    {
        TextTest::SetUp();
        text = addTextView({ 20, 20, 300, 100 }, "one two three");
        text->setSelectedRange({ 0, 0 });
    }
    void rightClick(long character)
    {
        auto const rect = text->firstRectForCharacterRange({ character, 1 });
        person().click(onScreen(*text, { rect.midX(), rect.midY() }), { .button = 1 });
    }
    NSMenu* menu() { return text->menuForEvent(*mouseEvent(NSRightMouseDown, *text, { 5, 5 })); }
    /// Which items can be chosen.
    std::vector<std::string> enabled()
    {
        std::vector<std::string> titles;
        menu()->update();
        for (auto const& item : menu()->itemArray()) {
            if (item->isEnabled() && !item->isSeparatorItem())
                titles.push_back(item->title());
        }
        return titles;
    }
    void choose(std::string const& title)
    {
        person().then([this, title] {
            auto const* host = MenuTracker::windowOfMenu(*menu());
            ASSERT_NE(host, nullptr);
            auto const rect = static_cast<MenuView*>(host->contentView())->rectOfItem(menu()->indexOfItemWithTitle(title));
            person().click(onScreen(*host->contentView(), { rect.midX(), rect.midY() }));
        });
        pump();
    }

    Ref<NSTextView> text;
};

TEST_F(TextMenuTest, ARightClickSelectsTheWordAndCopies)
{
    rightClick(5);
    choose("Copy");
    EXPECT_EQ(text->selectedRange(), (NSRange { 4, 3 }));
    EXPECT_EQ(NSPasteboard::generalPasteboard().stringForType(NSStringPboardType), "two");
    EXPECT_EQ(text->string(), "one two three");
}

TEST_F(TextMenuTest, ARightClickOnTheSelectionKeepsIt)
{
    text->setSelectedRange({ 0, 7 });
    rightClick(5);
    choose("Cut");
    EXPECT_EQ(text->string(), " three");
    EXPECT_EQ(NSPasteboard::generalPasteboard().stringForType(NSStringPboardType), "one two");
}

TEST_F(TextMenuTest, CutDeleteUndoAndPasteWork)
{
    rightClick(1);
    choose("Delete");
    EXPECT_EQ(text->string(), " two three");
    rightClick(5);
    choose("Undo");
    EXPECT_EQ(text->string(), "one two three");
    NSPasteboard::generalPasteboard().declareTypes({ NSStringPboardType });
    NSPasteboard::generalPasteboard().setString("four", NSStringPboardType);
    rightClick(1);
    choose("Paste");
    EXPECT_EQ(text->string(), "four two three");
    rightClick(1);
    choose("Select All");
    EXPECT_EQ(text->selectedRange(), (NSRange { 0, 14 }));
}

TEST_F(TextMenuTest, OnlyWhatMakesSenseIsEnabled)
{
    using Titles = std::vector<std::string>;
    NSPasteboard::generalPasteboard().declareTypes({});
    EXPECT_EQ(enabled(), Titles { "Select All" });
    text->setSelectedRange({ 0, 3 });
    EXPECT_EQ(enabled(), (Titles { "Cut", "Copy", "Delete", "Select All" }));
    text->setEditable(false);
    EXPECT_EQ(enabled(), (Titles { "Copy", "Select All" }));
    text->setString("");
    EXPECT_EQ(enabled(), Titles {});
    text->setSelectable(false);
    EXPECT_EQ(menu(), nullptr);
}

TEST_F(TextMenuTest, AHostsMenuComesFirst)
{
    auto const own = make<NSMenu>("own");
    text->setMenu(own);
    EXPECT_EQ(menu(), own.get());
}

TEST_F(TextMenuTest, AFieldThatIsEditedHasTheMenuToo)
{
    field->setStringValue("typed text");
    window->makeFirstResponder(field.get());
    editor().setSelectedRange({ 0, 0 });
    auto const rect = editor().firstRectForCharacterRange({ 7, 1 });
    person().click(onScreen(editor(), { rect.midX(), rect.midY() }), { .button = 1 });
    person().key(NSEscapeCharacter, 0);
    pump();
    EXPECT_EQ(editor().selectedRange(), (NSRange { 6, 4 }));
    EXPECT_NE(field->currentEditor(), nullptr);
}

}
}
