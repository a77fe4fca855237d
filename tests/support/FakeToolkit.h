#pragma once

#include <plix/platform/foundation/event_source.h>
#include <plix/platform/host/Clipboard.h>
#include <plix/platform/host/Host.h>
#include <plix/platform/host/embedding/EmbeddedWindow.h>
#include <plix/platform/host/embedding/EmbeddingDisplay.h>
#include <plix/platform/host/embedding/EmbeddingEvents.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace plix {

/// A toolkit's main loop that handles what a test has put into it, one thing a pass.
class FakeLoop final : public ToolkitLoop {
public:
    std::deque<std::function<void()>> events;
    int loops { 0 };
    int passes { 0 };
    /// What the last pass would have slept until, and whether a turn was asked for in it.
    std::optional<NSTimeInterval> deadline;
    bool wantedTurn { false };
    EmbeddingEvents* served { nullptr };

    void pass() override
    {
        ++passes;
        wantedTurn = served->toolkitWillSleep();
        deadline = served->deadline();
        if (events.empty())
            throw std::logic_error("the toolkit would sleep for ever");
        auto const event = std::move(events.front());
        events.pop_front();
        event();
    }
    int depth() const override { return loops; }
};

/// A toolkit's window.
class FakeToolkitWindow final : public EmbeddedWindow {
public:
    FakeToolkitWindow(EmbeddingDisplay& display, HostWindowAttributes const& attributes, float scale = 1)
        : EmbeddedWindow(display, attributes, scale)
    {
    }

    int paintings { 0 };
    void focus() override { display().focusChanged(*this, true); }

protected:
    void pixelsChanged(std::span<PixelRect const>) override { ++paintings; }
    void wantsPlace(Rect rect) override
    {
        if (kind() == HostWindowKind::popup)
            placed(rect, backingScale());
        else
            EmbeddedWindow::wantsPlace(rect);
    }
};

class FakeDisplay final : public EmbeddingDisplay {
public:
    using EmbeddingDisplay::EmbeddingDisplay;

    CursorShape cursor { CursorShape::arrow };
    std::optional<Rect> caret;

    std::vector<HostScreen> screens() const override { return { { { 0, 0, 1000, 800 }, { 0, 0, 1000, 800 }, 1 } }; }
    void setCursor(CursorShape shape) override { cursor = shape; }
    void setCursor(CursorPixels const&) override { }
    void startTextInput(Rect rect) override { caret = rect; }
    void stopTextInput() override { caret.reset(); }

protected:
    std::unique_ptr<EmbeddedWindow> makeToolkitWindow(HostWindowAttributes const& attributes) override
    {
        return std::make_unique<FakeToolkitWindow>(*this, attributes);
    }
};

/// A host in a toolkit that has nothing but what a test enters.
class FakeToolkit final : public Host {
public:
    FakeToolkit()
    {
        loop.served = &embeddingEvents;
        installEventSource(&embeddingEvents);
    }
    ~FakeToolkit() override { installEventSource(nullptr); }

    FakeLoop loop;
    EmbeddingEvents embeddingEvents { loop };
    FakeDisplay fakeDisplay { embeddingEvents };

    // Host:
    std::string_view name() const override { return "fake"; }
    Display& display() override { return fakeDisplay; }
    Clipboard& clipboard() override { return m_clipboard; }
    EventSource& events() override { return embeddingEvents; }

private:
    class NoClipboard final : public Clipboard {
    public:
        std::optional<std::string> text() override { return {}; }
        void setText(std::string_view) override { }
        bool hasText() override { return false; }
        long changeCount() override { return 0; }
    };

    NoClipboard m_clipboard;
};

}
