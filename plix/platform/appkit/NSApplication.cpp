#include <plix/platform/appkit/NSApplication.h>

#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/classes.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/host/Audio.h>
#include <plix/platform/host/Host.h>

#include <algorithm>
#include <cstdlib>

namespace plix {

constinit Global<NSApplication> NSApp;

PLIX_DESCRIBE(NSApplication)
{
    description.hookOutlet("delegate", &NSApplication::takeHooks)
        .action("terminate:", &NSApplication::terminate)
        .action("stop:", &NSApplication::stop)
        .action("hide:", &NSApplication::hide)
        .action("unhide:", &NSApplication::unhide)
        .action("hideOtherApplications:", &NSApplication::hideOtherApplications);
}

NSApplication::Internals::Internals(NSApplication& application)
    : self(application)
    , exitHandler([] { std::exit(EXIT_SUCCESS); })
{
    host().display().setClient(this);
    waitObserver = NSRunLoop::currentRunLoop().addObserverBeforeWaiting([this] { beforeWaiting(); });
}

NSApplication::Internals::~Internals()
{
    host().display().setClient(nullptr);
}

NSApplication::NSApplication() = default;
NSApplication::~NSApplication() = default;

bool NSApplication::init()
{
    if (!NSResponder::init())
        return false;
    registerAppKitClasses();
    m = std::make_unique<Internals>(*this);
    NSApp = Ref<NSApplication>(this);
    m->displayScreensChanged();
    return true;
}

NSApplication& NSApplication::sharedApplication()
{
    if (!NSApp)
        make<NSApplication>();
    return *NSApp;
}

void NSApplication::Internals::post(char const* name, Hook<void(NSNotification const&)> NSApplicationDelegate::*hook)
{
    Ref<NSApplication> const protector(self);
    NSNotification const notification { name, Ref<NSObject>(self), {} };
    (hooks.*hook)(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

void NSApplication::takeHooks(HookSource const& source)
{
    m->delegateSource = source;
    m->hooks = source.hooks<NSApplicationDelegate>();
}

NSObject* NSApplication::delegate() const
{
    return m->delegateSource.object();
}

// Running.

void NSApplication::finishLaunching()
{
    if (std::exchange(m->hasLaunched, true))
        return;
    m->post(NSApplicationWillFinishLaunchingNotification, &NSApplicationDelegate::applicationWillFinishLaunching);
    m->post(NSApplicationDidFinishLaunchingNotification, &NSApplicationDelegate::applicationDidFinishLaunching);
}

bool NSApplication::isRunning() const
{
    return m->runDepth > 0;
}

void NSApplication::run()
{
    Ref<NSApplication> const protector(this);
    struct Depth {
        int& depth;
        explicit Depth(int& counted)
            : depth(++counted)
        {
        }
        ~Depth() { --depth; }
    } const depth(m->runDepth);
    finishLaunching();
    m->stopsRunning = false;
    while (!m->stopsRunning && !m->isTerminating) {
        if (auto const event = nextEventMatchingMask(NSAnyEventMask, NSDate::distantFuture(), NSDefaultRunLoopMode, true)) {
            sendEvent(*event);
            if (std::exchange(m->windowsNeedUpdate, false))
                updateWindows();
        }
    }
    m->stopsRunning = false;
}

void NSApplication::stop(NSObject*)
{
    if (auto* const session = m->innermostSession())
        stopModal();
    else
        m->stopsRunning = true;
    NSRunLoop::wakeUp();
}

void NSApplication::terminate(NSObject*)
{
    if (m->isTerminating || m->awaitsTerminateReply)
        return;
    Ref<NSApplication> const protector(this);
    auto const reply = m->hooks.applicationShouldTerminate ? m->hooks.applicationShouldTerminate(*this) : NSTerminateNow;
    if (reply == NSTerminateLater)
        m->awaitsTerminateReply = true;
    else if (reply == NSTerminateNow)
        m->finishTerminating();
}

void NSApplication::replyToApplicationShouldTerminate(bool agrees)
{
    if (!std::exchange(m->awaitsTerminateReply, false))
        return;
    Ref<NSApplication> const protector(this);
    if (agrees)
        m->finishTerminating();
}

void NSApplication::Internals::finishTerminating()
{
    post(NSApplicationWillTerminateNotification, &NSApplicationDelegate::applicationWillTerminate);
    // What was set last would be saved by a run loop that runs no more.
    NSUserDefaults::standardUserDefaults().synchronize();
    isTerminating = true;
    for (auto const& session : sessions)
        session->m_response = NSRunAbortedResponse;
    NSRunLoop::wakeUp();
    if (runDepth == 0 && sessions.empty()) {
        auto const handler = exitHandler;
        handler();
    }
}

bool NSApplication::isTerminating() const
{
    return m->isTerminating;
}

void NSApplication::setExitHandler(std::function<void()> handler)
{
    m->exitHandler = handler ? std::move(handler) : [] { std::exit(EXIT_SUCCESS); };
}

void NSApplication::Internals::displayWantsQuit()
{
    self.terminate(nullptr);
}

int NSApplicationMain(int, char const* const*)
{
    auto& application = NSApplication::sharedApplication();
    application.run();
    return EXIT_SUCCESS;
}

void NSBeep()
{
    auto* const audio = host().audio();
    if (!audio || !audio->beep())
        host().display().beep();
}

// Screens.

void NSApplication::Internals::displayScreensChanged()
{
    float scale = 1;
    for (auto const& screen : NSScreen::screens())
        scale = std::max(scale, screen->backingScaleFactor());
    NSImage::setDefaultBackingScale(scale);
    for (auto* window : std::vector(order)) {
        if (std::ranges::find(order, window) == order.end())
            continue;
        Rect const constrained = window->constrainFrameRect(window->frame(), window->screen());
        if (constrained != window->frame())
            window->setFrame(constrained, true);
        else
            window->internals().noteScreen();
    }
    if (hasLaunched)
        post(NSApplicationDidChangeScreenParametersNotification, &NSApplicationDelegate::applicationDidChangeScreenParameters);
}

NSImage* NSApplication::applicationIconImage() const
{
    if (!m->icon)
        m->icon = NSImage::imageNamed("NSApplicationIcon");
    return m->icon.get();
}

void NSApplication::setApplicationIconImage(Ref<NSImage> const& icon)
{
    m->icon = icon;
}

// Attention.

long NSApplication::requestUserAttention(NSRequestUserAttentionType)
{
    if (m->isActive)
        return 0;
    auto const request = m->nextAttentionRequest++;
    m->attentionRequests.push_back(request);
    auto* const key = m->lastKeyWindow.get();
    auto* const window = key && key->isVisible() ? key : m->order.empty() ? nullptr : m->order.front();
    m->attentionWindow = window;
    if (window && window->internals().host)
        window->internals().host->requestAttention();
    return request;
}

void NSApplication::cancelUserAttentionRequest(long request)
{
    if (std::erase(m->attentionRequests, request) > 0 && m->attentionRequests.empty())
        m->cancelAttention();
}

void NSApplication::Internals::cancelAttention()
{
    attentionRequests.clear();
    auto* const window = attentionWindow.get();
    attentionWindow = nullptr;
    if (window && window->internals().host)
        window->internals().host->cancelAttention();
}

}
