#include "loop_pages.h"
#include "LivePage.h"
#include "page_parts.h"

#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/foundation/NSUndoManager.h>
#include <plix/platform/foundation/RunLoopDescriptor.h>
#include <plix/platform/foundation/delayed_perform.h>

#include <array>
#include <functional>
#include <memory>

#include <poll.h>
#include <unistd.h>

namespace gallery {

using namespace plix;

namespace {

Ref<NSView> makeNSNotificationPage()
{
    auto const transcript = make<Transcript>();
    RUN(NSNotification const plain { "KettleDidBoil", nullptr, {} });
    SHOW(plain.name);
    SHOW(plain.object);
    SHOW(plain.userInfo);
    RUN(NSNotification const full { "CupWasFilled", make<NSTimer>(NSDate(), 0.0, nullptr, nullptr, false), { { "sugar", 2 } } });
    SHOW(full.object);
    SHOW(full.userInfo);
    SHOW(full.userInfo.at("sugar").intValue());
    transcript->addNote("A name, the object that it is about, and further values. NSNotificationCenter carries it.");
    return transcript;
}

Ref<NSView> makeNSNotificationCenterPage()
{
    class Listener : public NSObject {
    public:
        void heard(NSNotification const& notification)
        {
            if (log)
                log->add(notification.name, valueText(notification.userInfo));
        }
        Weak<Transcript> log; // the page may go first
    };
    auto const log = make<Transcript>();
    log->addNote("Kettles and cups are posted; the listener observes what is ticked.");
    log->setLimit(8);
    auto const page = LivePage::page(log);
    auto const listener = page->keep(make<Listener>());
    listener->log = log;
    auto const center = page->keep(make<NSNotificationCenter>());
    auto const observe = [listener = listener.get(), center = center.get()](std::string const& name) {
        return [=](bool isOn) {
            if (isOn)
                center->addObserver(*listener, &Listener::heard, name);
            else
                center->removeObserver(*listener, name);
        };
    };
    for (std::string const name : { "KettleDidBoil", "CupWasFilled" })
        page->addControl(pushButton(name, [center = center.get(), name] {
            center->postNotificationName(name, nullptr, { { "litres", 1.5 } });
        }));
    for (auto const* name : { "KettleDidBoil", "CupWasFilled" }) {
        auto const box = checkBox(name == std::string_view("CupWasFilled") ? "Cups" : "Kettles", observe(name));
        page->addControl(box);
        box->performClick(nullptr);
    }
    center->postNotificationName("KettleDidBoil", nullptr, { { "litres", 1.5 } });
    return page;
}

Ref<NSView> makeNSTimerPage()
{
    class Counter : public NSObject {
    public:
        ~Counter() override { stop(); }
        void start()
        {
            stop();
            timer = NSTimer::scheduledTimerWithTimeInterval(
                0.1, [this](NSTimer&) { count(); }, true);
            tell();
        }
        void count()
        {
            ++tenths;
            if (shown)
                shown->update(line, tenths / 10.0);
        }
        void stop()
        {
            if (timer)
                timer->invalidate();
        }
        void tell()
        {
            if (shown)
                shown->update(line + 1, timer && timer->isValid());
        }
        Ref<NSTimer> timer;
        Weak<Transcript> shown; // the page may go first
        long line { 0 };
        int tenths { 0 };
    };
    auto const transcript = make<Transcript>();
    auto const counter = make<Counter>();
    counter->shown = transcript;
    counter->line = transcript->show("seconds counted", 0.0);
    transcript->show("timer->isValid()", false);
    transcript->addHeading("One that nobody waits for");
    RUN(int calls = 0);
    RUN(auto const timer = NSTimer::timerWithTimeInterval(
            60, [&](NSTimer&) { ++calls; }, false, "tea"));
    SHOW(timer->isValid());
    SHOW(timer->userInfo());
    SHOW(timer->timeInterval());
    RUN(timer->fire());
    SHOW(calls);
    SHOW(timer->isValid());
    auto const page = LivePage::page(transcript);
    page->keep(counter);
    page->addControl(pushButton("Start", [counter = counter.get()] { counter->start(); }));
    page->addControl(pushButton("Stop", [counter = counter.get()] {
        counter->stop();
        counter->tell();
    }));
    return page;
}

Ref<NSView> makeNSRunLoopPage()
{
    auto const log = make<Transcript>();
    log->addNote("A run loop waits for events, timers, descriptors and calls.");
    log->setLimit(8);
    auto const page = LivePage::page(log);
    auto const write = [log = Weak<Transcript>(log)](std::string const& text) {
        auto const& mode = NSRunLoop::currentRunLoop().currentMode();
        if (log)
            log->add(text, "in " + mode.value_or("no mode"));
    };
    page->addControl(pushButton("Call Later", [write] {
        write("asked for");
        NSRunLoop::performOnMainThread([write] { write("called by the run loop"); });
    }));
    page->addControl(pushButton("Before the Next Wait", [write] {
        auto const token = std::make_shared<Ref<NSObject>>();
        *token = NSRunLoop::currentRunLoop().addObserverBeforeWaiting([write, token] {
            write("nothing to do: the loop waits");
            *token = nullptr;
        });
    }));
    return page;
}

Ref<NSView> makeRunLoopDescriptorPage()
{
    class Pipe : public NSObject {
    public:
        Pipe()
        {
            if (::pipe(ends.data()) != 0)
                return;
            source = make<RunLoopDescriptor>(ends[0], short { POLLIN }, [this](short) {
                char bytes[64];
                auto const size = ::read(ends[0], bytes, sizeof bytes);
                tell("bytes arrived", valueText(static_cast<long>(size)));
            });
            NSRunLoop::currentRunLoop().addDescriptor(*source, NSRunLoopCommonModes);
        }
        ~Pipe() override
        {
            if (!source)
                return;
            source->invalidate();
            ::close(ends[0]);
            ::close(ends[1]);
        }
        void tell(char const* what, std::string const& result)
        {
            if (log)
                log->add(what, result);
        }
        Ref<RunLoopDescriptor> source;
        std::array<int, 2> ends {};
        Weak<Transcript> log; // the page may go first
    };
    auto const log = make<Transcript>();
    log->addNote("A pipe, a socket, whatever poll() knows: called when it is ready, until it is invalidated.");
    log->setLimit(7);
    auto const page = LivePage::page(log);
    auto const pipe = page->keep(make<Pipe>());
    pipe->log = log;
    page->addControl(pushButton("Write 5 Bytes", [pipe = pipe.get()] {
        if (pipe->source && ::write(pipe->ends[1], "water", 5) == 5)
            pipe->tell("bytes written", "5");
    }));
    page->addControl(pushButton("Invalidate", [pipe = pipe.get()] {
        if (!pipe->source)
            return;
        pipe->source->invalidate();
        pipe->tell("source->isValid()", valueText(pipe->source->isValid()));
    }));
    return page;
}

Ref<NSView> makeDelayedPerformPage()
{
    class Kettle : public NSObject {
    public:
        void boil() { write("boil"); }
        void whistle() { write("whistle"); }
        /// The calls that are waiting keep the kettle, but not its page.
        void write(char const* what)
        {
            if (log)
                log->add(what, "performed");
        }
        Weak<Transcript> log;
    };
    auto const log = make<Transcript>();
    log->addNote("The kettle boils half a second after it is asked to, and whistles after a whole one.");
    log->setLimit(7);
    auto const page = LivePage::page(log);
    auto const kettle = page->keep(make<Kettle>());
    kettle->log = log;
    page->addControl(pushButton("Ask", [kettle = kettle.get()] {
        performAfterDelay(*kettle, &Kettle::boil, 0.5);
        performAfterDelay(*kettle, &Kettle::whistle, 1);
    }));
    page->addControl(
        pushButton("No Whistling", [kettle = kettle.get()] { cancelPreviousPerformRequests(*kettle, &Kettle::whistle); }));
    page->addControl(pushButton("Cancel All", [kettle = kettle.get()] { cancelPreviousPerformRequests(*kettle); }));
    return page;
}

Ref<NSView> makeNSUndoManagerPage()
{
    class Counter : public NSObject {
    public:
        void set(int number, std::string const& name)
        {
            undo->registerUndoWithTarget<Counter>(*this, [before = value, name](Counter& counter) { counter.set(before, name); });
            undo->setActionName(name);
            value = number;
        }
        void tell()
        {
            if (!shown || !undoButton || !redoButton)
                return;
            shown->update(0, value);
            shown->update(1, undo->undoMenuItemTitle());
            shown->update(2, undo->redoMenuItemTitle());
            shown->update(3, undo->canUndo());
            shown->update(4, undo->canRedo());
            undoButton->setEnabled(undo->canUndo());
            redoButton->setEnabled(undo->canRedo());
        }
        Ref<NSUndoManager> undo { make<NSUndoManager>() };
        Weak<Transcript> shown; // the page may go first
        Weak<NSButton> undoButton;
        Weak<NSButton> redoButton;
        int value { 1 };
    };
    auto const transcript = make<Transcript>();
    for (auto const* line :
        { "value", "undo->undoMenuItemTitle()", "undo->redoMenuItemTitle()", "undo->canUndo()", "undo->canRedo()" })
        transcript->add(line, "–");
    auto const page = LivePage::page(transcript);
    auto const counter = page->keep(make<Counter>());
    counter->shown = transcript;
    auto const add = [&](char const* title, std::function<void(Counter&)> change) {
        auto const button = pushButton(title, [counter = counter.get(), change] {
            change(*counter);
            counter->tell();
        });
        page->addControl(button);
        return button.get();
    };
    add("Add 5", [](Counter& it) { it.set(it.value + 5, "Adding"); });
    add("Double", [](Counter& it) { it.set(it.value * 2, "Doubling"); });
    counter->undoButton = add("Undo", [](Counter& it) { it.undo->undo(); });
    counter->redoButton = add("Redo", [](Counter& it) { it.undo->redo(); });
    counter->tell();
    return page;
}

constexpr Page all[] {
    { "NSNotification", "NSNotification", eventsSection, "loop_pages.cpp", makeNSNotificationPage },
    { "NSNotificationCenter", "NSNotificationCenter", eventsSection, "loop_pages.cpp", makeNSNotificationCenterPage },
    { "NSTimer", "NSTimer", eventsSection, "loop_pages.cpp", makeNSTimerPage },
    { "NSRunLoop", "NSRunLoop", eventsSection, "loop_pages.cpp", makeNSRunLoopPage },
    { "RunLoopDescriptor", "RunLoopDescriptor", eventsSection, "loop_pages.cpp", makeRunLoopDescriptorPage },
    { "delayed_perform", "Calls after a delay", eventsSection, "loop_pages.cpp", makeDelayedPerformPage },
    { "NSUndoManager", "NSUndoManager", eventsSection, "loop_pages.cpp", makeNSUndoManagerPage },
};

}

std::span<Page const> loopPages()
{
    return all;
}

}
