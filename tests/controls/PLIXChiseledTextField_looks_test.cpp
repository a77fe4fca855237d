#include <tests/support/ChiseledTest.h>
#include <tests/support/pixels.h>

#include <plix/controls/window_activity.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

#include <algorithm>
#include <numeric>

namespace plix {
namespace {

class OwnWindow : public NSWindow {
public:
    using NSWindow::init;
};

class OwnPanel : public NSPanel {
public:
    using NSPanel::init;
};

/// Counts what it is told, and by whom.
class CountingLabel : public PLIXChiseledTextField {
public:
    using PLIXChiseledTextField::init;
    void activate(NSNotification const* sender) override
    {
        note(sender, '+');
        PLIXChiseledTextField::activate(sender);
    }
    void deactivate(NSNotification const* sender) override
    {
        note(sender, '-');
        PLIXChiseledTextField::deactivate(sender);
    }
    std::string told;
    NSObject* object { nullptr };

private:
    void note(NSNotification const* sender, char what)
    {
        if (!sender)
            return;
        told += what;
        object = sender->object.get();
    }
};

class ChiseledLooksTest : public ChiseledTest {
protected:
    void SetUp() override
    {
        ChiseledTest::SetUp();
        made = make<CountingLabel>(usualFrame);
        made->setStringValue("Engraved");
        colorAll(*made);
        made->activate(nullptr);
    }
    template <typename Window> Ref<Window> windowOf(Rect contentRect = usualContent)
    {
        auto window = make<Window>(contentRect, usualStyle, NSBackingStoreBuffered, false);
        window->setReleasedWhenClosed(false);
        window->makeKeyAndOrderFront(nullptr);
        return window;
    }
    template <typename Window> Ref<Window> windowWithLabel()
    {
        auto window = windowOf<Window>();
        pump();
        window->contentView()->addSubview(*made);
        return window;
    }
    static void post(char const* name, NSObject* object)
    {
        NSNotificationCenter::defaultCenter().postNotificationName(name, object);
    }

