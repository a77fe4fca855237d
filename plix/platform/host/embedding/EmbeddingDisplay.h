#pragma once

#include <plix/platform/host/ClickCounter.h>
#include <plix/platform/host/DeliveryQueue.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/embedding/EmbeddedWindow.h>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace plix {

class EmbeddingEvents;
struct ToolkitKey;

/// The display where another toolkit has the windows. An adapter derives from it: it makes windows, knows the screens and sets the
/// cursor; and it tells here what a person does, from the toolkit's own event handlers, which return at once. The application
/// hears of it in its next turn. Places are on the screen, in points, y upwards.
class PLIX_EXPORT EmbeddingDisplay : public Display {
public:
    explicit EmbeddingDisplay(EmbeddingEvents&);
    ~EmbeddingDisplay() override;
    EmbeddingDisplay(EmbeddingDisplay const&) = delete;
    EmbeddingDisplay& operator=(EmbeddingDisplay const&) = delete;

    // What a person does. Null for a window means the toolkit's own parts.
    void pointerMoved(EmbeddedWindow*, Point onScreen, std::uint32_t modifiers);
    /// For the toolkits that say with each event which buttons are held: releases that nobody told of are made up for. Before the
    /// event is told.
    void buttonsHeld(std::uint32_t buttons);
    /// The pointer is over none of these windows any more.
    void pointerLeft(Point onScreen, std::uint32_t modifiers);
    void buttonPressed(EmbeddedWindow*, Point onScreen, int button, std::uint32_t modifiers);
    void buttonReleased(EmbeddedWindow*, Point onScreen, int button, std::uint32_t modifiers);
    /// Lines, as HostEvent has them.
    void wheelTurned(EmbeddedWindow*, Point onScreen, Size lines, std::uint32_t modifiers);
    /// A press on one of the toolkit's own parts: true where a menu is open, which that press ends, and the toolkit is to ignore
    /// it.
    bool takesPressElsewhere(Point onScreen, int button, std::uint32_t modifiers);
    void keyPressed(EmbeddedWindow&, ToolkitKey const&);
    void keyReleased(EmbeddedWindow&, ToolkitKey const&);
    /// Text that came without a key: what an input method or a dead key entered.
    void textEntered(EmbeddedWindow&, std::string_view text);
    /// What an input method shows before it enters it, and where the caret is in it, in UTF-16 units; empty text ends it.
    void preeditChanged(EmbeddedWindow&, std::string_view text, long caret);

    // What the toolkit does.
    void focusChanged(EmbeddedWindow&, bool hasFocus);
    void closeRequested(EmbeddedWindow&);
    void screensChanged();

    /// The next window that is made is that one, instead of one of its own.
    void giveNextWindow(std::unique_ptr<EmbeddedWindow> window) { m_given = std::move(window); }
    /// The one with the keyboard, or null.
    EmbeddedWindow* focusedWindow() const { return windowWithNumber(m_focused); }
    EmbeddedWindow* windowWithNumber(std::uint32_t) const;
    /// The window as what it is here; null for null and for one of another display.
    EmbeddedWindow* windowFor(HostWindow const*) const;
    std::vector<EmbeddedWindow*> const& windows() const { return m_windows; }
    EmbeddingEvents& events() { return m_events; }

    // Told by windows.
    std::uint32_t add(EmbeddedWindow&);
    void remove(EmbeddedWindow&);
    long nextOrder() { return ++m_lastOrder; }
    void push(Delivery);

    // Display:
    void setClient(DisplayClient* client) override { m_client = client; }
    std::unique_ptr<HostWindow> makeWindow(HostWindowAttributes const&, HostWindowClient&) override;
    HostWindow::FrameExtents frameExtents(HostWindowAttributes const&) const override { return {}; }
    Point mouseLocation() const override { return m_location; }
    std::uint32_t pressedButtons() const override { return m_pressed; }
    std::uint32_t modifiers() const override { return m_modifiers; }
    double doubleClickInterval() const override { return 0.5; }

protected:
    /// One of the toolkit's windows, for a menu, an alert, a tool tip.
    virtual std::unique_ptr<EmbeddedWindow> makeToolkitWindow(HostWindowAttributes const&) = 0;

private:
    bool deliverPending();
    void deliver(Delivery const&);
    HostEvent event(HostEvent::Type) const;
    void push(EmbeddedWindow const&, HostEvent);
    void note(Point onScreen, std::uint32_t modifiers);
    EmbeddedWindow* popupAt(Point onScreen) const;
    /// Who gets what the pointer does there, while the toolkit names that window.
    EmbeddedWindow* target(EmbeddedWindow*) const;
    void setHovered(EmbeddedWindow const*);
    void key(EmbeddedWindow&, ToolkitKey const&, HostEvent::Type);

    EmbeddingEvents& m_events;
    DisplayClient* m_client { nullptr };
    DeliveryQueue m_queue;
    ClickCounter m_clicks;
    std::vector<EmbeddedWindow*> m_windows;
    std::unique_ptr<EmbeddedWindow> m_given;
    std::uint32_t m_lastNumber { 0 };
    long m_lastOrder { 0 };
    std::uint32_t m_focused { 0 };
    std::uint32_t m_hovered { 0 };
    std::uint32_t m_pressWindow { 0 };
    long m_pressOrder { 0 };
    std::uint32_t m_pressed { 0 };
    std::uint32_t m_modifiers { 0 };
    Point m_location;
};

}
