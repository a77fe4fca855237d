#pragma once

#include <plix/inspector/event_log.h>
#include <plix/inspector/view_fields.h>
#include <plix/platform/appkit/NSPanel.h>

namespace plix {

class NSButton;
class NSTextField;
class TextTable;
class ViewOutline;

/// The inspector's window. It never becomes key, so that the window that is looked at stays key and looks so; keys that are pressed
/// while it has the keyboard come by takeKey().
class InspectorPanel : public NSPanel {
    PLIX_CLASS(InspectorPanel, NSPanel);

public:
    InspectorPanel();
    ~InspectorPanel() override;
    using NSPanel::init;
    bool init();

    // What it is made of.
    ViewOutline& views() const { return *m_views; }
    TextTable& fields() const { return *m_fields; }
    TextTable& events() const { return *m_events; }
    NSButton& pickButton() const { return *m_pick; }
    NSButton& framesSwitch() const { return *m_frames; }
    NSButton& flashesSwitch() const { return *m_flashes; }
    NSButton& copyButton() const { return *m_copy; }
    NSButton& clearButton() const { return *m_clear; }

    void showFields(std::vector<FieldRow> const&);
    void showEvents(std::vector<RecordedEvent> const&);
    /// A short line at the bottom.
    void showStatus(std::string const&);
    /// Beside a window where the screen has room, else over its right edge.
    void placeBeside(NSWindow const&);
    /// As the key window takes it; Escape closes.
    void takeKey(NSEvent&);

    // NSWindow:
    bool canBecomeKeyWindow() const override { return false; }

private:
    void makeControls(NSView& content);
    void makeTables(NSView& content);
    Ref<NSButton> makeButton(NSView& content, char const* title, Rect, unsigned autoresizingMask);

    Ref<ViewOutline> m_views;
    Ref<TextTable> m_fields;
    Ref<TextTable> m_events;
    Ref<NSButton> m_pick;
    Ref<NSButton> m_frames;
    Ref<NSButton> m_flashes;
    Ref<NSButton> m_copy;
    Ref<NSButton> m_clear;
    Ref<NSTextField> m_status;
};

}
