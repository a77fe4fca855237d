#include <examples/browser/BrowserController.h>
#include <examples/browser/FilesTable.h>
#include <examples/browser/JobController.h>
#include <examples/browser/PreferencesWindow.h>

#include <plix/app/PLIXApplication.h>
#include <plix/controls/PLIXTabView.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/host/headless/HeadlessAudio.h>
#include <plix/platform/host/headless/HeadlessSpeech.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>
#include <plix/tables/PLIXTableView.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>

#include <gmock/gmock.h>

#include <fstream>

namespace browser {
namespace {

using namespace plix;

class BrowserPreferences : public HeadlessTest {
protected:
    void makeApplication() override { PLIXApplication::sharedApplication(); }
    void SetUp() override
    {
        HeadlessTest::SetUp();
        std::ofstream(folder / "notes.txt") << std::string(1234, 'x');
        std::ofstream(folder / ".secret") << "x";
        show();
    }
    void TearDown() override
    {
        controller->window().close();
        for (auto const* key : { "BrowserShowsStripes", "BrowserShowsHiddenFiles", "BrowserShowsExactSizes", "BrowserPlaysSound",
                 "BrowserSound", "BrowserSpeaks" })
            NSUserDefaults::standardUserDefaults().removeObjectForKey(key);
    }
    void show()
    {
        controller = make<BrowserController>(folder.path());
        controller->window().setReleasedWhenClosed(false);
        controller->window().makeKeyAndOrderFront(nullptr);
        pump();
    }
    PreferencesWindow& open()
    {
        key(U',', NSControlKeyMask);
        return *controller->preferencesWindow();
    }
    FilesTable& files() { return controller->files(); }
    PLIXTableView& table() { return files().table(); }
    void selectTab(long index)
    {
        auto& tabs = controller->preferencesWindow()->tabs();
        auto const rect = tabs.rectForTabViewItem(*tabs.tabViewItemAtIndex(index));
        click(tabs, { rect.midX(), rect.midY() });
    }
    std::string textAt(std::string_view column, long row)
    {
        auto* shown = table().tableColumnWithIdentifier(column);
        return files().objectValueForTableColumn(table(), *shown, row).description();
    }

