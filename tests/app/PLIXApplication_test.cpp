#include <plix/app/PLIXApplication.h>

#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>

#include <plix/platform/appkit/NSDocument.h>
#include <plix/platform/appkit/NSDocumentController.h>
#include <plix/platform/appkit/NSWindowController.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char const* mouseDown = "PLIXApplicationMouseDownNotification";
constexpr char const* userInput = "PLIXApplicationUserInputNotification";

class PLIXApplicationTest : public HeadlessTest {
protected:
    void makeApplication() override { PLIXApplication::sharedApplication(); }
    void SetUp() override
    {
        HeadlessTest::SetUp();
        auto& center = NSNotificationCenter::defaultCenter();
        for (auto const* name : { mouseDown, userInput }) {
            m_tokens.push_back(center.addObserver(
                [this](NSNotification const& notification) {
                    posted.push_back(notification.name);
                    EXPECT_EQ(notification.object, NSApp.get());
                    EXPECT_TRUE(notification.userInfo.empty());
                    if (whenPosted)
                        whenPosted();
                },
                name));
        }
    }
    PLIXApplication& hub() { return static_cast<PLIXApplication&>(app()); }
    double now() { return clock().now().timeIntervalSince1970(); }

    std::vector<std::string> posted;
    std::function<void()> whenPosted;

private:
    std::vector<Ref<NSObject>> m_tokens;
};

Ref<NSEvent> eventOfType(NSEventType type)
{
    switch (type) {
    case NSKeyDown:
    case NSKeyUp:
    case NSFlagsChanged:
        return NSEvent::keyEventWithType(type, {}, 0, 0, 0, nullptr, "a", "a", false, 0);
    case NSMouseEntered:
    case NSMouseExited:
    case NSCursorUpdate:
        return NSEvent::enterExitEventWithType(type, {}, 0, 0, 0, nullptr, 0, 0, nullptr);
    case NSAppKitDefined:
    case NSSystemDefined:
    case NSApplicationDefined:
    case NSPeriodic:
        return NSEvent::otherEventWithType(type, {}, 0, 0, 0, nullptr, 0, 0, 0);
    case NSScrollWheel:
        return NSEvent::scrollWheelEvent({}, 0, 0, 0, 0, 1);
    default:
        return NSEvent::mouseEventWithType(type, {}, 0, 0, 0, nullptr, 0, 1, 1);
    }
}

TEST_F(PLIXApplicationTest, IsTheSharedApplication)
{
    EXPECT_EQ(&PLIXApplication::sharedApplication(), NSApp.get());
    EXPECT_EQ(&NSApplication::sharedApplication(), NSApp.get());
    EXPECT_TRUE(app().isMemberOfClass(PLIXApplication::staticClass()));
    EXPECT_EQ(NSClassFromString("PLIXApplication"), &PLIXApplication::staticClass());
}

TEST_F(PLIXApplicationTest, StartsWithoutAnEventAndWithoutShortCircuit)
{
    EXPECT_EQ(hub().lastEventTimestamp(), 0.0);
    EXPECT_FALSE(hub().shortCircuitRequestUserAttention());
    hub().setShortCircuitRequestUserAttention(true);
    EXPECT_TRUE(hub().shortCircuitRequestUserAttention());
}

TEST_F(PLIXApplicationTest, EveryTypeOfEventPostsWhatItShallAndIsStamped)
{
    struct Row {
        NSEventType type;
        int number;
        std::vector<std::string> expected;
    };
    std::vector<std::string> const nothing;
    std::vector<std::string> const input { userInput };
    Row const rows[] = {
        { NSLeftMouseDown, 1, { mouseDown, userInput } },
        { NSLeftMouseUp, 2, input },
        { NSRightMouseDown, 3, input },
        { NSRightMouseUp, 4, input },
        { NSMouseMoved, 5, nothing },
        { NSLeftMouseDragged, 6, input },
        { NSRightMouseDragged, 7, input },
        { NSMouseEntered, 8, nothing },
        { NSMouseExited, 9, nothing },
        { NSKeyDown, 10, input },
        { NSKeyUp, 11, nothing },
        { NSFlagsChanged, 12, nothing },
        { NSAppKitDefined, 13, nothing },
        { NSSystemDefined, 14, nothing },
        { NSApplicationDefined, 15, nothing },
        { NSPeriodic, 16, nothing },
        { NSCursorUpdate, 17, nothing },
        { NSScrollWheel, 22, nothing },
        { NSOtherMouseDown, 25, input },
        { NSOtherMouseUp, 26, input },
        { NSOtherMouseDragged, 27, input },
    };
    for (auto const& row : rows) {
        machine().headlessClock().advance(1);
        auto const event = eventOfType(row.type);
        ASSERT_TRUE(event) << row.number;
        posted.clear();
        app().sendEvent(*event);
        EXPECT_EQ(event->type(), row.number);
        EXPECT_EQ(posted, row.expected) << row.number;
        EXPECT_EQ(hub().lastEventTimestamp(), now()) << row.number;
    }
}