    Ref<CountingLabel> made;
};

// MARK: the three looks

TEST_F(ChiseledLooksTest, ALabelHasThreeLooks)
{
    made->activate(nullptr);
    EXPECT_EQ(made->textColor()->components(), NSColor::redColor()->components());
    EXPECT_EQ(made->shadow()->textColor()->components(), NSColor::greenColor()->components());
    made->deactivate(nullptr);
    EXPECT_EQ(made->textColor()->components(), NSColor::blueColor()->components());
    EXPECT_EQ(made->shadow()->textColor()->components(), NSColor::yellowColor()->components());
    made->setEnabled(false);
    EXPECT_EQ(made->textColor()->components(), NSColor::brownColor()->components());
    EXPECT_EQ(made->shadow()->textColor()->components(), NSColor::yellowColor()->components());
    EXPECT_TRUE(made->shadow()->isEnabled());
}

TEST_F(ChiseledLooksTest, EveryStepLeadsToItsLook)
{
    struct Step {
        char const* name;
        void (*take)(CountingLabel&);
    };
    Step const activate { "activate", [](auto& label) { label.activate(nullptr); } };
    Step const deactivate { "deactivate", [](auto& label) { label.deactivate(nullptr); } };
    Step const enable { "enable", [](auto& label) { label.setEnabled(true); } };
    Step const disable { "disable", [](auto& label) { label.setEnabled(false); } };
    struct Row {
        std::vector<Step> steps;
        char const* look;
        bool isActive;
    };
    for (auto const& row : std::vector<Row> {
             { { activate }, "active", true },
             { { deactivate }, "inactive", false },
             { { deactivate, activate }, "active", true },
             { { disable }, "disabled", true },
             { { deactivate, disable }, "disabled", false },
             { { disable, activate }, "disabled", true },
             { { disable, deactivate }, "disabled", false },
             { { disable, deactivate, enable }, "active", false },
             { { disable, enable }, "active", true },
             { { deactivate, enable }, "active", false },
             { { deactivate, disable, enable }, "active", false },
             { { deactivate, disable, enable, deactivate }, "inactive", false },
             { { disable, disable, activate, enable, enable }, "active", true },
         }) {
        auto const own = make<CountingLabel>(usualFrame);
        colorAll(*own);
        std::string taken;
        for (auto const& step : row.steps) {
            step.take(*own);
            taken += std::string(step.name) + ' ';
        }
        EXPECT_EQ(look(*own), row.look) << taken;
        EXPECT_EQ(own->isActive(), row.isActive) << taken;
        EXPECT_EQ(own->isEnabled(), std::string(row.look) != "disabled") << taken;
    }
}

TEST_F(ChiseledLooksTest, AShadowsNewColorAloneIsDrawn)
{
    auto const window = windowWithLabel<NSWindow>();
    made->setInactiveColor(made->activeColor());
    pump();
    EXPECT_FALSE(made->needsDisplay());
    made->deactivate(nullptr);
    EXPECT_TRUE(made->needsDisplay());
    pump();
    made->deactivate(nullptr);
    EXPECT_FALSE(made->needsDisplay());
}

// MARK: plain windows and panels

template <typename Window> class ChiseledInPlainWindows : public ChiseledLooksTest {
};
using PlainWindows = testing::Types<NSWindow, NSPanel>;
class WindowNames {
public:
    template <typename Window> static std::string GetName(int)
    {
        if (std::is_same_v<Window, NSWindow>)
            return "NSWindow";
        return std::is_same_v<Window, NSPanel> ? "NSPanel" : std::is_base_of_v<NSPanel, Window> ? "OwnPanel" : "OwnWindow";
    }
};
TYPED_TEST_SUITE(ChiseledInPlainWindows, PlainWindows, WindowNames);

TYPED_TEST(ChiseledInPlainWindows, ALabelFollowsTheKeyState)
{
    auto const window = this->template windowWithLabel<TypeParam>();
    auto const other = this->showWindow({ 600, 200, 100, 100 });
    EXPECT_EQ(this->look(*this->made), "inactive");
    EXPECT_EQ(this->made->object, window.get());
    window->makeKeyWindow();
    EXPECT_EQ(this->look(*this->made), "active");
    EXPECT_EQ(this->made->told, "-+");
}

TYPED_TEST(ChiseledInPlainWindows, TheKeyWindowsLabelFollowsThePersonAway)
{
    auto const window = this->template windowWithLabel<TypeParam>();
    this->person().focusNothing();
    this->pump();
    EXPECT_EQ(this->look(*this->made), "inactive");
}

TYPED_TEST(ChiseledInPlainWindows, TheApplicationsStateDoesNotCount)
{
    auto const window = this->template windowWithLabel<TypeParam>();
    this->post(NSApplicationDidResignActiveNotification, NSApp.get());
    EXPECT_EQ(this->look(*this->made), "active");
    this->post(NSWindowDidResignKeyNotification, window.get());
    this->post(NSApplicationDidBecomeActiveNotification, NSApp.get());
    EXPECT_EQ(this->look(*this->made), "inactive");
}

TYPED_TEST(ChiseledInPlainWindows, ASheetTurnsTheLabelInactiveUntilTheKeyboardIsBack)
{
    auto const window = this->template windowWithLabel<TypeParam>();
    auto const sheet = make<NSWindow>(Rect { 0, 0, 100, 60 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    sheet->setReleasedWhenClosed(false);
    this->app().beginSheet(*sheet, *window);
    this->pump();
    EXPECT_EQ(this->look(*this->made), "inactive");
    this->app().endSheet(*sheet);
    sheet->orderOut(nullptr);
    this->pump();
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_EQ(this->look(*this->made), "active");
}

TYPED_TEST(ChiseledInPlainWindows, TheBeginningOfASheetIsEnough)
{
    auto const window = this->template windowWithLabel<TypeParam>();
    this->post(NSWindowWillBeginSheetNotification, window.get());
    EXPECT_EQ(this->look(*this->made), "inactive");
    EXPECT_EQ(this->made->told, "-");
}

TYPED_TEST(ChiseledInPlainWindows, ALabelEnabledWithoutTheKeyboardLooksActiveUntilItIsTold)
{
    auto const window = this->template windowWithLabel<TypeParam>();
    auto const other = this->showWindow({ 600, 200, 100, 100 });
    this->made->setEnabled(false);
    EXPECT_EQ(this->look(*this->made), "disabled");
    window->makeKeyWindow();
    other->makeKeyWindow();
    EXPECT_EQ(this->look(*this->made), "disabled");
    this->made->setEnabled(true);
    EXPECT_FALSE(window->isKeyWindow());
    EXPECT_EQ(this->look(*this->made), "active");
    window->makeKeyWindow();
    other->makeKeyWindow();
    EXPECT_EQ(this->look(*this->made), "inactive");
}

// MARK: windows of the host's own

template <typename Window> class ChiseledInOwnWindows : public ChiseledLooksTest {
};
using OwnWindows = testing::Types<OwnWindow, OwnPanel>;
TYPED_TEST_SUITE(ChiseledInOwnWindows, OwnWindows, WindowNames);

TYPED_TEST(ChiseledInOwnWindows, ALabelFollowsTheApplication)
{
    auto const window = this->template windowWithLabel<TypeParam>();
    auto const other = this->showWindow({ 600, 200, 100, 100 });
    EXPECT_FALSE(window->isKeyWindow());
    EXPECT_EQ(this->look(*this->made), "active");
    this->post(NSWindowWillBeginSheetNotification, window.get());
    this->post(NSWindowDidResignKeyNotification, window.get());
    EXPECT_EQ(this->look(*this->made), "active");
    this->person().focusNothing();
    this->pump();
    EXPECT_EQ(this->look(*this->made), "inactive");
    EXPECT_EQ(this->made->object, NSApp.get());
    other->makeKeyWindow();
    this->pump();
    EXPECT_TRUE(this->app().isActive());
    EXPECT_EQ(this->look(*this->made), "active");
    EXPECT_EQ(this->made->told, "-+");
}

TYPED_TEST(ChiseledInOwnWindows, AnotherObjectsNotificationsDoNotCount)
{
    auto const window = this->template windowWithLabel<TypeParam>();
    this->post(NSApplicationDidResignActiveNotification, window.get());
    this->post(NSApplicationDidResignActiveNotification, nullptr);
    EXPECT_EQ(this->made->told, "");
}

// MARK: registrations

TEST_F(ChiseledLooksTest, AViewRegistersInOrder)
{
    auto const inOrder = [](NSWindow const* window) {
        std::vector<std::string> names;
        for (auto const& [name, isActive] : activityNotifications(activitySourceFor(window)))
            names.push_back((isActive ? "+" : "-") + std::string(name));
        return names;
    };
    std::vector<std::string> const ofWindow { "-NSWindowDidResignKeyNotification", "-NSWindowWillBeginSheetNotification",
        "+NSWindowDidBecomeKeyNotification" };
    std::vector<std::string> const ofApplication { "+NSApplicationDidBecomeActiveNotification",
        "-NSApplicationDidResignActiveNotification" };
    EXPECT_EQ(inOrder(windowOf<NSWindow>().get()), ofWindow);
    EXPECT_EQ(inOrder(windowOf<NSPanel>().get()), ofWindow);
    EXPECT_EQ(inOrder(windowOf<OwnWindow>().get()), ofApplication);
    EXPECT_EQ(inOrder(windowOf<OwnPanel>().get()), ofApplication);
    EXPECT_EQ(inOrder(nullptr), ofApplication);
    SystemVersion const system(0x101F);
    EXPECT_TRUE(inOrder(nullptr).empty());
}

TEST_F(ChiseledLooksTest, ALabelInNoWindowFollowsNothingAtFirst)
{
    post(NSApplicationDidResignActiveNotification, NSApp.get());
    EXPECT_EQ(made->told, "");
}

TEST_F(ChiseledLooksTest, ALabelTakenOutOfItsWindowFollowsTheApplicationToo)
{
    auto const window = windowWithLabel<NSWindow>();
    made->removeFromSuperview();
    post(NSApplicationDidResignActiveNotification, NSApp.get());
    EXPECT_EQ(made->told, "-");
    EXPECT_EQ(look(*made), "inactive");
    post(NSWindowDidBecomeKeyNotification, window.get());
    EXPECT_EQ(made->told, "-+");
}

TEST_F(ChiseledLooksTest, ALabelThatMovesKeepsFollowingItsEarlierWindows)
{
    auto const first = windowWithLabel<NSWindow>();
    auto const second = windowOf<NSWindow>({ 600, 200, 100, 100 });
    made->told.clear();
    second->contentView()->addSubview(*made);
    post(NSWindowDidResignKeyNotification, first.get());
    post(NSWindowDidResignKeyNotification, second.get());
    post(NSWindowDidBecomeKeyNotification, first.get());
    EXPECT_EQ(made->told, "--+");
    EXPECT_EQ(look(*made), "active");
}

TEST_F(ChiseledLooksTest, ALabelThatComesBackIsToldTwice)
{
    auto const first = windowWithLabel<NSWindow>();
    auto const second = windowOf<OwnWindow>({ 600, 200, 100, 100 });
    second->contentView()->addSubview(*made);
    first->contentView()->addSubview(*made);
    made->told.clear();
    post(NSWindowDidResignKeyNotification, first.get());
    EXPECT_EQ(made->told, "--");
    // Out of the first window, into one of another class, out of that.
    post(NSApplicationDidBecomeActiveNotification, NSApp.get());
    EXPECT_EQ(made->told, "--+++");
}

TEST_F(ChiseledLooksTest, ALabelOfAnInterfaceFileRegistersOnceMore)
{
    auto const window = windowWithLabel<NSWindow>();
    made->awakeFromNib();
    post(NSWindowDidResignKeyNotification, window.get());
    EXPECT_EQ(made->told, "--");
}

TEST_F(ChiseledLooksTest, SystemsUpTo101TellNothing)
{
    for (std::uint32_t const version : { 0x101FU, 0x1010U, 0x1020U }) {
        SystemVersion const system(version);
        made = make<CountingLabel>(usualFrame);
        auto const window = windowWithLabel<NSWindow>();
        made->awakeFromNib();
        post(NSWindowDidResignKeyNotification, window.get());
        made->removeFromSuperview();
        post(NSApplicationDidResignActiveNotification, NSApp.get());
        EXPECT_EQ(made->told, version > 0x101F ? "---" : "") << version;
    }
}

TEST_F(ChiseledLooksTest, ADestroyedLabelIsToldNothing)
{
    auto const window = windowWithLabel<NSWindow>();
    auto const second = windowOf<OwnWindow>({ 600, 200, 100, 100 });
    second->contentView()->addSubview(*made);
    Weak<CountingLabel> const gone(made.get());
    made->removeFromSuperview();
    made = nullptr;
    EXPECT_FALSE(gone);
    for (char const* name :
        { NSWindowDidResignKeyNotification, NSWindowWillBeginSheetNotification, NSWindowDidBecomeKeyNotification })
        post(name, window.get());
    for (char const* name : { NSApplicationDidBecomeActiveNotification, NSApplicationDidResignActiveNotification })
        post(name, NSApp.get());
}

TEST_F(ChiseledLooksTest, TheShadowGoesWithTheLabel)
{
    Weak<NSTextField> const shadow(made->shadow());
    made = nullptr;
    EXPECT_FALSE(shadow);
}

/// Goes away while it is told.
class VanishingLabel : public PLIXChiseledTextField {
public:
    using PLIXChiseledTextField::init;
    void deactivate(NSNotification const* sender) override
    {
        removeFromSuperview();
        PLIXChiseledTextField::deactivate(sender);
    }
};

TEST_F(ChiseledLooksTest, ALabelMayGoWhileItIsTold)
{
    auto const window = windowWithLabel<NSWindow>();
    auto vanishing = make<VanishingLabel>(usualFrame);
    Weak<VanishingLabel> const gone(vanishing.get());
    window->contentView()->addSubview(*vanishing);
    vanishing = nullptr;
    post(NSWindowDidResignKeyNotification, window.get());
    EXPECT_FALSE(gone);
    EXPECT_EQ(look(*made), "inactive");
}

// What can happen to a label that has been in three windows, in every order.
TEST_F(ChiseledLooksTest, WindowsAndLabelsMayGoInEveryOrder)
{
    constexpr int eventCount = 6;
    std::vector<int> order(eventCount);
    std::iota(order.begin(), order.end(), 0);
    int rounds = 0;
    do {
        Ref<NSWindow> first = windowOf<NSWindow>({ 100, 100, 200, 100 });
        Ref<NSWindow> second = windowOf<NSPanel>({ 400, 100, 200, 100 });
        Ref<NSWindow> third = windowOf<OwnWindow>({ 700, 100, 200, 100 });
        auto label = make<CountingLabel>(usualFrame);
        auto stays = make<CountingLabel>(usualFrame);
        first->contentView()->addSubview(*stays);
        for (auto* window : { first.get(), second.get(), third.get() })
            window->contentView()->addSubview(*label);
        for (int const event : order) {
            switch (event) {
            case 0:
                first->close();
                first = nullptr;
                break;
            case 1:
                if (second)
                    second->close();
                break;
            case 2:
                third->close();
                third = nullptr;
                break;
            case 3:
                label = nullptr;
                break;
            case 4:
                // An open one goes on living on the screen.
                second = nullptr;
                break;
            default:
                stays = nullptr;
                break;
            }
            post(NSApplicationDidResignActiveNotification, NSApp.get());
            for (auto* window : { first.get(), second.get(), third.get() }) {
                if (window)
                    post(NSWindowDidResignKeyNotification, window);
            }
            if (label) {
                EXPECT_FALSE(label->isActive());
            }
        }
        for (auto const& open : app().windows())
            open->close();
        ++rounds;
    } while (std::next_permutation(order.begin(), order.end()));
    EXPECT_EQ(rounds, 720);
    EXPECT_TRUE(app().windows().empty());
}

}
}