    TestFolder folder;
    Ref<BrowserController> controller;
};

TEST_F(BrowserPreferences, OpenByControlComma)
{
    EXPECT_EQ(controller->preferencesWindow(), nullptr);
    auto const& window = open();
    EXPECT_TRUE(window.panel().isKeyWindow());
    EXPECT_EQ(window.tabs().numberOfTabViewItems(), 3);
    EXPECT_EQ(window.panel().firstResponder(), &window.tabs());
    key(NSEscapeCharacter);
    EXPECT_FALSE(window.panel().isVisible());
    EXPECT_TRUE(controller->window().isKeyWindow());
    open();
    EXPECT_EQ(controller->preferencesWindow(), &window);
    EXPECT_TRUE(window.panel().isVisible());
}

TEST_F(BrowserPreferences, OpenFromTheMenu)
{
    auto* const item = table().menu()->itemWithTitle("Preferences…");
    ASSERT_TRUE(item);
    EXPECT_EQ(item->keyEquivalent(), ",");
    item->sendAction();
    ASSERT_TRUE(controller->preferencesWindow());
    EXPECT_TRUE(controller->preferencesWindow()->panel().isVisible());
}

TEST_F(BrowserPreferences, CloseWithTheirWindow)
{
    Ref<PreferencesWindow> const window(open());
    controller->window().close();
    EXPECT_FALSE(window->panel().isVisible());
}

TEST_F(BrowserPreferences, FitTheTabThatIsShown)
{
    auto const& window = open();
    float const top = window.panel().frame().maxY();
    float const general = window.panel().frame().height;
    selectTab(2);
    float const sounds = window.panel().frame().height;
    EXPECT_LT(sounds, general);
    EXPECT_EQ(window.panel().frame().maxY(), top);
    selectTab(1);
    selectTab(0);
    EXPECT_EQ(window.panel().frame().height, general);
}

TEST_F(BrowserPreferences, SwitchesActAtOnce)
{
    auto const& window = open();
    EXPECT_TRUE(table().usesAlternatingRowBackgroundColors());
    clickCenter(window.stripes());
    EXPECT_FALSE(table().usesAlternatingRowBackgroundColors());

    EXPECT_EQ(files().shownEntries(), 2U);
    clickCenter(window.hiddenFiles());
    EXPECT_EQ(files().shownEntries(), 1U);
    EXPECT_EQ(controller->status(), "1 of 2 items");

    EXPECT_EQ(textAt("size", 0), "1.2KB");
    clickCenter(window.exactSizes());
    EXPECT_NE(textAt("size", 0).find("1,234"), std::string::npos);
    clickCenter(window.exactSizes());
    EXPECT_EQ(textAt("size", 0), "1.2KB");
}

TEST_F(BrowserPreferences, AFolderOfHiddenFilesSaysSo)
{
    auto const& window = open();
    ::unlink((folder / "notes.txt").c_str());
    clickCenter(window.hiddenFiles());
    controller->open(folder.path());
    pump();
    EXPECT_EQ(table().numberOfRows(), 0);
    EXPECT_EQ(table().emptyString(), "All that is in this folder is hidden.");
}

TEST_F(BrowserPreferences, ColumnsAreHiddenAndShown)
{
    auto const& window = open();
    selectTab(1);
    ASSERT_EQ(window.columns().size(), 3U);
    EXPECT_EQ(window.columns()[1]->title(), "Kind");
    clickCenter(*window.columns()[1]);
    EXPECT_TRUE(table().tableColumnWithIdentifier("kind")->isHidden());
    EXPECT_FALSE(table().tableColumnWithIdentifier("size")->isHidden());
    clickCenter(*window.columns()[1]);
    EXPECT_FALSE(table().tableColumnWithIdentifier("kind")->isHidden());
    table().tableColumnWithIdentifier("date")->setHidden(true);
    controller->showPreferences();
    EXPECT_EQ(window.columns()[2]->state(), NSOffState);
}

TEST_F(BrowserPreferences, TheSoundWaitsForItsSwitch)
{
    auto const& window = open();
    selectTab(2);
    EXPECT_FALSE(window.sounds().isEnabled());
    EXPECT_EQ(window.sounds().titleOfSelectedItem(), "Beep");
    clickCenter(window.playsSound());
    EXPECT_TRUE(window.sounds().isEnabled());
    EXPECT_TRUE(controller->preferences().playsSound);
}

TEST_F(BrowserPreferences, ACopyIsHeardWhereThatIsWanted)
{
    auto const copyNotes = [this] {
        files().selectName("notes.txt");
        controller->window().makeKeyAndOrderFront(nullptr);
        key(U'c', NSControlKeyMask);
        key(U'v', NSControlKeyMask);
        EXPECT_TRUE(NSRunLoop::currentRunLoop().runUntil([this] { return controller->jobs().empty(); }));
        pump();
    };
    auto& audio = machine().headlessAudio();
    audio.setHasAlertSound(true);
    copyNotes();
    EXPECT_EQ(files().shownEntries(), 3U);
    EXPECT_EQ(audio.beepCount(), 0);
    auto const& window = open();
    selectTab(2);
    clickCenter(window.playsSound());
    copyNotes();
    EXPECT_EQ(audio.beepCount(), 1);
}

TEST_F(BrowserPreferences, NamesAreSpokenWhereThatIsWanted)
{
    auto& speech = machine().headlessSpeech();
    files().selectName("notes.txt");
    EXPECT_THAT(speech.texts(), testing::IsEmpty());
    auto const& window = open();
    clickCenter(window.speaks());
    EXPECT_TRUE(controller->preferences().speaks);
    controller->window().makeKeyAndOrderFront(nullptr);
    files().selectName(".secret");
    files().selectName("notes.txt");
    key(U't', NSControlKeyMask);
    EXPECT_TRUE(NSRunLoop::currentRunLoop().runUntil([this] { return controller->jobs().empty(); }));
    EXPECT_THAT(speech.texts(), testing::ElementsAre(".secret", "notes.txt", "In “notes.txt”: 1 item, 1.2KB"));
    // What is said cuts short what was said before.
    EXPECT_EQ(speech.utterances()[0].how, SpeechEnd::Stopped);
    EXPECT_FALSE(speech.utterances()[2].end.has_value());
    PLIXSpeechSynthesizer::classStopSpeaking();
}

TEST_F(BrowserPreferences, AreKeptForTheNextTime)
{
    controller->rememberLayout();
    auto const& window = open();
    clickCenter(window.stripes());
    clickCenter(window.exactSizes());
    clickCenter(window.speaks());
    controller->window().close();
    show();
    EXPECT_EQ(controller->preferences(), Preferences {});
    controller->rememberLayout();
    EXPECT_FALSE(controller->preferences().showsStripes);
    EXPECT_TRUE(controller->preferences().showsExactSizes);
    EXPECT_TRUE(controller->preferences().speaks);
    EXPECT_TRUE(controller->preferences().showsHiddenFiles);
    EXPECT_FALSE(table().usesAlternatingRowBackgroundColors());
    EXPECT_EQ(open().stripes().state(), NSOffState);
}

}
}