TEST_F(PLIXApplicationTest, ObserversStillReadThePreviousEventsTime)
{
    app().sendEvent(*eventOfType(NSMouseMoved));
    auto const before = hub().lastEventTimestamp();
    EXPECT_GT(before, 0);
    std::vector<double> seen;
    whenPosted = [&] { seen.push_back(hub().lastEventTimestamp()); };
    machine().headlessClock().advance(60);
    app().sendEvent(*eventOfType(NSLeftMouseDown));
    EXPECT_THAT(seen, ElementsAre(before, before));
    EXPECT_EQ(hub().lastEventTimestamp(), before + 60);
}

TEST_F(PLIXApplicationTest, TheTimeIsTakenAfterTheNotifications)
{
    whenPosted = [&] { machine().headlessClock().advance(10); };
    auto const start = now();
    app().sendEvent(*eventOfType(NSKeyDown));
    EXPECT_EQ(hub().lastEventTimestamp(), start + 10);
}

TEST_F(PLIXApplicationTest, ObserversRunBeforeTheWindowGetsTheEvent)
{
    auto const view = make<CountingView>(Rect {});
    auto const window = showWindowWith(view);
    view->forget();
    posted.clear();
    std::vector<std::size_t> handledWhenPosted;
    whenPosted = [&] { handledWhenPosted.push_back(view->log.size()); };
    double seenByView = 0;
    view->whenEvent = [&](NSEvent&) { seenByView = hub().lastEventTimestamp(); };
    machine().headlessClock().advance(5);
    clickCenter(*view);
    EXPECT_THAT(posted, ElementsAre(mouseDown, userInput, userInput));
    EXPECT_THAT(handledWhenPosted, ElementsAre(0, 0, 1));
    EXPECT_THAT(view->log, ElementsAre("mouseDown", "mouseUp"));
    EXPECT_EQ(seenByView, now());
}

TEST_F(PLIXApplicationTest, AnObserverMayCloseTheWindowTheEventIsFor)
{
    auto const view = make<CountingView>(Rect {});
    auto const window = showWindowWith(view);
    view->forget();
    whenPosted = [&] { window->close(); };
    clickCenter(*view);
    EXPECT_EQ(std::ranges::count(view->log, "mouseDown"), 0);
    EXPECT_FALSE(window->isVisible());
}

// Terminating.

class Editor final : public NSView {
public:
    bool acceptsFirstResponder() const override { return true; }
    bool resignFirstResponder() override
    {
        isCommitted = true;
        return !refuses;
    }
    bool isCommitted { false };
    bool refuses { false };
};

class TerminateHost : public NSObject {
public:
    Editor* editor { nullptr };
    bool wasCommitted { false };
    int asked { 0 };
    NSApplicationTerminateReply applicationShouldTerminate(NSApplication&)
    {
        ++asked;
        wasCommitted = editor && editor->isCommitted;
        return NSTerminateNow;
    }
};

class PLIXApplicationTerminating : public PLIXApplicationTest {
protected:
    void SetUp() override
    {
        PLIXApplicationTest::SetUp();
        app().setExitHandler([this] { ++exits; });
        editor = make<Editor>();
        host = make<TerminateHost>();
        host->editor = editor.get();
        app().setDelegate(host);
    }
    Ref<NSDocument> openDocument()
    {
        auto document = make<NSDocument>();
        auto const window = make<NSWindow>(usualContent, usualStyle, NSBackingStoreBuffered, true);
        window->contentView()->addSubview(*editor);
        document->addWindowController(*make<NSWindowController>(window));
        NSDocumentController::sharedDocumentController().addDocument(*document);
        document->showWindows();
        window->makeFirstResponder(editor.get());
        return document;
    }

    int exits { 0 };
    Ref<Editor> editor;
    Ref<TerminateHost> host;
};

