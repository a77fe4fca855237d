#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/images.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindowDelegate.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/windows/PLIXProgressWindow.h>
#include <plix/windows/PLIXProgressWindowNIBLoader.h>

#include <cstdlib>

namespace plix {
namespace {

/// Counts what it is told; lets go of the window when it is told to.
class CancelReceiver : public NSObject {
    PLIX_CLASS(CancelReceiver, NSObject);

public:
    void progressWindowCanceled(PLIXProgressWindow& window)
    {
        ++count;
        sender = &window;
        if (releases) {
            held->close();
            held->setDelegate(nullptr);
            held = nullptr;
        }
    }
    void windowWillClose(NSNotification const&) { ++closings; }

    int count { 0 };
    int closings { 0 };
    bool releases { false };
    PLIXProgressWindow* sender { nullptr };
    Ref<PLIXProgressWindow> held;
};
PLIX_DESCRIBE(CancelReceiver)
{
}

class Indifferent : public NSObject {
    PLIX_CLASS(Indifferent, NSObject);
};
PLIX_DESCRIBE(Indifferent)
{
}

class PLIXProgressWindowTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        app().setApplicationIconImage(imageOfColor({ 64, 64 }, { 0, 0, 1, 1 }));
        window = make<PLIXProgressWindow>();
        ASSERT_TRUE(window);
    }
    void show()
    {
        window->makeKeyAndOrderFront(nullptr);
        pump();
    }
    Ref<PLIXProgressWindow> window;
};

TEST_F(PLIXProgressWindowTest, IsTheWindowOfItsInterfaceFile)
{
    for (auto const* part : std::initializer_list<NSView*> { window->progressView(), window->iconView(),
             window->progressIndicator(), window->titleField(), window->stepField(), window->cancelButton() }) {
        ASSERT_NE(part, nullptr);
        EXPECT_EQ(part->window(), window.get());
        EXPECT_TRUE(part->isDescendantOf(*window->progressView()));
    }
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->isCancelHidden());
    EXPECT_EQ(window->backgroundMode(), 1);
    EXPECT_EQ(window->iconView()->image(), app().applicationIconImage());
    EXPECT_TRUE(window->progressIndicator()->isIndeterminate());
    EXPECT_EQ(window->stepField()->stringValue(), "");
    EXPECT_EQ(window->cancelButton()->action(), Selector("cancelButton:"));
    EXPECT_EQ(window->cancelButton()->target(), window.get());
    EXPECT_EQ(window->delegate(), nullptr);
    for (auto const* field : { window->titleField(), window->stepField() }) {
        EXPECT_FALSE(field->isEditable());
        EXPECT_FALSE(field->isBezeled());
        EXPECT_FALSE(field->drawsBackground());
    }
}

TEST_F(PLIXProgressWindowTest, IsANewOneEachTime)
{
    auto const other = PLIXProgressWindow::progressWindow();
    ASSERT_TRUE(other);
    EXPECT_NE(other, window);
    EXPECT_NE(other->cancelButton(), window->cancelButton());
}

TEST_F(PLIXProgressWindowTest, LivesAsLongAsItsOwnerWants)
{
    Weak<PLIXProgressWindow> const watched(window);
    show();
    window->close();
    EXPECT_TRUE(watched);
    window = nullptr;
    pump();
    EXPECT_FALSE(watched);
}

TEST_F(PLIXProgressWindowTest, IsNilWithoutItsInterfaceFile)
{
    TestFolder const folder;
    folder.write("ProgressWindow.xib", "not a document");
    auto const broken = NSBundle::bundleWithPath(folder.path());
    NSBundle::registerBundle("plix", *broken);
    std::vector<std::string> lines;
    auto const before = installLogSink([&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_EQ(make<PLIXProgressWindow>(), nullptr);
    EXPECT_EQ(PLIXProgressWindow::progressWindow(), nullptr);
    installLogSink(before);
    NSBundle::registerBundle("plix", NSBundle::libraryBundle());
    EXPECT_EQ(lines.size(), 2U);
    EXPECT_NE(make<PLIXProgressWindow>(), nullptr);
}

TEST_F(PLIXProgressWindowTest, IsNilWhereTheFileHasNoneForTheLoader)
{
    TestFolder const folder;
    folder.write("ProgressWindow.xib", R"(<?xml version="1.0"?><document type="com.apple.InterfaceBuilder3.Cocoa.XIB" version="3.0">
        <objects><customObject id="-2" customClass="PLIXProgressWindowNIBLoader"/></objects></document>)");
    auto const hollow = NSBundle::bundleWithPath(folder.path());
    NSBundle::registerBundle("plix", *hollow);
    EXPECT_EQ(make<PLIXProgressWindow>(), nullptr);
    EXPECT_EQ(PLIXProgressWindow::progressWindow(), nullptr);
    NSBundle::registerBundle("plix", NSBundle::libraryBundle());
}

TEST_F(PLIXProgressWindowTest, IsNilWhereThereIsNoInterfaceFileAtAll)
{
    TestFolder const folder;
    // The library's own bundle is looked into last; only a process that ends may lose what is in it.
    EXPECT_EXIT(
        {
            NSBundle::libraryBundle().init({ folder.path() });
            TestSurroundings surroundings;
            surroundings.languages = { "fi" }; // so that it looks for its folders anew
            bool const isMade = make<PLIXProgressWindow>() || PLIXProgressWindow::progressWindow();
            std::_Exit(isMade ? 1 : 0);
        },
        testing::ExitedWithCode(0), "\"ProgressWindow\" is not there");
    EXPECT_NE(make<PLIXProgressWindow>(), nullptr);
}

TEST_F(PLIXProgressWindowTest, IsMadeByItsNameToo)
{
    auto const* described = NSClassFromString("PLIXProgressWindow");
    ASSERT_NE(described, nullptr);
    auto const made = as<PLIXProgressWindow>(described->makeObject());
    ASSERT_TRUE(made);
    EXPECT_NE(made->cancelButton(), nullptr);
    EXPECT_NE(NSClassFromString("PLIXProgressWindowNIBLoader"), nullptr);
}

TEST_F(PLIXProgressWindowTest, IsNarrowerByTheButtonWithoutCancel)
{
    Rect const before = window->frame();
    float const button = window->cancelButton()->bounds().width;
    auto const indicator = window->progressIndicator()->frame();
    Rect const narrow { before.x, before.y, before.width - button, before.height };
    for (int i = 0; i < 2; ++i) {
        window->setCancelHidden(true);
        EXPECT_EQ(window->frame(), narrow);
        EXPECT_TRUE(window->isCancelHidden());
        EXPECT_TRUE(window->cancelButton()->isHidden());
        EXPECT_FALSE(window->cancelButton()->isEnabled());
        EXPECT_EQ(window->progressIndicator()->frame(), indicator);
        EXPECT_LE(window->titleField()->frame().maxX(), narrow.width);
    }
    for (int i = 0; i < 2; ++i) {
        window->setCancelHidden(false);
        EXPECT_EQ(window->frame(), before);
        EXPECT_FALSE(window->isCancelHidden());
        EXPECT_FALSE(window->cancelButton()->isHidden());
        EXPECT_TRUE(window->cancelButton()->isEnabled());
    }
    window->setCancelHidden(false);
    EXPECT_EQ(window->frame(), before);
}

TEST_F(PLIXProgressWindowTest, WithoutAButtonOnlyTheAnswerChanges)
{
    TestFolder const folder;
    folder.write("ProgressWindow.xib", R"(<?xml version="1.0"?><document type="com.apple.InterfaceBuilder3.Cocoa.XIB" version="3.0">
        <objects><customObject id="-2" customClass="PLIXProgressWindowNIBLoader"><connections>
        <outlet property="progressWindow" destination="1" id="30"/></connections></customObject>
        <window title="Bare" releasedWhenClosed="NO" visibleAtLaunch="NO" id="1" customClass="PLIXProgressWindow">
        <windowStyleMask key="styleMask" titled="YES"/><rect key="contentRect" x="40" y="46" width="300" height="104"/>
        <view key="contentView" id="2"><rect key="frame" x="0" y="0" width="300" height="104"/></view></window>
        </objects></document>)");
    auto const bareBundle = NSBundle::bundleWithPath(folder.path());
    NSBundle::registerBundle("plix", *bareBundle);
    auto const bare = make<PLIXProgressWindow>();
    NSBundle::registerBundle("plix", NSBundle::libraryBundle());
    ASSERT_TRUE(bare);
    EXPECT_EQ(bare->cancelButton(), nullptr);
    EXPECT_EQ(bare->iconView(), nullptr);
    Rect const before = bare->frame();
    for (bool const hidden : { true, false }) {
        bare->setCancelHidden(hidden);
        EXPECT_EQ(bare->isCancelHidden(), hidden);
        EXPECT_EQ(bare->frame(), before);
    }
}

TEST_F(PLIXProgressWindowTest, TellsItsDelegateOfCancelAndDoesNothingElse)
{
    auto const delegate = make<CancelReceiver>();
    window->setDelegate(delegate);
    show();
    clickCenter(*window->cancelButton());
    EXPECT_EQ(delegate->count, 1);
    EXPECT_EQ(delegate->sender, window.get());
    key(NSEscapeCharacter);
    EXPECT_EQ(delegate->count, 2);
    EXPECT_TRUE(window->isVisible());
    window->setCancelHidden(true);
    key(NSEscapeCharacter);
    EXPECT_EQ(delegate->count, 2);
    window->close();
    EXPECT_EQ(delegate->closings, 0);
}

TEST_F(PLIXProgressWindowTest, TellsNobodyWhoDoesNotListen)
{
    show();
    clickCenter(*window->cancelButton());
    auto const delegate = make<Indifferent>();
    window->setDelegate(delegate);
    clickCenter(*window->cancelButton());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->delegate(), delegate.get());
}

TEST_F(PLIXProgressWindowTest, HoldsItsDelegate)
{
    auto delegate = make<CancelReceiver>();
    Weak<CancelReceiver> const watched(delegate);
    window->setDelegate(delegate);
    delegate = nullptr;
    EXPECT_TRUE(watched);
    EXPECT_EQ(window->delegate(), watched.get());
    EXPECT_EQ(static_cast<NSWindow&>(*window).delegate(), watched.get());
    window->setDelegate(make<Indifferent>());
    EXPECT_FALSE(watched);
    window->setDelegate(nullptr);
    EXPECT_EQ(window->delegate(), nullptr);
    window->setDelegate(make<CancelReceiver>());
    Weak<NSObject> const last(window->delegate());
    window = nullptr;
    EXPECT_FALSE(last);
}

TEST_F(PLIXProgressWindowTest, ADelegateSetAgainStays)
{
    window->setDelegate(make<CancelReceiver>());
    auto* const delegate = dynamic_cast<CancelReceiver*>(window->delegate());
    Weak<CancelReceiver> const watched(delegate);
    window->setDelegate(Ref<CancelReceiver>(delegate));
    ASSERT_TRUE(watched);
    EXPECT_EQ(window->delegate(), delegate);
    show();
    clickCenter(*window->cancelButton());
    EXPECT_EQ(delegate->count, 1);
}

TEST_F(PLIXProgressWindowTest, ItsDelegateMayLetGoOfItWhenItIsCanceled)
{
    auto const delegate = make<CancelReceiver>();
    delegate->releases = true;
    delegate->held = window;
    window->setDelegate(delegate);
    show();
    Weak<PLIXProgressWindow> const watched(window);
    person().click(centerOnScreen(*window->cancelButton()));
    window = nullptr;
    pump();
    EXPECT_EQ(delegate->count, 1);
    EXPECT_FALSE(watched);
}

TEST_F(PLIXProgressWindowTest, ADelegateThatOnlyTheWindowHoldsMayLetGoOfItToo)
{
    Weak<PLIXProgressWindow> const watched(window);
    auto delegate = make<CancelReceiver>();
    Weak<CancelReceiver> const watchedDelegate(delegate);
    delegate->releases = true;
    window->setDelegate(delegate);
    show();
    delegate->held = std::exchange(window, nullptr);
    delegate = nullptr;
    person().click(centerOnScreen(*watched->cancelButton()));
    pump();
    EXPECT_FALSE(watched);
    EXPECT_FALSE(watchedDelegate);
}

TEST_F(PLIXProgressWindowTest, SpeaksTheUsersLanguage)
{
    TestSurroundings surroundings;
    struct Row {
        std::vector<std::string> languages;
        char const* title;
        char const* waiting;
        char const* cancel;
    };
    for (auto const& row : {
             Row { { "en_US" }, "Progress", "Please wait…", "Cancel" },
             Row { { "de_AT", "en" }, "Fortschritt", "Bitte warten …", "Abbrechen" },
             Row { { "fr" }, "Progression", "Veuillez patienter…", "Annuler" },
             Row { { "ja_JP" }, "進行状況", "しばらくお待ちください…", "キャンセル" },
             Row { { "fi", "de" }, "Fortschritt", "Bitte warten …", "Abbrechen" },
             Row { { "fi" }, "Progress", "Please wait…", "Cancel" },
             Row { { "en" }, "Progress", "Please wait…", "Cancel" },
         }) {
        surroundings.languages = row.languages;
        auto const localized = make<PLIXProgressWindow>();
        EXPECT_EQ(localized->title(), row.title);
        EXPECT_EQ(localized->titleField()->stringValue(), row.waiting);
        EXPECT_EQ(localized->cancelButton()->title(), row.cancel);
        EXPECT_LE(localized->cancelButton()->cell()->cellSize().width, localized->cancelButton()->frame().width) << row.cancel;
    }
}

}
}