TEST_F(PLIXApplicationTerminating, CommitsWhatIsEditedInTheCurrentDocumentFirst)
{
    auto const document = openDocument();
    app().terminate(nullptr);
    EXPECT_TRUE(host->wasCommitted);
    EXPECT_EQ(exits, 1);
    auto* const window = document->windowControllers().front()->window();
    EXPECT_EQ(window->firstResponder(), window);
    document->close();
}

TEST_F(PLIXApplicationTerminating, GoesOnWhereTheEditorRefuses)
{
    auto const document = openDocument();
    editor->refuses = true;
    app().terminate(nullptr);
    EXPECT_TRUE(host->wasCommitted);
    EXPECT_EQ(exits, 1);
    document->close();
}

TEST_F(PLIXApplicationTerminating, WithoutACurrentDocumentGoesStraightOn)
{
    auto const window = showWindow();
    window->contentView()->addSubview(*editor);
    window->makeFirstResponder(editor.get());
    app().terminate(nullptr);
    EXPECT_FALSE(editor->isCommitted);
    EXPECT_EQ(host->asked, 1);
    EXPECT_EQ(exits, 1);
}

TEST_F(PLIXApplicationTerminating, OnlyTheFirstWindowOfTheDocumentCommits)
{
    auto const document = openDocument();
    auto const second = make<NSWindow>(usualContent, usualStyle, NSBackingStoreBuffered, true);
    auto const other = make<Editor>();
    second->contentView()->addSubview(*other);
    document->addWindowController(*make<NSWindowController>(second));
    second->makeKeyAndOrderFront(nullptr);
    second->makeFirstResponder(other.get());
    app().terminate(nullptr);
    EXPECT_TRUE(editor->isCommitted);
    EXPECT_FALSE(other->isCommitted);
    document->close();
}

TEST_F(PLIXApplicationTerminating, ADocumentWithoutWindowsIsPassedOver)
{
    auto const document = openDocument();
    auto const controller = document->windowControllers().front();
    auto const window = Ref<NSWindow>(controller->window());
    document->removeWindowController(*controller);
    controller->setDocument(document.get());
    EXPECT_EQ(NSDocumentController::sharedDocumentController().currentDocument(), document.get());
    app().terminate(nullptr);
    EXPECT_FALSE(editor->isCommitted);
    EXPECT_EQ(exits, 1);
    document->close();
}

// Attention.

class PLIXApplicationAttention : public PLIXApplicationTest {
protected:
    void SetUp() override
    {
        PLIXApplicationTest::SetUp();
        window = showWindow();
        person().focusNothing();
        pump();
    }
    bool wantsAttention() { return hostWindow(*window)->wantsAttention(); }

    Ref<NSWindow> window;
};

TEST_F(PLIXApplicationAttention, WithoutShortCircuitRequestsReachThePlatform)
{
    EXPECT_NE(app().requestUserAttention(NSCriticalRequest), 0);
    EXPECT_TRUE(wantsAttention());
    EXPECT_NE(app().requestUserAttention(NSInformationalRequest), 0);
}

TEST_F(PLIXApplicationAttention, WithItACriticalRequestNeverReachesThePlatform)
{
    hub().setShortCircuitRequestUserAttention(true);
    EXPECT_EQ(app().requestUserAttention(NSCriticalRequest), 0);
    EXPECT_FALSE(wantsAttention());
    hub().setShortCircuitRequestUserAttention(false);
    // The platform has given no number away.
    auto const first = app().requestUserAttention(NSCriticalRequest);
    hub().setShortCircuitRequestUserAttention(true);
    app().requestUserAttention(NSCriticalRequest);
    hub().setShortCircuitRequestUserAttention(false);
    EXPECT_EQ(app().requestUserAttention(NSCriticalRequest), first + 1);
}

TEST_F(PLIXApplicationAttention, WithItAnInformationalRequestIsMadeAndWithdrawnAtOnce)
{
    auto const first = app().requestUserAttention(NSInformationalRequest);
    app().cancelUserAttentionRequest(first);
    hub().setShortCircuitRequestUserAttention(true);
    EXPECT_EQ(app().requestUserAttention(NSInformationalRequest), first + 1);
    EXPECT_FALSE(wantsAttention());
}

TEST_F(PLIXApplicationAttention, WithdrawingLeavesEarlierRequestsStanding)
{
    app().requestUserAttention(NSCriticalRequest);
    hub().setShortCircuitRequestUserAttention(true);
    app().requestUserAttention(NSInformationalRequest);
    EXPECT_TRUE(wantsAttention());
}

}
}
